#include "filetools/playback/playback_file.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "filetools/open_failure.h"
#include "formats/text_lines.h"

namespace halden {

namespace {

constexpr std::size_t records_between_progress = 256;

// What decides whether a file is accepted.
struct Findings {
  std::string first_line;
  bool has_whole_record = false;
  bool first_range_is_known = false;  // of the first whole record
  bool first_order_is_empty = false;
  bool begins_torn = false;  // the first record
  bool cancelled = false;
};

void look_at_harmonics(std::string_view line, Findings& findings) {
  const HarmonicsLine read = read_harmonics_line(line);
  if (!read.is_record()) return;
  findings.has_whole_record = true;
  findings.first_range_is_known = read.first_order.has_value();
  findings.first_order_is_empty = without_blanks(read.order_field(0)).empty();
}

void look_at_waveform(std::string_view line, bool is_first, Findings& findings) {
  const WaveLineKind kind = read_waveform_line(line).kind;
  findings.has_whole_record = kind == WaveLineKind::record;
  if (is_first) findings.begins_torn = kind == WaveLineKind::torn;
}

bool may_be_settings(std::string_view line) { return line.starts_with("HARMO") || line.starts_with("WAVE"); }

// Behind the two header lines.
void read_records(TextLines& lines, const FileProgress& progress, PlaybackFile& file, Findings& findings) {
  file.starts.push_back(lines.position());
  for (std::string_view line; lines.next(line);) {
    const std::size_t record = file.starts.size();
    file.starts.push_back(lines.position());
    if (may_be_settings(line))
      if (WaveSettings settings = read_wave_settings(line); settings.kind == file.kind)
        file.headers.push_back({record + 1, std::move(settings)});
    if (!findings.has_whole_record)
      file.kind == WaveFileKind::harmonics ? look_at_harmonics(line, findings)
                                           : look_at_waveform(line, record == 1, findings);
    if (record % records_between_progress != 0 || !progress) continue;
    findings.cancelled = !progress(lines.position(), lines.length());
    if (findings.cancelled) return;
  }
}

std::string_view mark_of(WaveFileKind kind) { return kind == WaveFileKind::harmonics ? "HARMO" : "WAVE"; }

// Empty when the file can be played back.
std::string_view refusal_of(WaveFileKind kind, const Findings& findings) {
  constexpr std::string_view no_records = "Zero Data Length";
  if (kind == WaveFileKind::waveform) {
    if (findings.has_whole_record) return {};
    return findings.begins_torn ? "Data Error" : no_records;
  }
  const std::string_view first_line = findings.first_line;
  if (!findings.has_whole_record) return no_records;
  if (!findings.first_range_is_known) return "Incorrect data format";
  if (first_line.substr(0, first_line.find(',')) != mark_of(kind)) return "Not a harmonic data file";
  return findings.first_order_is_empty ? no_records : std::string_view();
}

PlaybackOutcome refused(std::string_view text) { return {{}, {std::string(text), {}}}; }

PlaybackOutcome refused_first_line(WaveFileKind kind, std::string_view line) {
  PlaybackOutcome outcome = refused("Not a Harmonic Data File");
  const std::optional<WaveFileKind> is = read_wave_settings(line).kind;
  outcome.is_other_kind = is && *is != kind;
  return outcome;
}

}  // namespace

const WaveSettings& PlaybackFile::settings_of(std::size_t record) const {
  const auto behind = std::upper_bound(
      headers.begin(), headers.end(), record,
      [](std::size_t number, const Header& header) { return number < header.before_record; });
  return behind == headers.begin() ? headers.front().settings : std::prev(behind)->settings;
}

PlaybackOutcome open_playback(Files& files, const std::string& path, WaveFileKind kind,
                              const FileProgress& progress) {
  OpenedFile opened = files.open(path);
  if (!opened.reader) return refused(open_failure_message(opened.failure));
  TextLines lines(std::move(opened.reader));
  Findings findings;
  std::string_view line;
  if (lines.next(line)) findings.first_line = line;
  if (findings.first_line.find(mark_of(kind)) == std::string::npos)
    return refused_first_line(kind, findings.first_line);
  auto file = std::make_shared<PlaybackFile>(
      PlaybackFile{path, kind, {}, {{1, read_wave_settings(findings.first_line)}}});
  lines.next(line);
  read_records(lines, progress, *file, findings);
  if (findings.cancelled) return {};
  if (lines.failed()) return refused(open_failure_message(FileFailure::failed));
  if (const auto refusal = refusal_of(kind, findings); !refusal.empty()) return refused(refusal);
  return {std::move(file), {}};
}

std::optional<std::string> read_record_line(Files& files, const PlaybackFile& file, std::size_t record) {
  const std::uint64_t start = file.starts[record - 1];
  const std::uint64_t length = std::min<std::uint64_t>(file.starts[record] - start, TextLines::longest_line);
  FilePiece piece = files.read(file.path, start, static_cast<std::size_t>(length));
  if (piece.failure != FileFailure::none) return std::nullopt;
  if (piece.bytes.ends_with('\n')) piece.bytes.pop_back();
  if (piece.bytes.ends_with('\r')) piece.bytes.pop_back();
  return std::move(piece.bytes);
}

}  // namespace halden
