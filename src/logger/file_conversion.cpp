#include "logger/file_conversion.h"

#include <optional>
#include <string_view>
#include <utility>

#include "formats/data_file.h"
#include "formats/record_field.h"
#include "logger/harmonics_conversion.h"
#include "logger/power_conversion.h"
#include "logger/word_file.h"
#include "readings/patterns.h"

namespace halden {

namespace {

constexpr std::size_t block_length = 64 * 1024;

// The output, written in blocks of whole lines: a block is written as a whole or not at all, so that a full
// disk never leaves a part of a line.
class LineBlocks {
 public:
  LineBlocks(Files& files, const std::string& path, std::string header, const ConversionProgress& progress)
      : files_(files), path_(path), progress_(progress), block_(std::move(header)) {
    block_.reserve(2 * block_length);
  }

  void add(const RecordLine& line) {
    block_.append(line.text).append(line_end);
    ++records_in_block_;
    sign_cut_ = sign_cut_ || line.sign_cut;
    if (block_.size() >= block_length) write();
  }

  // After a failure nothing more is written.
  void write() {
    if (has_failed() || block_.empty()) return;
    failure_ = append_lines(files_, path_, block_);
    if (has_failed()) return;
    block_.clear();
    records_ += std::exchange(records_in_block_, 0);
    progress_(records_);
  }

  std::size_t records() const { return records_; }
  bool sign_cut() const { return sign_cut_; }
  FileFailure failure() const { return failure_; }
  bool has_failed() const { return failure_ != FileFailure::none; }

 private:
  Files& files_;
  const std::string& path_;
  const ConversionProgress& progress_;
  std::string block_;
  std::size_t records_in_block_ = 0;
  std::size_t records_ = 0;
  bool sign_cut_ = false;
  FileFailure failure_ = FileFailure::none;
};

template <typename Conversion>
FileConversion convert_file(Files& files, const std::string& words_path, const RecordedSettings& recorded,
                            const std::string& output_path, const ConversionProgress& progress) {
  Conversion conversion(recorded);
  WordReader words(files, words_path);
  LineBlocks output(files, output_path, conversion.header(), progress);
  const auto add = [&output](const std::optional<RecordLine>& line) {
    if (line) output.add(*line);
  };
  for (auto word = words.next(); word && !output.has_failed(); word = words.next())
    add(conversion.take(*word));

  const bool all_read = words.failure() == FileFailure::none && !output.has_failed();
  const bool incomplete = all_read && conversion.is_inside_record();
  if (all_read) add(conversion.finish());
  output.write();
  return {.records = output.records(),
          .incomplete = incomplete,
          .start_is_valid = conversion.start_is_valid(),
          .sign_cut = output.sign_cut(),
          .failure = output.has_failed() ? output.failure() : words.failure()};
}

std::string count_text(std::size_t records, std::string_view unit) {
  return format_pattern(static_cast<double>(records), "0").append(unit);
}

}  // namespace

FileConversion convert_power_file(Files& files, const std::string& words_path,
                                  const RecordedSettings& recorded, const std::string& output_path,
                                  const ConversionProgress& progress) {
  return convert_file<PowerConversion>(files, words_path, recorded, output_path, progress);
}

FileConversion convert_harmonics_file(Files& files, const std::string& words_path,
                                      const RecordedSettings& recorded, const std::string& output_path,
                                      const ConversionProgress& progress) {
  return convert_file<HarmonicsConversion>(files, words_path, recorded, output_path, progress);
}

std::string power_count_text(std::size_t records) { return count_text(records, " records Converted"); }

std::string harmonics_count_text(std::size_t records) { return count_text(records, " records converted"); }

}  // namespace halden
