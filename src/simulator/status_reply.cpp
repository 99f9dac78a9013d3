#include "simulator/status_reply.h"

#include <chrono>

#include "simulator/padded.h"

namespace halden::simulator {

namespace {

MeterClock clock_after(const MeterClock& start, double uptime_s) {
  using namespace std::chrono;
  const sys_days start_day = year(start.year) / start.month / start.day;
  const sys_seconds now = start_day + hours(start.hour) + minutes(start.minute) + seconds(start.second) +
                          seconds(static_cast<long long>(uptime_s));
  const sys_days today = floor<days>(now);
  const year_month_day date(today);
  const hh_mm_ss time(now - today);
  return {int(date.year()),
          static_cast<int>(unsigned(date.month())),
          static_cast<int>(unsigned(date.day())),
          static_cast<int>(time.hours().count()),
          static_cast<int>(time.minutes().count()),
          static_cast<int>(time.seconds().count())};
}

std::array<int, 35> status_values(const MeterSettings& s, const MeterClock& clock) {
  const LoggerSettings& logger = s.logger;
  return {static_cast<int>(s.mode),
          s.channel,
          static_cast<int>(s.wiring),
          s.frequency_code,
          0,
          s.pt_ratio,
          s.ct_ratio,
          s.sample_seconds,
          0,
          s.harmonic_order,
          0,
          s.md_period,
          logger.data_type,
          logger.channel,
          logger.wiring,
          logger.frequency_code,
          logger.current_range * 256,
          logger.pt_ratio,
          logger.ct_ratio,
          logger.sample_seconds,
          logger.clamp_flags,
          0,
          0,
          s.current_range,
          0,
          0,
          s.clamp_flags,
          logger.file_index,
          clock.year % 1000,
          clock.month,
          clock.day,
          clock.hour,
          clock.minute,
          clock.second,
          logger.file_count};
}

}  // namespace

std::string status_reply(const MeterSettings& settings, double uptime_s) {
  std::string reply;
  for (const int value : status_values(settings, clock_after(settings.clock_start, uptime_s)))
    reply += zero_padded(value, 5) + " ";
  return reply;
}

}  // namespace halden::simulator
