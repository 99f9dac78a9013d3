#include "simulator/sending.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "simulator/faults.h"

namespace halden::simulator {

namespace {

constexpr double never = std::numeric_limits<double>::infinity();

// A ten-thousandth of a byte of tolerance: a byte has arrived at exactly the time arrival_s gave for it,
// whatever the rounding of the two computations.
std::uint64_t bytes_in(double elapsed_s) {
  return elapsed_s <= 0.0 ? 0 : static_cast<std::uint64_t>(std::floor(elapsed_s * bytes_per_second + 1e-4));
}

void keep_newest(std::string& bytes, std::size_t limit) {
  if (bytes.size() > limit) bytes.erase(0, bytes.size() - limit);
}

}  // namespace

std::size_t Transmission::arrived(double now_s) const {
  std::uint64_t count = bytes_in(now_s - start_s);
  if (count > pause_after) count = std::max<std::uint64_t>(pause_after, bytes_in(now_s - start_s - pause_s));
  return static_cast<std::size_t>(std::min<std::uint64_t>(count, bytes.size()));
}

double Transmission::arrival_s(std::size_t index) const {
  return start_s + static_cast<double>(index + 1) / bytes_per_second + (index >= pause_after ? pause_s : 0.0);
}

void SendQueue::send(Transmission reply) {
  if (reply.bytes.empty()) return;
  if (!queue_.empty()) reply.start_s = std::max(reply.start_s, queue_.back().end_s());
  limit_ = std::max(limit_, reply.bytes.size());
  queue_.push_back(std::move(reply));
}

void SendQueue::stop() {
  queue_.clear();
  collected_ = 0;
}

std::string SendQueue::take() {
  if (queue_.empty()) limit_ = max_untaken_bytes;
  return std::exchange(arrived_, {});
}

void SendQueue::catch_up(double now_s) {
  while (!queue_.empty()) {
    const Transmission& first = queue_.front();
    const std::size_t count = first.arrived(now_s);
    if (count > collected_) arrived_.append(first.bytes, collected_, count - collected_);
    collected_ = std::max(collected_, count);
    if (collected_ < first.bytes.size()) break;
    queue_.pop_front();
    collected_ = 0;
  }
  keep_newest(arrived_, limit_);
}

std::size_t SendQueue::waiting(double now_s) const {
  std::size_t count = arrived_.size();
  for (const Transmission& transmission : queue_) count += transmission.arrived(now_s);
  return std::min(count - collected_, limit_);
}

double SendQueue::next_s(double now_s) const {
  for (const Transmission& transmission : queue_) {
    const std::size_t count = transmission.arrived(now_s);
    if (count < transmission.bytes.size()) return transmission.arrival_s(count);
  }
  return never;
}

void EndlessStream::start(double now_s) {
  if (start_s_) return;
  start_s_ = now_s;
  taken_ = 0;
}

std::uint64_t EndlessStream::sent(double now_s) const { return start_s_ ? bytes_in(now_s - *start_s_) : 0; }

std::string EndlessStream::take(double now_s) {
  const std::uint64_t end = std::max(sent(now_s), taken_);
  std::string bytes;
  for (std::uint64_t i = end - waiting(now_s); i < end; ++i) bytes += meaningless_byte(i);
  taken_ = end;
  return bytes;
}

std::size_t EndlessStream::waiting(double now_s) const {
  const std::uint64_t end = std::max(sent(now_s), taken_);
  return static_cast<std::size_t>(std::min<std::uint64_t>(end - taken_, max_untaken_bytes));
}

double EndlessStream::next_s(double now_s) const {
  const double start_s = start_s_.value_or(now_s);
  return start_s + static_cast<double>(sent(now_s) + 1) / bytes_per_second;
}

}  // namespace halden::simulator
