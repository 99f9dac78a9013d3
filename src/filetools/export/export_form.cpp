#include "filetools/export/export_form.h"

#include <string>

namespace halden {

namespace {

constexpr std::array captions = {Caption{export_file_label, {"File", "檔案"}},
                                 Caption{choose_file_button, {"Choose...", "選擇..."}},
                                 Caption{format_choice.label, {"Format", "格式"}},
                                 Caption{"format_csv", {"CSV", "CSV"}},
                                 Caption{"format_json", {"JSON", "JSON"}},
                                 Caption{decimal_choice.label, {"Decimal mark", "小數點"}},
                                 Caption{"decimal_point", {"Point 3.14", "點 3.14"}},
                                 Caption{"decimal_comma", {"Comma 3,14", "逗號 3,14"}},
                                 Caption{separator_choice.label, {"Between values", "分隔符號"}},
                                 Caption{"separator_comma", {"Comma ,", "逗號 ,"}},
                                 Caption{"separator_semicolon", {"Semicolon ;", "分號 ;"}},
                                 Caption{dates_choice.label, {"Date order", "日期順序"}},
                                 Caption{"dates_unknown", {"By the file", "依檔案"}},
                                 Caption{"dates_mdy", {"Month Day", "月日年"}},
                                 Caption{"dates_dmy", {"Day Month", "日月年"}},
                                 Caption{"dates_ymd", {"Year first", "年月日"}},
                                 Caption{export_button, {"Export...", "匯出..."}},
                                 Caption{export_task, {"Exporting...", "匯出中..."}},
                                 Caption{export_cancel, {"Cancel", "取消"}}};

constexpr Text of_dates = {
    "For files that do not settle the order of day and month: live harmonics and waveforms. Without an order "
    "their column time_iso stays empty",
    "用於未註明月日順序的檔案：即時諧波與波形。未選擇時，time_iso 欄留空"};
constexpr Text of_separator = {"Spreadsheets of countries that write 3,14 expect a semicolon",
                               "以 3,14 表示小數的地區，試算表使用分號"};

constexpr std::array tooltips = {
    Caption{"format_csv", {"A table for spreadsheets and other programs", "供試算表與其他程式使用的表格"}},
    Caption{"format_json", {"An array of objects for other programs", "供其他程式使用的物件陣列"}},
    Caption{"separator_comma", of_separator},
    Caption{"separator_semicolon", of_separator},
    Caption{"dates_unknown", of_dates},
    Caption{"dates_mdy", of_dates},
    Caption{"dates_dmy", of_dates},
    Caption{"dates_ymd", of_dates},
    Caption{export_button, {"Asks for the name of the result and writes it", "詢問結果檔名並寫入"}}};

constexpr std::array accessible_names = {
    Caption{choose_file_button, {"Choose file", "選擇檔案"}},
    Caption{"format_csv", {"Format CSV", "格式 CSV"}},
    Caption{"format_json", {"Format JSON", "格式 JSON"}},
    Caption{"decimal_point", {"Decimal mark: point", "小數點：點"}},
    Caption{"decimal_comma", {"Decimal mark: comma", "小數點：逗號"}},
    Caption{"separator_comma", {"Between values: comma", "分隔符號：逗號"}},
    Caption{"separator_semicolon", {"Between values: semicolon", "分隔符號：分號"}},
    Caption{"dates_unknown", {"Date order: by the file", "日期順序：依檔案"}},
    Caption{"dates_mdy", {"Date order: month, day, year", "日期順序：月、日、年"}},
    Caption{"dates_dmy", {"Date order: day, month, year", "日期順序：日、月、年"}},
    Caption{"dates_ymd", {"Date order: year, month, day", "日期順序：年、月、日"}},
    Caption{export_progress, {"Progress", "進度"}}};

void mark(Window& form, const ExportChoice& choice, std::size_t chosen) {
  for (std::size_t index = 0; index < choice.buttons.size() && !choice.buttons[index].empty(); ++index)
    form.set_checked(choice.buttons[index], index == chosen);
}

template <typename Value>
std::size_t index_of(Value value) {
  return static_cast<std::size_t>(value);
}

}  // namespace

Window make_export_form() {
  Window form("ExportNumbers");
  form.set_caption("Export as Numbers");
  for (const std::string_view name :
       {export_file_label, export_file, choose_file_button, export_button, export_again, export_result,
        export_task, export_progress, export_cancel})
    form.add(std::string(name), {});
  for (const ExportChoice& choice : export_choices) {
    form.add(std::string(choice.label), {});
    for (const std::string_view button : choice.buttons)
      if (!button.empty()) form.add(std::string(button), {});
  }
  for (const std::string_view name : {export_task, export_progress, export_cancel})
    form.set_visible(name, false);
  form.set_captions(captions);
  form.set_tooltips(tooltips);
  form.set_accessible_names(accessible_names);
  form.apply_captions(Language::english);
  show_options(form, {});
  return form;
}

void show_options(Window& form, const ExportOptions& options) {
  mark(form, format_choice, index_of(options.format));
  mark(form, decimal_choice, index_of(options.decimal));
  mark(form, separator_choice, index_of(options.separator));
  mark(form, dates_choice, index_of(options.dates));
  const bool is_csv = options.format == TableFormat::csv;
  for (const std::string_view name : {"decimal_point", "decimal_comma", "separator_semicolon"})
    form.set_enabled(name, is_csv);
  form.set_enabled("separator_comma", is_csv && options.decimal == DecimalMark::point);
}

}  // namespace halden
