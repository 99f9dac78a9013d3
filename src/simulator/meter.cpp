#include "simulator/meter.h"

#include <limits>
#include <utility>

#include "simulator/replies.h"

namespace halden::simulator {

namespace {

constexpr std::size_t max_logged_bytes = 100'000;
constexpr std::ptrdiff_t dropped_at_once = 10'000;

constexpr char erase_byte = '\x03';
constexpr char download_byte = '\x04';

// The two bytes come 2 s apart. A single one from a program that ended must not wait for another for ever.
constexpr double erase_pair_s = 5.0;

}  // namespace

void Meter::receive(std::string_view bytes, double now_s) {
  advance(now_s);
  if (faults_.unplugged) return;
  for (const char byte : bytes) {
    log_byte(byte, now_s);
    take_byte(byte, now_s);
  }
}

void Meter::press_transient(double now_s) {
  advance(now_s);
  if (!faults_.unplugged) send_file(memory_.transient_report, now_s);
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

void Meter::take_byte(char byte, double now_s) {
  const bool taken = commands_.take(byte, now_s, settings_);
  if (!taken && byte == erase_byte) return take_erase_byte(now_s);
  first_erase_byte_s_.reset();
  if (!taken) answer(byte, now_s);
  if (const std::optional<int> file = commands_.take_selected_file())
    memory_.select(faults_.file.wrong_index.value_or(*file));
}

void Meter::take_erase_byte(double now_s) {
  const std::optional<double> first_s = std::exchange(first_erase_byte_s_, now_s);
  if (!first_s || now_s - *first_s > erase_pair_s) return;
  first_erase_byte_s_.reset();
  memory_.erase();
  settings_.logger = {};
}

void Meter::answer(char request, double now_s) {
  if (request == download_byte) return send_file(memory_.selected_bytes(), now_s);
  if (!may_send()) return;
  const std::string reply = reply_to(request, now_s);
  if (reply.empty()) return;
  if (request != '?' && on_frame) on_frame(now_s, reply);
  send({with_faults(reply, faults_), now_s, faults_.split_after, faults_.split_pause_s});
}

bool Meter::may_send() const {
  if (faults_.silence || faults_.endless_stream) return false;
  return faults_.restarts || replies_.has_room();
}

void Meter::send(Transmission reply) {
  if (faults_.restarts) replies_.stop();
  reply.start_s += settings_.reply_latency_s + faults_.late_s;
  replies_.send(std::move(reply));
}

void Meter::send_file(const std::string& bytes, double now_s) {
  if (bytes.empty() || !may_send()) return;
  const FileFaults& file = faults_.file;
  const bool pauses = file.pause_s > 0.0;
  send({with_faults(with_file_faults(bytes, file), faults_), now_s,
        pauses ? file.pause_after : faults_.split_after, pauses ? file.pause_s : faults_.split_pause_s});
}

std::string Meter::status(double now_s) const {
  MeterSettings told = settings_;
  if (!memory_.empty()) told.logger = memory_.selected_settings();
  return status_reply(told, uptime_s(now_s));
}

std::string Meter::reply_to(char request, double now_s) {
  if (request == '?') return faults_.status_reply.value_or(status(now_s));
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
