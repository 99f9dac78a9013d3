#include "link/status_query.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/serial_port.h"
#include "readings/patterns.h"
#include "screen/meter_rec/settings.h"
#include "screen/windows.h"

namespace halden {

namespace {

constexpr double quiet_s = 3.0;
constexpr double before_request_s = 1.0;
constexpr double reply_s = 5.0;
constexpr double whole_query_s = quiet_s + before_request_s + reply_s;
constexpr int whole_progress = 100;

// Field numbers in the reply, from 1; those of the settings are in meter_settings.
constexpr int mode_field = 1;
constexpr int wiring_field = 3;

constexpr std::array<Text, 2> mode_captions = {
    {{"Harmo. and Waveform", "諧波與波形"}, {"Power Mode", "電力模式"}}};

constexpr std::array<Text, 4> wiring_captions = {
    {{"1P2W", "單相兩線"}, {"1P3W", "單相三線"}, {"3P3W", "三相三線"}, {"3P4W", "三相四線"}}};

std::string_view mode_caption(std::int16_t meter_mode, Language language) {
  if (meter_mode < 0 || meter_mode > 1) return "?";
  return mode_captions[static_cast<std::size_t>(meter_mode)].in(language);
}

std::string_view wiring_caption(Wiring wiring_system, Language language) {
  return wiring_captions[table_index(wiring_system)].in(language);
}

std::string frequency_text(std::int16_t frequency_code) {
  if (frequency_code == 1) return "50";
  if (frequency_code == 2) return "60";
  return "Auto";
}

// What the box of a setting shows.
std::string setting_text(Setting setting, const MeterStatus& status) {
  switch (setting) {
    case Setting::ct:
      return format_pattern(status.ct_ratio, "###0");
    case Setting::pt:
      return format_pattern(status.pt_ratio, "###0");
    case Setting::md:
      return format_pattern(status.md_period, "####0");
    case Setting::sec:
      return format_pattern(status.sample_seconds, "####0");
    case Setting::hz:
      break;
  }
  return frequency_text(status.frequency_code);
}

}  // namespace

void StatusQuery::query_meter_status() {
  if (query_unless_file_comes() || (line_is_free() && query_unless_file_comes())) return;
  report_failure();
}

bool StatusQuery::query_unless_file_comes() {
  succeeded_ = false;
  if (!ask()) {
    began_s_.reset();
    notice_.hide();
    return false;
  }
  MeterStatus read = status_;
  const std::optional<StatusReply> reply = read_status_reply(state_.reply_buffer, read);
  if (!reply) {
    report_failure();
    return true;
  }
  status_ = read;
  reply_ = *reply;
  succeeded_ = true;
  state_.file_bytes = FileBytes::none;
  show_status(reply->fields);
  // A ratio the meter has not set counts as 1; its box shows what the meter sent.
  if (status_.ct_ratio == 0) status_.ct_ratio = 1;
  if (status_.pt_ratio == 0) status_.pt_ratio = 1;
  for (const auto& handler : status_read_) handler();
  notice_.hide();
  let_events_run(platform_.clock);
  return true;
}

bool StatusQuery::line_is_free() {
  if (file_comes() && waits_.discard_until_silent()) state_.file_bytes = FileBytes::none;
  return state_.file_bytes != FileBytes::certainly;
}

bool StatusQuery::file_comes() {
  if (state_.file_bytes == FileBytes::perhaps && platform_.port.received_count() > 0)
    state_.file_bytes = FileBytes::certainly;
  return state_.file_bytes == FileBytes::certainly;
}

void StatusQuery::show_splash() {
  notice_.set_caption("Status");
  notice_.set_text("Text1", "Working, please wait");
  notice_.show();
}

// False when bytes of a stored file come; nothing has been sent then.
bool StatusQuery::ask() {
  began_s_ = platform_.clock.monotonic_s();
  notice_.set_range(notice_progress, 0, whole_progress);
  show_progress();
  show_splash();
  let_events_run(platform_.clock);
  waits_.timed_wait(quiet_s, Yield::no);
  if (file_comes()) return false;
  waits_.discard();
  state_.reply_buffer.clear();
  show_splash();
  waits_.timed_wait(before_request_s, Yield::yes);
  if (file_comes()) return false;
  platform_.port.send("?");
  show_splash();
  let_events_run(platform_.clock);
  let_events_run(platform_.clock);
  waits_.collect(reply_s, state_.reply_buffer);
  show_progress();
  began_s_.reset();
  return true;
}

// A wait that begins anew at midnight takes longer; the progress stops at its end then.
void StatusQuery::show_progress() {
  if (!began_s_) return;
  const double part = (platform_.clock.monotonic_s() - *began_s_) / whole_query_s;
  notice_.set_value(notice_progress, static_cast<int>(std::min(part, 1.0) * whole_progress));
}

void StatusQuery::report_failure() {
  polling_.resume_polling(1);
  const Message failed = {std::string(failed_message), "", Icon::none};
  // Nobody may be there to answer while all stored files are downloaded.
  if (state_.logger_active == 1)
    platform_.dialogs.tell(failed);
  else
    platform_.dialogs.message(failed);
  notice_.hide();
}

// Shows the fields that were read; a box whose field is missing keeps its text.
void StatusQuery::show_status(int fields) {
  if (fields >= mode_field) window_.set_text("PQA_mode", mode_caption(status_.meter_mode, state_.language));
  if (fields >= wiring_field) {
    window_.set_text("power_system", wiring_caption(status_.wiring_system, state_.language));
    arrange_for_system(status_.wiring_system, window_, label_column_left_);
  }
  for (const SettingNames& setting : meter_settings)
    if (fields >= setting.status_field) window_.set_text(setting.box, setting_text(setting.setting, status_));
}

}  // namespace halden
