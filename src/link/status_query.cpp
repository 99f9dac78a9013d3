#include "link/status_query.h"

#include <array>
#include <string>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/serial_port.h"
#include "readings/patterns.h"
#include "screen/captions.h"

namespace halden {

namespace {

constexpr double quiet_s = 3.0;
constexpr double before_request_s = 1.0;
constexpr double reply_s = 5.0;

struct TwoCaptions {
  std::string_view english_text, chinese_text;
  std::string_view in(std::int16_t language) const {
    return language == chinese ? chinese_text : english_text;
  }
};

constexpr std::array<TwoCaptions, 2> mode_captions = {
    {{"Harmo. and Waveform", "諧波與波形"}, {"Power Mode", "電力模式"}}};

constexpr std::array<TwoCaptions, 4> wiring_captions = {
    {{"1P2W", "單相兩線"}, {"1P3W", "單相三線"}, {"3P3W", "三相三線"}, {"3P4W", "三相四線"}}};

std::string frequency_text(std::int16_t frequency_code) {
  if (frequency_code == 1) return "50";
  if (frequency_code == 2) return "60";
  return "Auto";
}

}  // namespace

std::string_view mode_caption(std::int16_t meter_mode, std::int16_t language) {
  if (meter_mode < 0 || meter_mode > 1) return "?";
  return mode_captions[static_cast<std::size_t>(meter_mode)].in(language);
}

std::string_view wiring_caption(std::int16_t wiring_system, std::int16_t language) {
  const bool known = wiring_system >= 1 && wiring_system <= 3;
  return wiring_captions[known ? static_cast<std::size_t>(wiring_system) : 0].in(language);
}

void StatusQuery::query_meter_status() {
  succeeded_ = false;
  ask();
  MeterStatus read = status_;
  const std::optional<StatusReply> reply = read_status_reply(state_.reply_buffer, read);
  if (!reply) {
    report_failure();
    return;
  }
  status_ = read;
  succeeded_ = true;
  show_status(reply->fields);
  screen_.chkspeed.hide();
  let_events_run(platform_.clock);
}

void StatusQuery::show_splash() {
  screen_.chkspeed.set_caption("Status");
  screen_.chkspeed["Text1"].text = "Working, please wait";
  screen_.chkspeed.show();
}

void StatusQuery::ask() {
  show_splash();
  let_events_run(platform_.clock);
  waits_.timed_wait(quiet_s, Yield::no);
  waits_.discard();
  state_.reply_buffer.clear();
  show_splash();
  waits_.timed_wait(before_request_s, Yield::yes);
  platform_.port.send("?");
  show_splash();
  let_events_run(platform_.clock);
  let_events_run(platform_.clock);
  waits_.collect(reply_s, state_.reply_buffer);
}

void StatusQuery::report_failure() {
  polling_.resume_polling(1);
  platform_.dialogs.message(
      {"Meter status could not be obtained, please check connections, com port, etc, and try again.", "",
       Icon::none});
  screen_.chkspeed.hide();
}

// Shows the fields that were read; a box whose field is missing keeps its text.
void StatusQuery::show_status(int fields) {
  Window& window = screen_.meter_rec;
  const auto show = [&](int field, std::string_view control, std::string text) {
    if (fields >= field) window[control].text = std::move(text);
  };
  show(1, "PQA_mode", std::string(mode_caption(status_.meter_mode, state_.language)));
  show(3, "power_system", std::string(wiring_caption(status_.wiring_system, state_.language)));
  if (fields >= 3) arrange_for_system(status_.wiring_system, window, label_column_left_);
  show(4, "HZ_value", frequency_text(status_.frequency_code));
  show(6, "pt_value", format_pattern(status_.pt_ratio, "###0"));
  show(7, "ct_value", format_pattern(status_.ct_ratio, "###0"));
  show(8, "sec_value", format_pattern(status_.sample_seconds, "####0"));
  show(12, "md_value", format_pattern(status_.md_period, "####0"));
  screen_.logger["Text1_1"].text = status_.meter_year + "-" + status_.meter_month + "-" + status_.meter_day;
  screen_.logger["Text1_2"].text =
      status_.meter_hour + ":" + status_.meter_minute + ":" + status_.meter_second;
}

}  // namespace halden
