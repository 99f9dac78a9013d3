#include "filetools/export/export_window.h"

#include <optional>

#include "filetools/export/export_texts.h"
#include "filetools/file_name.h"
#include "platform/clock.h"
#include "platform/dialogs.h"

namespace halden {

namespace {

// A shorter export shows only its result.
constexpr double progress_after_s = 0.5;

constexpr Text caption = {"Export as Numbers", "匯出為數值"};
constexpr Text replace_it = {"{} exists. Replace it?", "{} 已存在，是否取代？"};
constexpr Text wrong_ending = {"The name of the result must end in .csv or .json",
                               "結果檔名須以 .csv 或 .json 結尾"};

std::string suggested_name(const std::string& source, std::string_view ending) {
  const std::string name(name_of_file(source));
  return name.substr(0, name.rfind('.')) + "-numbers" + std::string(ending);
}

FileQuestion target_question(const ExportRequest& request) {
  const FileFilter csv = {"csv Files(*.csv)", "*.csv"}, json = {"json Files(*.json)", "*.json"};
  if (request.options.format == TableFormat::csv)
    return {{csv, json}, ".csv", suggested_name(request.source, ".csv")};
  return {{json, csv}, ".json", suggested_name(request.source, ".json")};
}

}  // namespace

ExportWindow::ExportWindow(const Platform& platform, Windows& windows, Window& meter_rec, const Link& link)
    : platform_(platform),
      link_(link),
      progress_(platform.clock, form_, {export_task, export_progress, export_cancel}, progress_after_s) {
  windows.add(form_);
  meter_rec.on_click(export_entry, [this] { choose_file(); });
  connect();
  set_running(false);
}

void ExportWindow::connect() {
  form_.on_click(choose_file_button, [this] { choose_file(); });
  form_.on_click(export_button, [this] { choose_target(); });
  form_.on_click(export_again, [this] { request_.target.empty() ? choose_target() : run(); });
  form_.on_close([this] { close(); });
  ExportOptions& options = request_.options;
  connect_choice(format_choice, [&options](std::size_t index) { options.format = TableFormat(index); });
  connect_choice(separator_choice, [&options](std::size_t index) { options.separator = Separator(index); });
  connect_choice(dates_choice, [&options](std::size_t index) { options.dates = DateOrder(index); });
  connect_choice(decimal_choice, [&options](std::size_t index) {
    options.decimal = DecimalMark(index);
    options.separator = options.decimal == DecimalMark::comma ? Separator::semicolon : Separator::comma;
  });
}

void ExportWindow::connect_choice(const ExportChoice& choice, std::function<void(std::size_t)> choose) {
  for (std::size_t index = 0; index < choice.buttons.size() && !choice.buttons[index].empty(); ++index)
    form_.on_click(choice.buttons[index], [this, index, choose] {
      choose(index);
      show_options(form_, request_.options);
    });
}

void ExportWindow::close() {
  progress_.cancel();
  form_.hide();
}

void ExportWindow::choose_file() {
  if (progress_.runs()) return form_.show();
  const std::optional<std::string> path = platform_.dialogs.open_file(
      {{{"Data Files(*.csv *.dat)", "*.csv *.dat"}, {"All Files (*.*)", "*.*"}}, "", ""});
  if (path && !path->empty()) open_file(*path);
}

// A file that cannot be exported leaves the one chosen before.
void ExportWindow::open_file(const std::string& path) {
  if (progress_.runs()) return;
  form_.set_caption(caption.in(link_.state.language));
  form_.show();
  const ExportRequest wanted = {path, "", request_.options};
  const ExportResult checked = check_source(platform_.files, path);
  if (checked.outcome == ExportOutcome::written) {
    request_ = wanted;
    form_.set_text(export_file, name_of_file(path));
    form_.set_tooltip(export_file, path);
    say("");
  } else {
    say(export_sentence(checked, wanted, link_.state.language));
  }
  set_running(false);
  if (checked.outcome == ExportOutcome::not_opened)
    platform_.dialogs.message({form_[export_result].text, "", Icon::none});
}

void ExportWindow::choose_target() {
  if (request_.source.empty() || progress_.runs()) return;
  const Language language = link_.state.language;
  const std::optional<std::string> path = platform_.dialogs.save_file(target_question(request_));
  if (!path || path->empty() || progress_.runs()) return;
  if (!table_format(*path)) return say(wrong_ending.in(language));
  const bool asks = platform_.files.exists(*path) && !is_data_file(platform_.files, *path);
  if (asks && !platform_.dialogs.confirm(
                  {replace_it.with(language, {std::string(name_of_file(*path))}), "", Icon::question}))
    return;
  request_.target = *path;
  run();
}

void ExportWindow::run() {
  if (request_.source.empty() || progress_.runs()) return;
  ExportRequest request = request_;
  request.options.format = *table_format(request.target);
  request.options.current_range = link_.status.current_range;
  request.options.current_scale = link_.status.current_scale;
  say("");
  set_running(true);
  progress_.begin();
  const ExportResult result = export_numbers(platform_.files, request, progress_.progress());
  progress_.end();
  set_running(false);
  say(export_sentence(result, request, link_.state.language));
}

void ExportWindow::set_running(bool running) {
  form_.set_enabled(export_button, !running && !request_.source.empty());
  form_.set_enabled(choose_file_button, !running);
}

}  // namespace halden
