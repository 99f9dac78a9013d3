#include "logger/transfer.h"

#include <algorithm>

#include "logger/word_file.h"

namespace halden {

namespace {

constexpr double drain_s = 2.0;
constexpr double before_request_s = 1.0;
constexpr std::string_view download_request = "\x04";

constexpr double show_period_s = 0.1;  // of the figures and of the words in the file
constexpr double rate_after_s = 1.0;

}  // namespace

TransferResult Transfer::run(const TransferPlan& plan) {
  result_ = {};
  if (!ask(plan)) {
    result_.end = TransferEnd::cancelled;
    return result_;
  }
  const auto ending = line_.receive_until_silent(silence_s, silence_s, [&](const std::string& received) {
    take(received, plan.unit_bytes);
    return write_and_show(plan);
  });
  if (ending == MeterLine::Ending::cancelled) result_.end = TransferEnd::cancelled;
  if (result_.bytes > 0 || ending == MeterLine::Ending::silent) write_words(plan);
  show();
  return result_;
}

bool Transfer::ask(const TransferPlan& plan) {
  undecoded_.clear();
  words_ = plan.first_line;
  if (!line_.drain(drain_s) || !line_.wait(before_request_s)) return false;
  line_.send(download_request);
  line_.expect_file();
  asked_s_ = last_byte_s_ = shown_s_ = clock_.monotonic_s();
  show();
  line_.wait(plan.after_request_s);
  return true;
}

void Transfer::take(const std::string& received, std::size_t unit_bytes) {
  if (received.empty()) return;
  result_.bytes += received.size();
  last_byte_s_ = clock_.monotonic_s();
  undecoded_ += received;
  const std::size_t whole = undecoded_.size() / unit_bytes * unit_bytes;
  if (whole == 0) return;
  words_ += word_lines(std::string_view(undecoded_).substr(0, whole));
  undecoded_.erase(0, whole);
}

// False when the words could not be written.
bool Transfer::write_and_show(const TransferPlan& plan) {
  const double now_s = clock_.monotonic_s();
  if (now_s - shown_s_ < show_period_s) return true;
  shown_s_ = now_s;
  show();
  return result_.bytes == 0 || write_words(plan);
}

bool Transfer::write_words(const TransferPlan& plan) {
  if (words_.empty() || result_.failure != FileFailure::none) return result_.failure == FileFailure::none;
  result_.failure = files_.append(plan.words_path, words_);
  words_.clear();
  if (result_.failure == FileFailure::none) return true;
  result_.end = TransferEnd::unwritable;
  return false;
}

void Transfer::show() const {
  const double elapsed_s = clock_.monotonic_s() - asked_s_;
  const double receiving_s = last_byte_s_ - asked_s_;
  const double per_second = receiving_s < rate_after_s ? 0 : static_cast<double>(result_.bytes) / receiving_s;
  show_({result_.bytes, elapsed_s, per_second});
}

}  // namespace halden
