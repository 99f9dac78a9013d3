#include "app/companion.h"

#include <utility>

#include "app/about.h"
#include "app/program.h"
#include "live/sampling_time.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/printer.h"
#include "platform/shell.h"
#include "screen/captions.h"
#include "screen/print_failure.h"

namespace halden {

Companion::Companion(Platform platform, StartOptions options)
    : program_(std::make_unique<Program>(platform, options.work_folder, options.temporary_folder)),
      options_(std::move(options)) {
  connect_actions();
}

Companion::~Companion() = default;

Screen& Companion::screen() { return program_->screen; }

Program& Companion::program() { return *program_; }

void Companion::refresh_status_line() { program_->status_line.refresh(); }

// Errors of a step never stop the next one: what can fail tells so by its result.
void Companion::start_up() {
  Program& on = *program_;
  on.screen.chkspeed["Text1"].text.clear();
  on.sample_clock.show_date();
  on.polling.stop_polling();
  on.label_column_left = read_label_columns(on.screen.meter_rec);
  arrange_for_system(on.status.wiring_system, on.screen.meter_rec, on.label_column_left);
  on.link.language = on.configuration.read_language().value_or(english);
  if (on.link.language == chinese) apply_captions(chinese, on.screen);
  show_language();
  on.port_choice.describe_ports();
  on.status_line.refresh();
  on.port_choice.open_stored(options_.first_port);
  if (on.status.ct_ratio == 0) on.status.ct_ratio = 1;
  if (on.status.pt_ratio == 0) on.status.pt_ratio = 1;
  on.status_line.refresh();
  on.screen.meter_rec.show();
  tell_rescued();
}

// What the last recording could not write anywhere else.
void Companion::tell_rescued() {
  Program& on = *program_;
  for (const std::string& path : on.rescue.found())
    on.platform.dialogs.tell({rescued_sentence(path, on.link.language), "", Icon::information});
}

void Companion::click(std::string_view control) {
  const auto action = actions_.find(control);
  const Window* const window = window_of(control);
  if (action == actions_.end() || window == nullptr) return;
  if (!(*window)[control].enabled || !(*window)[control].visible) return;
  action->second();
  refresh_status_line();
}

const Window* Companion::window_of(std::string_view control) const {
  const Screen& screen = program_->screen;
  for (const Window* window : {&screen.meter_rec, &screen.phasor_form})
    if (window->has(control)) return window;
  return nullptr;
}

bool Companion::exchange_runs() const { return program_->gate.busy(); }

void Companion::phasor_form_resized() { program_->phasors.resized(); }

void Companion::phasor_form_closed() { program_->phasors.close(); }

void Companion::main_window_resized() {
  program_->gate.run("resize", [this] { program_->views.select_by_meter_mode(); });
  refresh_status_line();
}

void Companion::main_window_closed() {
  program_->recording.rescue_waiting();
  program_->platform.shell.end_program();
}

void Companion::connect_actions() {
  Program& on = *program_;
  actions_["quit"] = [this] { exit(); };
  actions_["Command3D1"] = [this] { print_main_window(); };
  actions_["HelpAbout"] = [&on] { on.platform.dialogs.message({about_text(), "About", Icon::none}); };
  connect_recording();
  connect_phasors();
  actions_["reset_kwh"] = [&on] { on.settings.reset_kwh(); };
  actions_["comm_port"] = [&on] { on.port_choice.describe_ports(); };
  add_setting("set_ct", "CT", &SettingsPanel::set_ct);
  add_setting("set_pt", "PT", &SettingsPanel::set_pt);
  add_setting("set_md", "MD", &SettingsPanel::set_md);
  add_setting("set_sec", "SEC", &SettingsPanel::set_sec);
  add_setting("set_hz", "HZ", &SettingsPanel::set_hz);
  add_exchange("get_hz", [&on] { on.settings.get_hz(); });
  for (int port = first_port_number; port <= last_port_number; ++port)
    add_exchange(element("port_number", port), [&on, port] { on.port_choice.choose(port); });
  for (const std::int16_t language : {english, chinese})
    add_exchange(element("sel_language", language), [this, language] { choose_language(language); });
  for (int manual = 0; manual_path(options_.program_folder, manual) != ""; ++manual)
    actions_[element("HelpManual", manual)] = [this, manual] {
      program_->platform.shell.open_document(manual_path(options_.program_folder, manual));
    };
}

void Companion::connect_recording() {
  Program& on = *program_;
  actions_["FileName"] = [&on] { on.status_line.tell(on.recording.create_data_file()); };
  actions_["auto_record"] = [&on] { on.recording.start_automatic(); };
  actions_["manual_record"] = [&on] { on.recording.start_manual(); };
  actions_["record_button"] = [&on] { on.recording.record_once(); };
  actions_["FileStop"] = [&on] { on.status_line.tell(on.recording.end_recording()); };
  const auto sample_rate = [&on] {
    ask_sampling_time(on.platform.dialogs, on.sample_clock, on.screen.meter_rec);
  };
  actions_["SampleRate"] = sample_rate;
  for (int label = 0; label < clock_label_count; ++label) actions_[element("Label1", label)] = sample_rate;
}

void Companion::connect_phasors() {
  Program& on = *program_;
  actions_["phasor_button"] = [&on] {
    on.screen.phasor_form["status_hint"].text.clear();
    on.phasors.open();
  };
  actions_["v_only"] = [&on] { on.phasors.v_only(); };
  actions_["i_only"] = [&on] { on.phasors.i_only(); };
  actions_["vi_all"] = [&on] { on.phasors.vi_all(); };
  actions_["vxy"] = [&on] { on.phasors.vxy(); };
  actions_["hide_vxy"] = [&on] { on.phasors.hide_vxy(); };
  actions_["print_phasor"] = [&on] {
    Control& hint = on.screen.phasor_form["status_hint"];
    hint.text.clear();  // the picture shows none
    hint.text = print_failure_sentence(on.phasors.print(), on.link.language);
  };
}

// An action that talks to the meter: never while another one does.
void Companion::add_exchange(const std::string& control, std::function<void()> exchange) {
  actions_[control] = [this, control, exchange = std::move(exchange)] {
    program_->gate.run(control, [this, exchange] {
      exchange();
      refresh_status_line();
    });
  };
}

// The program takes no input for several seconds: the status line says why.
void Companion::add_setting(const std::string& control, std::string_view caption,
                            void (SettingsPanel::*send)()) {
  add_exchange(control, [this, caption, send] {
    Program& on = *program_;
    on.settings.on_sending = [&on, caption] {
      on.status_line.tell_sending(caption);
      on.status_line.refresh();
    };
    (on.settings.*send)();
    on.status_line.tell("");
  });
}

void Companion::choose_language(std::int16_t language) {
  Program& on = *program_;
  on.polling.stop_polling();
  on.link.language = language;
  apply_captions(language, on.screen);
  show_language();
  on.status_line.tell_saved(on.configuration.write_language(language));
  on.query.query_meter_status();
  on.polling.resume_polling(1);
}

void Companion::show_language() {
  Program& on = *program_;
  for (const std::int16_t language : {english, chinese})
    on.screen.meter_rec[element("sel_language", language)].checked =
        (on.link.language == chinese) == (language == chinese);
}

void Companion::exit() {
  Program& on = *program_;
  if (on.recording.runs())
    on.recording.end_recording();
  else
    on.recording.settle_waiting();
  on.platform.shell.end_program();
}

void Companion::print_main_window() {
  Printer& printer = program_->platform.printer;
  printer.set_orientation(Orientation::landscape);
  printer.print_window(program_->screen.meter_rec.name());
  program_->status_line.tell(print_failure_sentence(printer.finish(), program_->link.language));
}

}  // namespace halden
