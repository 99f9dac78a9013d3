#include "cli/logger_progress.h"

#include <utility>

#include "logger/logger_form.h"

namespace halden {

namespace {

constexpr std::string_view no_rate = "-";

std::string without_blanks_around(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(' ');
  return begin == std::string::npos ? std::string()
                                    : text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

std::string figures_of(const Window& logger) {
  const auto panels = transfer_panels();
  const std::string& received = logger[panels[0].value].text;
  const std::string& rate = logger[panels[1].value].text;
  if (received.empty()) return {};
  return received + (rate == no_rate ? std::string() : ", " + rate) + ", " + logger[panels[2].value].text;
}

}  // namespace

LoggerProgress::LoggerProgress(const Window& logger, const Window& notice, Terminal& terminal)
    : logger_(logger), notice_(notice), terminal_(terminal), shown_(now()) {}

LoggerProgress::Shown LoggerProgress::now() const {
  return {logger_[transfer_note].text, figures_of(logger_),
          notice_.visible() ? without_blanks_around(notice_["Text1"].text) : std::string()};
}

void LoggerProgress::show() {
  const Shown before = std::exchange(shown_, now());
  if (shown_.note != before.note)
    terminal_.progress("The meter is still sending. Ctrl-C stops waiting for its end.");
  else if (shown_.figures != before.figures)
    terminal_.progress(file_of_run() + shown_.figures);
  else if (shown_.step != before.step && !shown_.step.empty())
    terminal_.progress(file_of_run() + shown_.step);
}

// Empty unless all files are downloaded in one run.
std::string LoggerProgress::file_of_run() const {
  const Control& name = logger_[download_name.value];
  if (!name.visible || name.text.empty()) return {};
  return name.text + ", " + logger_[file_of_total].text + ": ";
}

}  // namespace halden
