#include "live/chart_output.h"

#include <optional>

#include "platform/dialogs.h"
#include "platform/pictures.h"
#include "screen/failure_texts.h"

namespace halden {

namespace {

constexpr std::string_view chart_name = "Harmo_Graph1";

constexpr Text picture_copied = {"The picture is on the clipboard.", "圖片已複製到剪貼簿。"};
constexpr Text points_copied = {"The points are on the clipboard.", "數據已複製到剪貼簿。"};
constexpr Text saved = {"The picture was saved as {}.", "圖片已儲存為 {}。"};
constexpr Text nothing_drawn = {"There is nothing to copy or save yet.", "尚無可複製或儲存的圖表。"};
constexpr Text not_saved = {"The picture could not be saved ({}).", "圖片無法儲存（{}）。"};

const FileQuestion picture_question = {
    {{"PNG (*.png)", "*.png"}, {"SVG (*.svg)", "*.svg"}, {"PDF (*.pdf)", "*.pdf"}}, ".png", "halden-chart"};

}  // namespace

ChartOutput::ChartOutput(const Platform& platform, const LinkState& link, Window& meter_rec)
    : platform_(platform), link_(link), window_(meter_rec) {
  window_.on_click("chart_copy", [this] { copy_picture(); });
  window_.on_click("chart_copy_points", [this] { copy_points(); });
  window_.on_click("chart_save", [this] { save(); });
}

// Shared, because the next frame replaces it while the user chooses a file.
std::shared_ptr<const Chart> ChartOutput::drawn() {
  auto chart = window_[chart_name].chart;
  if (!chart || has_data(*chart)) return chart;
  say(std::string(nothing_drawn.in(link_.language)));
  return nullptr;
}

void ChartOutput::copy_picture() {
  const auto chart = drawn();
  if (!chart) return;
  platform_.pictures.copy_chart(*chart);
  say(std::string(picture_copied.in(link_.language)));
}

void ChartOutput::copy_points() {
  const auto chart = drawn();
  if (!chart) return;
  platform_.pictures.copy_text(to_text(*chart));
  say(std::string(points_copied.in(link_.language)));
}

void ChartOutput::save() {
  const auto chart = drawn();
  if (!chart) return;
  const std::optional<std::string> path = platform_.dialogs.save_file(picture_question);
  if (!path || path->empty()) return;
  const FileFailure failure = platform_.pictures.save_chart(*chart, *path);
  const Language language = link_.language;
  say(failure == FileFailure::none ? saved.with(language, {*path})
                                   : not_saved.with(language, {write_failure_text(failure, language)}));
}

}  // namespace halden
