#include "cli/live_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/view_choice.h"
#include "cli/wave_report.h"
#include "readings/patterns.h"
#include "screen/meter_rec/panels.h"

namespace halden {

namespace {

constexpr int silence_check_ms = 500;
constexpr double noticed_silence_s = 5.0;
constexpr double noticed_silence_of_long_frames_s = 10.0;  // such a frame takes 2.3 s, and one may be damaged
constexpr int most_frames = 1'000'000'000;
constexpr int ms_per_day = 86'400'000;

// With a line for a remark and one for the cursor.
bool fits(const std::vector<std::string>& lines, const ScreenSize& screen) {
  const auto widest = std::ranges::max_element(lines, {}, &std::string::size);
  return std::cmp_less_equal(lines.size() + 2, screen.rows) &&
         std::cmp_less_equal(widest->size(), screen.columns);
}

std::string padded(int number, const char* zeros) { return format_pattern(number, zeros); }

int run_live(const OpenSession& open, const CommonOptions& common, const LiveOptions& options,
             ViewChoice view) {
  const auto session = open(common.port, Interruption::is_end, FileAccess::none);
  LiveReport report(session->program(), options, *session);
  session->every(silence_check_ms, [&] { report.check_silence(); });
  return session->run([&] {
    if (!open_view(view, *session)) return;
    session->on_interruption([&] { report.finish(); });
    report.start();
  });
}

}  // namespace

LiveReport::LiveReport(Program& program, const LiveOptions& options, Terminal& terminal)
    : program_(program), options_(options), terminal_(terminal) {}

void LiveReport::start() {
  started_ = true;
  last_frame_s_ = program_.platform.clock.monotonic_s();
  program_.live.monitor.add_listener(*this);
}

void LiveReport::check_silence() {
  if (!started_) return;
  const double silent_s = program_.platform.clock.monotonic_s() - last_frame_s_;
  if (const std::string remark = silence_remark(silent_s);
      !remark.empty() && !std::exchange(silence_noted_, true))
    table_.drawn() ? terminal_.print(table_.add(remark)) : terminal_.note(remark);
  if (options_.count && silent_s >= longest_silence_s)
    terminal_.failed("The meter has sent no readings for 30 seconds.");
}

// Empty while a silence of that length is usual.
std::string LiveReport::silence_remark(double silent_s) const {
  const bool power = program_.link.state.display_mode == power_view;
  if (silent_s < (power ? noticed_silence_s : noticed_silence_of_long_frames_s)) return {};
  const std::string other_mode = other_mode_sentence(program_);
  return other_mode.empty() ? "The meter sends no readings." : other_mode;
}

void LiveReport::frame_shown() {
  if (frames_ == options_.count) return;
  last_frame_s_ = program_.platform.clock.monotonic_s();
  silence_noted_ = false;
  const std::string time = local_time_text(program_.platform.clock);
  if (!print_table(time)) print_block(time);
  if (++frames_ == options_.count) terminal_.done();
}

// False where there is no terminal, or none large enough, also since the last frame.
bool LiveReport::print_table(const std::string& time) {
  if (options_.format != Format::text) return false;
  const std::optional<ScreenSize> screen = terminal_.screen();
  if (!screen) return false;
  for (const std::vector<std::string>& lines : tables(time)) {
    if (!fits(lines, *screen)) continue;
    terminal_.print(table_.draw(lines));
    return true;
  }
  table_.leave();
  return false;
}

// The tables of the view that runs, the largest first. A thousand samples are no table.
std::vector<std::vector<std::string>> LiveReport::tables(const std::string& time) const {
  const Window& window = program_.shared.meter_rec;
  const std::int16_t view = program_.link.state.display_mode;
  if (view == power_view) return {live_table(window, time)};
  if (view == waveform_view) return {};
  const SpectrumView& spectrum = program_.live.harmonics;
  return {spectrum_table(spectrum, window, time, OrderTables::percent_and_angle),
          spectrum_table(spectrum, window, time, OrderTables::percent)};
}

void LiveReport::print_block(const std::string& time) {
  const char* const block_end = options_.format == Format::text ? "\n" : "";
  terminal_.print(formatted(record(time), options_.format) + block_end);
}

Record LiveReport::record(const std::string& time) const {
  const Window& window = program_.shared.meter_rec;
  const std::int16_t view = program_.link.state.display_mode;
  if (view == harmonics_view) return spectrum_record(program_.live.harmonics, window, time);
  if (view == waveform_view) return samples_record(program_.live.waveform, window, time);
  Record record = live_record(window, time);
  add_phasor_angles(program_.live.phasors.angles(), program_.link.status.wiring_system, record);
  return record;
}

void LiveReport::finish() {
  if (table_.drawn()) terminal_.print(table_.clear_below());
  terminal_.done();
}

Record live_record(const Window& meter_rec, const std::string& time) {
  Record record = {{"time", time}};
  const auto add = [&](const Panel& panel) {
    const Control& value = meter_rec[panel.value];
    if (value.visible) record[panel.value] = value.text;
  };
  for (std::size_t phase = 0; phase < phase_count; ++phase)
    for (const PhaseQuantity quantity : phase_quantities) add(phase_panel(quantity, phase));
  for (std::size_t line = 0; line < phase_count; ++line) add(line_panel(line));
  for (const Panel& panel : system_panels()) add(panel);
  for (const Panel& panel : unbalance_panels()) add(panel);
  return record;
}

void add_phasor_angles(const PhasorAngles& angles, Wiring wiring_system, Record& record) {
  const auto add = [&record](const std::string& vector, double tenths) {
    record[vector + "_phasor_angle"] = format_pattern(tenths / 10, "##0.0");
  };
  for (std::size_t p = 0; p < phases_in_use(wiring_system); ++p) {
    const std::string digit = std::to_string(p + 1);
    add("v" + digit, angles.v_phasor_angle[p]);
    add("i" + digit, angles.i_phasor_angle[p]);
  }
  if (!is_three_phase(wiring_system)) return;
  constexpr std::array lines = {"v12", "v23", "v31"};
  for (std::size_t p = 0; p < lines.size(); ++p) add(lines[p], angles.line_angle(p));
}

std::string local_time_text(const Clock& clock) {
  const auto [date, time_s] = now_of(clock);
  const int ms = std::min(static_cast<int>(std::lround(time_s * 1000.0)), ms_per_day - 1);
  return padded(date.year, "0000") + "-" + padded(date.month, "00") + "-" + padded(date.day, "00") + "T" +
         padded(ms / 3'600'000, "00") + ":" + padded(ms / 60'000 % 60, "00") + ":" +
         padded(ms / 1000 % 60, "00") + "." + padded(ms % 1000, "000");
}

void add_live_command(CLI::App& app, ChosenCommand& chosen) {
  struct Typed {
    CommonOptions common;
    std::optional<int> count;
    ViewChoice view = ViewChoice::by_meter_mode;
  };
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command = app.add_subcommand("live",
                                               "Print every reading of the meter until interrupted; on a "
                                               "terminal as one table. In the meter's harmonics "
                                               "mode a reading is the spectrum of one input, orders 0 to 99");
  add_common_options(*command, typed->common);
  command->add_option("--count", typed->count, "End after that many readings")
      ->type_name("N")
      ->check(CLI::Range(1, most_frames).description(""));
  add_waveform_flag(*command, typed->view,
                    "In harmonics mode: the waveform of the input, 1024 samples, and no spectrum");
  command->callback([typed, &chosen] {
    chosen = [typed](const OpenSession& open) {
      return run_live(open, typed->common, {typed->count, typed->common.format}, typed->view);
    };
  });
}

}  // namespace halden
