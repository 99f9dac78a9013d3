#include "live/recording/recording_texts.h"

#include <array>
#include <string_view>

#include "screen/failure_texts.h"

namespace halden {

namespace {

// In the order of RecordingState.
constexpr std::array<Text, 4> state_texts = {{{"not recording", "未記錄"},
                                              {"{}: ready", "{}：已建立"},
                                              {"recording {}", "記錄中 {}"},
                                              {"recording by hand {}", "手動記錄中 {}"}}};

constexpr Text ended = {"not recording, {}", "未記錄，{}"};
constexpr Text first_reading = {": waiting for the first reading", "：等待第一筆讀值"};
constexpr Text one_line = {": {} line", "：{} 行"};
constexpr Text many_lines = {": {} lines", "：{} 行"};
constexpr Text lines_lost = {", {} lost", "，遺失 {} 行"};
constexpr Text lines_wait = {", {} waiting ({})", "，{} 行等待寫入（{}）"};
constexpr Text lines_given_up = {", {} unwritten and lost ({})", "，{} 行未寫入而遺失（{}）"};
constexpr Text header_waits = {", not written yet ({})", "，尚未寫入（{}）"};

constexpr Text columns_changed = {", the columns have changed", "，欄位已改變"};
constexpr Text other_source = {", readings of another kind or input are not recorded", "，不同種類或輸入的讀值未記錄"};
constexpr Text sign_cut = {", a minus sign was cut off", "，負號被截去"};

constexpr Text title = {"End Recording", "停止記錄"};
constexpr Text another_file = {"{} could not be written ({}) to\n{}\n\nSave what is missing to another file?",
                               "{} 行記錄無法寫入檔案（{}）：\n{}\n\n是否另存到其他檔案？"};
constexpr Text giving_up = {
    "{} could not be kept in the working folder or the temporary folder either, and will be lost.\n\nTry "
    "again?",
    "{} 行記錄也無法保存到工作資料夾或暫存資料夾，放棄即會遺失。\n\n是否再試一次？"};
constexpr Text lost = {"{} lost, because no file could be written ({})",
                       "遺失 {} 行記錄：所有檔案均無法寫入（{}）"};
constexpr Text rescued = {"Recorded lines that could not be written are kept in {}", "未寫入的記錄保存於 {}"};

bool runs(RecordingState state) {
  return state == RecordingState::automatic || state == RecordingState::manual;
}

std::string written_text(std::size_t lines, Language language) {
  return (lines == 1 ? one_line : many_lines).with(language, {std::to_string(lines)});
}

std::string waiting_text(const DataFile& file, Language language) {
  const std::string_view why = write_failure_text(file.failure(), language);
  if (file.lines_waiting() == 0) return header_waits.with(language, {why});
  return lines_wait.with(language, {std::to_string(file.lines_waiting()), why});
}

// "3 recorded lines"; in Chinese the number alone.
std::string recorded_lines(std::size_t lines, Language language) {
  const std::string count = std::to_string(lines);
  if (language == Language::chinese) return count;
  return count + (lines == 1 ? " recorded line" : " recorded lines");
}

Message question(const std::string& text, Language language) {
  return {text, std::string(title.in(language)), Icon::exclamation};
}

}  // namespace

std::string recording_status_text(const RecordingStatus& status, const DataFile& file, Language language) {
  const std::string name = file.path().substr(file.path().find_last_of("/\\") + 1);
  const bool has_lines = file.lines_written() + file.lines_waiting() + file.lines_given_up() > 0;
  const bool has_ended = status.state == RecordingState::no_file && has_lines;
  const Text& state = has_ended ? ended : state_texts[static_cast<std::size_t>(status.state)];
  std::string text = state.with(language, {name});
  if (runs(status.state) && !has_lines)
    text += first_reading.in(language);
  else if (runs(status.state) || has_ended)
    text += written_text(file.lines_written(), language);
  if (status.lost_lines > 0 && has_lines)
    text += lines_lost.with(language, {std::to_string(status.lost_lines)});
  if (file.lines_given_up() > 0)
    text += lines_given_up.with(
        language, {std::to_string(file.lines_given_up()), write_failure_text(file.failure(), language)});
  const bool matters = status.state != RecordingState::no_file || file.lines_waiting() > 0;
  if (matters && file.failure() != FileFailure::none) text += waiting_text(file, language);
  if (status.columns_changed) text += columns_changed.in(language);
  if (status.other_source) text += other_source.in(language);
  if (status.sign_cut) text += sign_cut.in(language);
  return text;
}

Message question_for_another_file(const DataFile& file, Language language) {
  const std::string_view why = write_failure_text(file.failure(), language);
  const std::string lines = recorded_lines(file.lines_waiting(), language);
  return question(another_file.with(language, {lines, why, file.path()}), language);
}

Message question_before_giving_up(const DataFile& file, Language language) {
  return question(giving_up.with(language, {recorded_lines(file.lines_waiting(), language)}), language);
}

std::string lost_sentence(const DataFile& file, Language language) {
  return lost.with(language, {recorded_lines(file.lines_waiting(), language),
                              write_failure_text(file.failure(), language)});
}

std::string rescued_sentence(const std::string& path, Language language) {
  return rescued.with(language, {path});
}

}  // namespace halden
