#include "live/recording/recording_texts.h"

#include <array>

#include "screen/failure_texts.h"

namespace halden {

namespace {

// In the order of RecordingState.
constexpr std::array<Text, 4> state_texts = {{{"not recording", "未記錄"},
                                              {"data file ready", "檔案已建立"},
                                              {"recording", "記錄中"},
                                              {"recording by hand", "手動記錄中"}}};

bool runs(RecordingState state) {
  return state == RecordingState::automatic || state == RecordingState::manual;
}

std::string written_text(std::size_t lines, Language language) {
  const std::string count = std::to_string(lines);
  if (language == Language::chinese) return "：" + count + " 行";
  return ": " + count + (lines == 1 ? " line" : " lines");
}

std::string waiting_text(const DataFile& file, Language language) {
  const std::string why(write_failure_text(file.failure(), language));
  const std::string count = std::to_string(file.lines_waiting());
  const bool only_header = file.lines_waiting() == 0;
  if (language == Language::chinese)
    return (only_header ? "，尚未寫入（" : "，" + count + " 行等待寫入（") + why + "）";
  return (only_header ? ", not written yet (" : ", " + count + " waiting (") + why + ")";
}

}  // namespace

std::string recording_status_text(RecordingState state, const DataFile& file, Language language) {
  std::string text(state_texts[static_cast<std::size_t>(state)].in(language));
  if (runs(state)) text += written_text(file.lines_written(), language);
  const bool matters = state != RecordingState::no_file || file.lines_waiting() > 0;
  if (matters && file.failure() != FileFailure::none) text += waiting_text(file, language);
  return text;
}

Message question_for_another_file(const DataFile& file, Language language) {
  const std::string count = std::to_string(file.lines_waiting());
  const std::string why(write_failure_text(file.failure(), language));
  if (language == Language::chinese)
    return {count + " 行記錄無法寫入檔案（" + why + "）：\n" + file.path() + "\n\n是否另存到其他檔案？",
            "停止記錄", Icon::exclamation};
  const char* const lines = file.lines_waiting() == 1 ? " recorded line" : " recorded lines";
  return {count + lines + " could not be written (" + why + ") to\n" + file.path() +
              "\n\nSave what is missing to another file?",
          "End Recording", Icon::exclamation};
}

Message question_before_giving_up(const DataFile& file, Language language) {
  const std::string count = std::to_string(file.lines_waiting());
  if (language == Language::chinese)
    return {count + " 行記錄也無法保存到工作資料夾或暫存資料夾，放棄即會遺失。\n\n是否再試一次？", "停止記錄",
            Icon::exclamation};
  const char* const lines = file.lines_waiting() == 1 ? " recorded line" : " recorded lines";
  return {count + lines +
              " could not be kept in the working folder or the temporary folder either, and will be lost."
              "\n\nTry again?",
          "End Recording", Icon::exclamation};
}

std::string rescued_sentence(const std::string& path, Language language) {
  if (language == Language::chinese) return "未寫入的記錄保存於 " + path;
  return "Recorded lines that could not be written are kept in " + path;
}

}  // namespace halden
