#include "app/application.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/dialogs.h"
#include "platform/printer.h"
#include "platform/shell.h"
#include "screen/failure_texts.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

// The entry of the language menu.
std::string entry_of(Language language) { return element("sel_language", static_cast<int>(language)); }

constexpr std::array languages = {Language::english, Language::chinese};

constexpr std::string_view product_line = "Halden";
constexpr std::string_view version_line = "Version: 7.0";
constexpr std::string_view legal_line = "2026. Free software, GPL 3 or later, no warranty.";

// In the order of the Help entries: English, French, German, Spanish, Italian, Portuguese.
constexpr std::array<std::string_view, 6> manuals = {
    "Halden-SW-HELP-EN-V2.0.pdf", "Halden-SW-Help-FR_V2.0.pdf", "Halden-SW-Help-DE_V2.0.pdf",
    "Halden-SW-HELP-ES_V2.0.pdf", "Halden-SW-Help-IT_V2.0.pdf", "Halden-SW-Help-pt-BR_V2.0.pdf"};

// As long as the legal line, with the text at the right.
std::string right_aligned(std::string_view line) {
  return std::string(legal_line.size() - line.size(), ' ') + std::string(line);
}

std::string about_text() {
  return right_aligned(product_line) + "\n\n" + right_aligned(version_line) + "\n\n" +
         std::string(legal_line);
}

// The manuals are in help/ beside the program.
std::string manual_path(const std::string& program_folder, std::string_view manual) {
  constexpr char separator = static_cast<char>(std::filesystem::path::preferred_separator);
  return program_folder + separator + "help" + separator + std::string(manual);
}

}  // namespace

Application::Application(const Platform& platform, const StartOptions& options, Shared& shared, Link& link,
                         Live& live)
    : platform_(platform),
      options_(options),
      shared_(shared),
      meter_rec_(shared.meter_rec),
      link_(link),
      live_(live),
      configuration_(platform.files, options.work_folder),
      status_line_(platform, link, live.monitor, live.views, live.sample_clock, live.recording, live.phasors,
                   shared.meter_rec),
      port_choice_(platform, link, configuration_, status_line_, shared.meter_rec, shared.notice) {
  connect();
}

void Application::connect() {
  meter_rec_.on_click("quit", [this] { exit(); });
  meter_rec_.on_click("Command3D1", [this] { print_main_window(); });
  meter_rec_.on_click("HelpAbout", [this] {
    platform_.dialogs.message({about_text(), "About", Icon::none});
  });
  for (std::size_t k = 0; k < manuals.size(); ++k)
    meter_rec_.on_click(element("HelpManual", static_cast<int>(k)), [this, k] {
      platform_.shell.open_document(manual_path(options_.program_folder, manuals[k]));
    });
  for (const Language language : languages)
    link_.gate.connect(meter_rec_, entry_of(language), [this, language] { choose_language(language); });
  meter_rec_.on_resize(
      [this] { link_.gate.run("resize", [this] { live_.selection.select_by_meter_mode(); }); });
  meter_rec_.on_close(
      [this] {
        live_.recording.rescue_waiting();
        platform_.shell.end_program();
      },
      Closing::at_once);
}

// A step that fails does not stop the next one.
void Application::start_up() {
  shared_.notice.set_text("Text1", "");
  live_.sample_clock.show_date();
  link_.polling.stop_polling();
  arrange_for_system(link_.status.wiring_system, meter_rec_, shared_.label_column_left);
  link_.state.language = configuration_.read_language();
  shared_.windows.apply_captions(link_.state.language);
  show_language();
  port_choice_.describe_ports();
  status_line_.refresh();
  port_choice_.open_stored(options_.first_port);
  if (link_.status.ct_ratio == 0) link_.status.ct_ratio = 1;
  if (link_.status.pt_ratio == 0) link_.status.pt_ratio = 1;
  status_line_.refresh();
  meter_rec_.show();
  live_.recording.tell_rescued();
}

void Application::choose_language(Language language) {
  link_.exchange.run([&] {
    link_.state.language = language;
    shared_.windows.apply_captions(language);
    show_language();
    port_choice_.describe_ports();
    meter_rec_.set_text(status_hint, not_kept_hint(configuration_.write_language(language), language));
    return Afterwards::read_status;
  });
}

void Application::show_language() {
  for (const Language language : languages)
    meter_rec_.set_checked(entry_of(language), language == link_.state.language);
}

void Application::exit() {
  if (live_.recording.runs())
    live_.recording.end_recording();
  else
    live_.recording.settle_waiting();
  platform_.shell.end_program();
}

void Application::print_main_window() {
  platform_.printer.set_orientation(Orientation::landscape);
  platform_.printer.print_window(meter_rec_.name());
  const PrintFailure failure = platform_.printer.finish();
  meter_rec_.set_text(status_hint,
                      print_sentence(failure, platform_.printer.destination(), link_.state.language));
}

}  // namespace halden
