#include "cli/status_command.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>

#include "app/program.h"

namespace halden {

namespace {

// The clamp factor to one decimal: 1.2 as a float is 1.2000000477.
double in_tenths(float value) { return std::round(static_cast<double>(value) * 10.0) / 10.0; }

// A whole number is printed without ".0".
Record number(double value) {
  constexpr double all_whole_below = 9.0e15;
  if (std::abs(value) < all_whole_below && value == std::floor(value)) return std::llround(value);
  return value;
}

int run_status(const OpenSession& open, const CommonOptions& options) {
  const auto session = open(options.port, Interruption::is_failure, FileAccess::none);
  return session->run([&] {
    session->print(formatted(status_record(session->program().link.status), options.format));
    session->done();
  });
}

}  // namespace

Record status_record(const MeterStatus& status) {
  return {{"meter_mode", status.meter_mode},
          {"harmonic_channel", status.harmonic_channel},
          {"wiring_system", static_cast<int>(status.wiring_system)},
          {"frequency_code", status.frequency_code},
          {"pt_ratio", status.pt_ratio},
          {"ct_ratio", status.ct_ratio},
          {"sample_seconds", status.sample_seconds},
          {"harmonic_order", status.harmonic_order},
          {"md_period", status.md_period},
          {"logger_data_type", status.logger_data_type},
          {"logger_channel", status.logger_channel},
          {"logger_system", status.logger_system},
          {"logger_frequency_code", status.logger_frequency_code},
          {"logger_current_range", status.logger_current_range},
          {"logger_pt_ratio", status.logger_pt_ratio},
          {"logger_ct_ratio", status.logger_ct_ratio},
          {"logger_sample_seconds", status.logger_sample_seconds},
          {"logger_clamp_flags", status.logger_clamp_flags},
          {"current_range", status.current_range},
          {"meter_flags_27", status.meter_flags_27},
          {"current_scale", in_tenths(status.current_scale)},
          {"logger_file_index", number(status.logger_file_index)},
          {"logger_file_index_text", status.logger_file_index_text},
          {"meter_year", status.meter_year},
          {"meter_month", status.meter_month},
          {"meter_day", status.meter_day},
          {"meter_hour", status.meter_hour},
          {"meter_minute", status.meter_minute},
          {"meter_second", status.meter_second},
          {"logger_file_count", status.logger_file_count}};
}

void add_status_command(CLI::App& app, ChosenCommand& chosen) {
  const auto options = std::make_shared<CommonOptions>();
  CLI::App* const command = app.add_subcommand("status", "Ask the meter for its status and print it");
  add_common_options(*command, *options);
  command->callback([options, &chosen] {
    chosen = [options](const OpenSession& open) { return run_status(open, *options); };
  });
}

}  // namespace halden
