// Shows in a window how much of a file has been read, and takes the user's Cancel.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/clock.h"
#include "screen/window.h"

namespace halden {

// Called again and again with the bytes read so far and the length of the file. The reading ends when it
// returns false.
using FileProgress = std::function<bool(std::uint64_t done, std::uint64_t length)>;

// Controls of a window that are visible while a file is read.
struct ProgressControls {
  std::string_view panel;  // a text
  std::string_view bar;
  std::string_view cancel;
};

class ReadingProgress {
 public:
  // Clock and window outlive this. Nothing is shown of a reading that is over earlier than `shown_after_s`.
  ReadingProgress(Clock& clock, Window& window, const ProgressControls& controls, double shown_after_s = 0);
  ReadingProgress(const ReadingProgress&) = delete;
  ReadingProgress& operator=(const ReadingProgress&) = delete;

  bool runs() const { return runs_; }
  void cancel() { cancelled_ = true; }
  bool cancelled() const { return cancelled_; }

  // What happens between them may call progress().
  void begin() { begin(shown_after_s_); }
  void begin(double shown_after_s);  // instead of the usual time
  void end();
  FileProgress progress();

 private:
  bool show(std::uint64_t done, std::uint64_t length);
  void set_visible(bool visible);

  Clock& clock_;
  Window& window_;
  const ProgressControls controls_;
  const double shown_after_s_;
  bool runs_ = false;
  bool cancelled_ = false;
  double next_s_ = 0;  // when the progress is shown next
};

}  // namespace halden
