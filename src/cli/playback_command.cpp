#include "cli/playback_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/picture_argument.h"
#include "filetools/playback/playback_chart.h"
#include "readings/numbers.h"

namespace halden {

namespace {

int run(Files& files, const OpenOffscreen& open_offscreen, const PlaybackCommand& command) {
  const PlaybackChart result = chart_of_record(files, command);
  if (!result.chart) return end_with_failure(result.failure);
  return end_with_picture(files, open_offscreen, command.picture, [&](Pictures& pictures) {
    return pictures.save_chart(*result.chart, command.picture);
  });
}

std::string expected(const std::string& what, const std::string& typed) {
  return "expected " + what + ", not \"" + typed + "\"";
}

std::string check_record(const std::string& text) {
  constexpr std::size_t most_digits = 9;
  const bool fits = text.size() <= most_digits && text.find_first_not_of("0123456789") == std::string::npos;
  return fits && leading_number(text) >= 1 ? std::string() : expected("a record number from 1 on", text);
}

std::function<std::string(const std::string&)> check_one_of(std::vector<std::string_view> known,
                                                            std::string what) {
  return [known = std::move(known), what = std::move(what)](const std::string& text) {
    return std::ranges::find(known, text) != known.end() ? std::string() : expected(what, text);
  };
}

void add_orders_option(CLI::App& command, std::int16_t& harmonics_shown) {
  command
      .add_option_function<std::string>(
          "--orders",
          [&harmonics_shown](const std::string& text) { harmonics_shown = text == "50" ? 51 : 100; },
          "The highest order that is drawn; 99 if none is given")
      ->type_name("50|99")
      ->check(check_one_of({"50", "99"}, "50 or 99"));
}

void add_current_options(CLI::App& command, CurrentScale& currents) {
  command
      .add_option("--range", currents.range,
                  "The meter's current range at the recording, which the file does not hold")
      ->type_name("0|1|2|3")
      ->check(check_one_of({"0", "1", "2", "3"}, "0, 1, 2 or 3"));
  command.add_option("--clamp", currents.clamp, "The factor of the clamp at the recording")
      ->type_name("1.0|1.2|3.0")
      ->check(check_one_of({"1", "1.0", "1.2", "3", "3.0"}, "1.0, 1.2 or 3.0"));
}

std::shared_ptr<PlaybackCommand> add_command(CLI::App& added, WaveFileKind kind, Files& files,
                                             const OpenOffscreen& open_offscreen, ChosenCommand& chosen) {
  const auto typed = std::make_shared<PlaybackCommand>();
  typed->kind = kind;
  added.add_option("file", typed->file, "The data file")->type_name("FILE")->required();
  added.add_option("--record", typed->record, "The record, counted from 1; the first one if none is given")
      ->type_name("NUMBER")
      ->check(check_record);
  add_picture_option(added, typed->picture);
  added.callback([typed, &files, open_offscreen, &chosen] {
    chosen = [typed, &files, open_offscreen](const OpenSession&) {
      return run(files, open_offscreen, *typed);
    };
  });
  return typed;
}

}  // namespace

PlaybackChart chart_of_record(Files& files, const PlaybackCommand& command) {
  const PlaybackOutcome outcome = open_playback(files, command.file, command.kind);
  if (!outcome.file) return {{}, outcome.refusal.text};
  const PlaybackFile& file = *outcome.file;
  const std::string count = std::to_string(file.record_count());
  if (command.record > file.record_count()) return {{}, "The file has " + count + " records."};
  const PlayedRecord record = play_record(files, file, command.record, command.shown);
  if (std::string note = playback_note(record, Language::english); !note.empty())
    return {{}, std::move(note)};
  Chart chart = playback_chart(record, Language::english);
  std::string about = playback_about(file, record, command.shown.currents, Language::english);
  chart.title = playback_title(file, record, std::move(about), Language::english);
  return {std::move(chart), {}};
}

void add_playback_commands(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                           ChosenCommand& chosen) {
  CLI::App* const spectrum =
      app.add_subcommand("spectrum", "Draw a record of a harmonics data file into a picture");
  const auto typed_spectrum = add_command(*spectrum, WaveFileKind::harmonics, files, open_offscreen, chosen);
  add_orders_option(*spectrum, typed_spectrum->shown.harmonics_shown);
  CLI::App* const waveform =
      app.add_subcommand("waveform", "Draw a record of a waveform data file into a picture");
  const auto typed_waveform = add_command(*waveform, WaveFileKind::waveform, files, open_offscreen, chosen);
  add_current_options(*waveform, typed_waveform->shown.currents);
}

}  // namespace halden
