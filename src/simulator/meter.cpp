#include "simulator/meter.h"

#include <limits>
#include <utility>

#include "simulator/replies.h"

namespace halden::simulator {

namespace {

constexpr std::size_t max_logged_bytes = 100'000;
constexpr std::ptrdiff_t dropped_at_once = 10'000;

}  // namespace

void Meter::receive(std::string_view bytes, double now_s) {
  advance(now_s);
  if (faults_.unplugged) return;
  for (const char byte : bytes) {
    log_byte(byte, now_s);
    if (!commands_.take(byte, now_s, settings_)) answer(byte, now_s);
  }
}

std::string Meter::take_output(double now_s) {
  advance(now_s);
  return faults_.endless_stream ? stream_.take(now_s) : replies_.take();
}

std::size_t Meter::output_waiting(double now_s) const {
  if (faults_.unplugged) return 0;
  return faults_.endless_stream ? stream_.waiting(now_s) : replies_.waiting(now_s);
}

double Meter::next_output_s(double now_s) const {
  if (faults_.unplugged) return std::numeric_limits<double>::infinity();
  return faults_.endless_stream ? stream_.next_s(now_s) : replies_.next_s(now_s);
}

// Applies what changed since the last call, because callers may switch faults at any time.
void Meter::advance(double now_s) {
  if (!std::exchange(switched_on_, true)) switched_on_s_ = now_s;
  replies_.catch_up(now_s);
  if (faults_.endless_stream)
    stream_.start(now_s);
  else
    stream_.stop();
  if (faults_.unplugged) {
    replies_.take();
    stream_.take(now_s);
  }
}

void Meter::log_byte(char byte, double now_s) {
  if (log_.size() >= max_logged_bytes) log_.erase(log_.begin(), log_.begin() + dropped_at_once);
  log_.push_back({now_s, byte});
}

void Meter::answer(char request, double now_s) {
  if (faults_.silence || faults_.endless_stream) return;
  if (!faults_.restarts && !replies_.has_room()) return;
  const std::string reply = reply_to(request, now_s);
  if (reply.empty()) return;
  if (faults_.restarts) replies_.stop();
  if (request != '?' && on_frame) on_frame(now_s, reply);
  replies_.send({with_faults(reply, faults_), now_s + settings_.reply_latency_s + faults_.late_s,
                 faults_.split_after, faults_.split_pause_s});
}

std::string Meter::reply_to(char request, double now_s) {
  if (request == '?') return faults_.status_reply.value_or(status_reply(settings_, uptime_s(now_s)));
  if (request != ' ' && request != 'W') return {};
  if (faults_.next_live_frame) return *std::exchange(faults_.next_live_frame, std::nullopt);
  return live_reply(request, now_s);
}

std::string Meter::live_reply(char request, double now_s) const {
  struct Answer {
    MeterMode mode;
    char request;
    std::string (*frame)(const Load&, const MeterSettings&, double uptime_s);
  };
  constexpr std::array<Answer, 3> answers = {{{MeterMode::power, ' ', power_frame},
                                              {MeterMode::harmonics, ' ', harmonics_frame},
                                              {MeterMode::harmonics, 'W', waveform_frame}}};
  for (const Answer& answer : answers)
    if (answer.mode == settings_.mode && answer.request == request)
      return answer.frame(load_, settings_, uptime_s(now_s));
  return {};
}

}  // namespace halden::simulator
