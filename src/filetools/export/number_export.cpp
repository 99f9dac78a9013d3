#include "filetools/export/number_export.h"

#include <array>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "filetools/export/exported_kind.h"
#include "filetools/export/iso_time.h"
#include "filetools/export/table_writer.h"
#include "formats/text_lines.h"

namespace halden {

namespace {

constexpr std::uint64_t bytes_between_progress = std::uint64_t{1} << 20;

// By LineMeaning; the note of a record says what it lacks.
constexpr std::array<std::string_view, 5> notes = {"", "header line", "header line", "lost link",
                                                   "no whole record"};

class NumberExport {
 public:
  NumberExport(Files& files, const ExportRequest& request, const FileProgress& progress)
      : files_(files), request_(request), progress_(progress) {}

  ExportResult run();

 private:
  bool open();
  bool survey();
  void write_rows(TableWriter& table);
  void write_row(TableWriter& table, ValueRow& values, IsoTime& iso, std::string_view line);
  bool goes_on(std::uint64_t done);
  bool fail(ExportOutcome outcome, FileFailure failure = FileFailure::none) {
    result_.outcome = outcome;
    result_.failure = failure;
    return false;
  }

  Files& files_;
  const ExportRequest& request_;
  const FileProgress& progress_;
  ExportResult result_;
  std::unique_ptr<TextLines> lines_;
  std::unique_ptr<ExportedKind> kind_;
  std::uint64_t surveyed_ = 0;  // the length of the file in the first pass; what follows is not exported
  std::uint64_t next_progress_ = bytes_between_progress;
  std::size_t block_ = 0;
  std::vector<ValueColumn> columns_;
};

std::vector<std::string> all_names(const std::vector<ValueColumn>& values) {
  std::vector<std::string> names = {"record", "block", "date", "time", "time_iso"};
  for (const ValueColumn& column : values) names.push_back(column.name());
  names.emplace_back("note");
  return names;
}

ExportResult NumberExport::run() {
  if (is_data_file(files_, request_.target) ||
      is_data_file(files_, request_.target + std::string(part_suffix)))
    return {ExportOutcome::over_recording};
  // One that cannot be read may be a recording, too.
  const ExportResult there = check_source(files_, request_.target);
  if (there.outcome == ExportOutcome::not_opened && there.failure != FileFailure::not_found)
    return {ExportOutcome::not_written, there.failure};
  if (!open() || !survey() || !open()) return result_;
  const CreatedFile created = files_.create(request_.target);
  if (!created.writer) return {ExportOutcome::not_written, created.failure};
  columns_ = kind_->columns();
  TableWriter table(*created.writer, request_.options, all_names(columns_));
  write_rows(table);
  if (result_.outcome != ExportOutcome::written) return result_;
  result_.scaled_currents = kind_->scales_currents();
  FileFailure failure = table.finish();
  if (failure == FileFailure::none) failure = created.writer->finish();
  if (failure != FileFailure::none) fail(ExportOutcome::not_written, failure);
  return result_;
}

// Up to the first record.
bool NumberExport::open() {
  OpenedFile opened = files_.open(request_.source);
  if (!opened.reader) return fail(ExportOutcome::not_opened, opened.failure);
  lines_ = std::make_unique<TextLines>(std::move(opened.reader));
  std::string_view line;
  lines_->next(line);
  if (!kind_) kind_ = exported_kind(line, request_.options);
  if (!kind_) return fail(ExportOutcome::no_data_file);
  kind_->take(line);
  for (std::size_t number = 1; number < kind_->header_lines() && lines_->next(line); ++number)
    kind_->take(line);
  block_ = 1;
  return true;
}

bool NumberExport::survey() {
  std::string_view line;
  while (lines_->next(line)) {
    if (kind_->take(line) == LineMeaning::record) kind_->note_columns();
    if (lines_->position() >= next_progress_ && !goes_on(lines_->position())) return false;
  }
  surveyed_ = lines_->position();
  next_progress_ = surveyed_;
  return !lines_->failed() || fail(ExportOutcome::not_read);
}

void NumberExport::write_rows(TableWriter& table) {
  ValueRow values(table, columns_);
  IsoTime iso(kind_->date_order(request_.options.dates));
  std::string_view line;
  while (lines_->position() < surveyed_ && lines_->next(line)) {
    write_row(table, values, iso, line);
    if (table.failure() != FileFailure::none) {
      fail(ExportOutcome::not_written, table.failure());
      return;
    }
    if (surveyed_ + lines_->position() >= next_progress_ && !goes_on(surveyed_ + lines_->position())) return;
  }
  const bool is_whole = !lines_->failed() && lines_->position() >= surveyed_;
  if (!is_whole)
    fail(ExportOutcome::not_read);  // it has become shorter meanwhile, or cannot be read any more
}

void NumberExport::write_row(TableWriter& table, ValueRow& values, IsoTime& iso, std::string_view line) {
  const LineMeaning meaning = kind_->take(line);
  if (meaning == LineMeaning::settings) ++block_;
  const std::string_view date = kind_->date_in(line), time = kind_->time_in(line);
  table.begin_row();
  table.add_count(++result_.rows);
  table.add_count(block_);
  table.add_text(date);
  table.add_text(time);
  table.add_plain_text(iso.of(date, time));
  const bool is_record = meaning == LineMeaning::record;
  values.begin();
  if (is_record) kind_->add_values(line, values);
  values.add_nothing(values.columns_left());
  table.add_plain_text(is_record ? values.note() : notes[static_cast<std::size_t>(meaning)]);
  table.end_row();
  if (values.values() == 0) ++result_.without_readings;
}

bool NumberExport::goes_on(std::uint64_t done) {
  next_progress_ = done + bytes_between_progress;
  if (!progress_ || progress_(done, 2 * lines_->length())) return true;
  return fail(ExportOutcome::cancelled);
}

}  // namespace

ExportResult export_numbers(Files& files, const ExportRequest& request, const FileProgress& progress) {
  return NumberExport(files, request, progress).run();
}

ExportResult check_source(Files& files, const std::string& path) {
  OpenedFile opened = files.open(path);
  if (!opened.reader) return {ExportOutcome::not_opened, opened.failure};
  TextLines lines(std::move(opened.reader));
  std::string_view line;
  if (lines.next(line) && exported_kind(line, {})) return {};
  return {ExportOutcome::no_data_file};
}

bool is_data_file(Files& files, const std::string& path) {
  return check_source(files, path).outcome == ExportOutcome::written;
}

}  // namespace halden
