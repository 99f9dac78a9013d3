#include "filetools/reading_progress.h"

namespace halden {

namespace {

constexpr double show_every_s = 0.1;
constexpr int whole = 1000;

}  // namespace

ReadingProgress::ReadingProgress(Clock& clock, Window& window, const ProgressControls& controls,
                                 double shown_after_s)
    : clock_(clock), window_(window), controls_(controls), shown_after_s_(shown_after_s) {
  window_.on_press(controls_.cancel, [this] { cancel(); });
}

void ReadingProgress::begin(double shown_after_s) {
  runs_ = true;
  cancelled_ = false;
  window_.set_range(controls_.bar, 0, whole);
  window_.set_value(controls_.bar, 0);
  next_s_ = clock_.monotonic_s() + (shown_after_s > 0 ? shown_after_s : show_every_s);
  if (shown_after_s > 0) return;
  set_visible(true);
  let_events_run(clock_);
}

void ReadingProgress::end() {
  set_visible(false);
  runs_ = false;
}

FileProgress ReadingProgress::progress() {
  return [this](std::uint64_t done, std::uint64_t length) { return show(done, length); };
}

bool ReadingProgress::show(std::uint64_t done, std::uint64_t length) {
  const double now_s = clock_.monotonic_s();
  if (now_s >= next_s_ && length > 0) {
    next_s_ = now_s + show_every_s;
    set_visible(true);
    window_.set_value(controls_.bar, static_cast<int>(done * whole / length));
    let_events_run(clock_);
  }
  return !cancelled_;
}

void ReadingProgress::set_visible(bool visible) {
  for (const std::string_view name : {controls_.panel, controls_.bar, controls_.cancel})
    window_.set_visible(name, visible);
}

}  // namespace halden
