#include "screen/output/picture_output.h"

#include "platform/dialogs.h"
#include "platform/pictures.h"
#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr std::string_view status_line = "status_hint";

constexpr Text picture_copied = {"The picture is on the clipboard.", "圖片已複製到剪貼簿。"};
constexpr Text points_copied = {"The points are on the clipboard.", "數據已複製到剪貼簿。"};
constexpr Text picture_saved = {"The picture was saved as {}.", "圖片已儲存為 {}。"};
constexpr Text picture_not_saved = {"The picture could not be saved ({}).", "圖片無法儲存（{}）。"};
constexpr Text points_saved = {"The points were saved as {}.", "數據已儲存為 {}。"};
constexpr Text points_not_saved = {"The points could not be saved ({}).", "數據無法儲存（{}）。"};
constexpr Text nothing_drawn = {"There is nothing to copy or save yet.", "尚無可複製或儲存的內容。"};
constexpr Text wrong_ending = {"Not saved: the name of a picture ends in .png, .svg or .pdf.",
                               "未儲存：圖片檔名須以 .png、.svg 或 .pdf 結尾。"};
constexpr Text exists_already = {"{} exists already. Replace it?", "{} 已存在，要取代嗎？"};

}  // namespace

void PictureOutput::copy_chart(const Chart& chart) {
  platform_.pictures.copy_chart(chart);
  say(picture_copied);
}

void PictureOutput::copy_dots(const DotPicture& picture) {
  platform_.pictures.copy_dots(picture);
  say(picture_copied);
}

void PictureOutput::copy_points(const std::string& lines) {
  platform_.pictures.copy_text(lines);
  say(points_copied);
}

void PictureOutput::save_chart(const Chart& chart, const std::string& name) {
  if (const auto path = ask_picture_path(name))
    say_saved(picture_saved, picture_not_saved, *path, platform_.pictures.save_chart(chart, *path));
}

void PictureOutput::save_dots(const DotPicture& picture, const std::string& name) {
  if (const auto path = ask_picture_path(name))
    say_saved(picture_saved, picture_not_saved, *path, platform_.pictures.save_dots(picture, *path));
}

void PictureOutput::save_points(const std::string& csv, const std::string& name) {
  const auto path = platform_.dialogs.save_file({{{"CSV (*.csv)", "*.csv"}}, ".csv", name});
  if (path && may_write(*path))
    say_saved(points_saved, points_not_saved, *path, platform_.files.replace(*path, csv));
}

void PictureOutput::say_nothing_drawn() { say(nothing_drawn); }

std::optional<std::string> PictureOutput::ask_picture_path(const std::string& name) {
  auto path = platform_.dialogs.save_file(
      {{{"PNG (*.png)", "*.png"}, {"SVG (*.svg)", "*.svg"}, {"PDF (*.pdf)", "*.pdf"}}, ".png", name});
  if (!path || path->empty()) return std::nullopt;
  if (!picture_kind(*path)) {
    say(wrong_ending);
    return std::nullopt;
  }
  return may_write(*path) ? path : std::nullopt;
}

bool PictureOutput::may_write(const std::string& path) {
  if (path.empty()) return false;
  if (!platform_.files.exists(path)) return true;
  return platform_.dialogs.confirm({exists_already.with(language_, {path}), "", Icon::question, Preset::no});
}

void PictureOutput::say(const Text& text) { window_.set_text(status_line, text.in(language_)); }

void PictureOutput::say_saved(const Text& saved, const Text& not_saved, const std::string& path,
                              FileFailure failure) {
  const std::string& about =
      failure == FileFailure::none ? path : std::string(write_failure_text(failure, language_));
  window_.set_text(status_line, (failure == FileFailure::none ? saved : not_saved).with(language_, {about}));
}

}  // namespace halden
