#include "logger/transfer_panel.h"

#include <array>
#include <cmath>
#include <string>

#include "logger/logger_form.h"
#include "logger/logger_texts.h"
#include "screen/meter_rec/panels.h"
#include "screen/windows.h"

namespace halden {

namespace {

constexpr Text bytes_text = {"{} bytes", "{} 位元組"};
constexpr Text rate_text = {"{} bytes/s", "{} 位元組/秒"};
constexpr Text still_sending = {"The meter is still sending: {}. Cancel stops waiting.",
                                "電表仍在傳送：{}。按「取消」停止等待。"};

constexpr std::string_view behind_bytes = "    ";

}  // namespace

void TransferPanel::begin(std::string_view task) {
  say("");
  window_.set_text(transfer_task, task);
  window_.restore_caption(transfer_note, link_.language);
  for (const LoggerPanel& panel : transfer_panels()) window_.set_text(panel.value, "");
  show_controls(true);
}

void TransferPanel::end() {
  show_controls(false);
  hide_notice();
}

void TransferPanel::show_controls(bool visible) {
  shown_ = visible;
  for (const LoggerPanel& panel : transfer_panels()) {
    window_.set_visible(panel.label, visible);
    window_.set_visible(panel.value, visible);
  }
  window_.set_visible(transfer_task, visible);
  show_cancel(visible);
}

void TransferPanel::show_cancel(bool visible) {
  window_.set_visible(transfer_note, visible);
  window_.set_visible(transfer_cancel, visible);
}

void TransferPanel::show_notice(std::string_view caption, std::string_view text) {
  notice_.set_range(notice_progress, 0, 0);
  if (!caption.empty()) notice_.set_caption(caption);
  notice_.set_text("Text1", text);
  notice_.set_enabled("Text1", true);
  notice_.show();
}

void TransferPanel::hide_notice() { notice_.hide(); }

void TransferPanel::show_figures(const TransferFigures& figures, std::size_t record_bytes) {
  const Language language = link_.language;
  if (figures.bytes > 0) notice_.set_text("Text1", std::to_string(figures.bytes) + std::string(behind_bytes));
  const std::string records =
      record_bytes == 0 ? std::string("-") : with_thousands(figures.bytes / record_bytes);
  const std::string rate =
      figures.bytes_per_second > 0
          ? rate_text.with(language,
                           {with_thousands(static_cast<std::size_t>(std::lround(figures.bytes_per_second)))})
          : std::string("-");
  const std::array values = {bytes_text.with(language, {with_thousands(figures.bytes)}), rate,
                             duration_text(figures.elapsed_s, language), records};
  for (std::size_t i = 0; i < values.size(); ++i) window_.set_text(transfer_panels()[i].value, values[i]);
}

void TransferPanel::show_records(std::size_t records) {
  window_.set_text(transfer_panels().back().value, with_thousands(records));
}

// Also in an exchange that otherwise cannot be cancelled.
void TransferPanel::show_still_sending(double waited_s) {
  window_.set_text(transfer_note,
                   still_sending.with(link_.language, {duration_text(waited_s, link_.language)}));
  show_cancel(true);
}

void TransferPanel::hide_still_sending() {
  window_.restore_caption(transfer_note, link_.language);
  show_cancel(shown_);
}

void TransferPanel::say(std::string_view text) { window_.set_text(status_hint, text); }

}  // namespace halden
