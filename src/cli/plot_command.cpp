#include "cli/plot_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <utility>

#include "cli/picture_argument.h"
#include "cli/process_io.h"
#include "cli/session.h"
#include "filetools/power_plot/plot_choices.h"
#include "filetools/power_plot/plot_texts.h"
#include "filetools/power_plot/power_chart.h"

namespace halden {

namespace {

struct Typed {
  PlotOptions plot;
  Statistics statistics = Statistics::none;
  std::string picture;
};

std::string check_statistics(const std::string& text) {
  return read_statistics(text) ? std::string()
                               : "expected a caption of the Status menu such as Mean or mean-and-minmax, "
                                 "not \"" +
                                     text + "\"";
}

int run_plot(Files& files, const OpenOffscreen& open_offscreen, const Typed& typed) {
  const PlotResult result = read_plot(files, typed.plot);
  if (!result.plot) return end_with_failure(result.failure);
  if (typed.statistics != Statistics::none && !result.plot->has_statistics())
    write_remark(std::string(no_statistics_text) + "\n");
  const Chart chart = chart_of_file(result.plot, typed.statistics, typed.plot.missing);
  return end_with_picture(files, open_offscreen, typed.picture,
                          [&](Pictures& pictures) { return pictures.save_chart(chart, typed.picture); });
}

void add_statistics_option(CLI::App& command, Statistics& statistics) {
  command
      .add_option_function<std::string>(
          "--stats",
          [&statistics](const std::string& text) {
            statistics = read_statistics(text).value_or(Statistics::none);
          },
          "What is drawn over the chart, a caption of the Status menu")
      ->type_name("OPTION")
      ->check(check_statistics);
}

std::string comparable(std::string_view text) {
  std::string small(text);
  for (char& c : small) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (c == '-' || c == '_') c = ' ';
  }
  return small;
}

}  // namespace

std::optional<Statistics> read_statistics(std::string_view text) {
  const auto caption =
      std::find_if(statistic_captions.begin(), statistic_captions.end(),
                   [&](std::string_view known) { return comparable(known) == comparable(text); });
  if (caption == statistic_captions.end()) return std::nullopt;
  return static_cast<Statistics>(caption - statistic_captions.begin());
}

Chart chart_of_file(std::shared_ptr<const PowerPlot> plot, Statistics statistics, MissingReadings missing) {
  PlotLook look;
  look.y_title = plot_y_title(*plot);
  look.statistics = statistics;
  look.missing = missing;
  Chart chart = power_chart(plot, look, Language::english);
  chart.title = plot_line(*plot, Language::english);
  return chart;
}

void add_plot_command(CLI::App& app, Files& files, const OpenOffscreen& open_offscreen,
                      ChosenCommand& chosen) {
  const auto typed = std::make_shared<Typed>();
  CLI::App* const command =
      app.add_subcommand("plot", "Draw a quantity of a power data file over time into a picture");
  add_plot_options(*command, typed->plot);
  add_statistics_option(*command, typed->statistics);
  add_picture_option(*command, typed->picture);
  command->callback([typed, &files, open_offscreen, &chosen] {
    chosen = [typed, &files, open_offscreen](const OpenSession&) {
      return run_plot(files, open_offscreen, *typed);
    };
  });
}

}  // namespace halden
