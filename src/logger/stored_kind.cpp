#include "logger/stored_kind.h"

#include <array>

#include "readings/wiring.h"

namespace halden {

namespace {

constexpr std::size_t word_bytes = 2;
constexpr std::size_t group_bytes = 10;
constexpr std::size_t harmonics_record_bytes = 128;

// The numbers by which users report these failures.
std::string power_failure_message(FileFailure failure) {
  constexpr std::array<int, 8> numbers = {0, 76, 70, 75, 70, 61, 61, 57};
  return "Please report ERROR CODE " + std::to_string(numbers[static_cast<std::size_t>(failure)]);
}

std::string harmonics_failure_message(FileFailure) { return "Program error, please restart program again."; }

constexpr StoredConversion power_conversion = {"temp_data.pwr", convert_power_file, power_count_text,
                                               power_failure_message};
constexpr StoredConversion harmonics_conversion = {"temp_data.har", convert_harmonics_file,
                                                   harmonics_count_text, harmonics_failure_message};

}  // namespace

const StoredKind power_kind = {{"Power", "電力記錄"},
                               "P.csv",
                               ".csv",
                               "Data stored is not power data, please press the i button to check",
                               group_bytes,
                               1.0,
                               &power_conversion};

const StoredKind harmonics_kind = {{"Harmonics", "諧波記錄"},
                                   "H.csv",
                                   ".csv",
                                   "Data stored is not harmonic data, please press the i button to check",
                                   word_bytes,
                                   0.0,
                                   &harmonics_conversion};

const StoredKind hardcopy_kind = {{"Hardcopy", "視窗保存"},
                                  "C.txt",
                                  ".txt",
                                  "Data stored is not hardcopy data, please press the i button to check",
                                  word_bytes,
                                  0.0,
                                  nullptr};

const StoredKind* kind_of(std::int16_t logger_data_type) {
  if (logger_data_type == 0) return &harmonics_kind;
  if (logger_data_type == 1) return &power_kind;
  return (logger_data_type & 2) != 0 ? &hardcopy_kind : nullptr;
}

std::size_t record_bytes(const StoredKind& kind, const MeterStatus& status) {
  if (&kind == &harmonics_kind) return harmonics_record_bytes;
  if (&kind == &hardcopy_kind) return word_bytes;
  const Wiring wiring_system{status.logger_system};
  return is_known(wiring_system) ? group_bytes * phases_in_use(wiring_system) : group_bytes;
}

}  // namespace halden
