#include "platform/virtual/virtual_desktop.h"

#include <algorithm>
#include <utility>

namespace halden {

namespace {

template <typename Answer>
std::optional<Answer> take(std::deque<Answer>& answers) {
  if (answers.empty()) return std::nullopt;
  Answer answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

void VirtualDialogs::message(const Message& message) {
  messages.push_back(message);
  if (while_open) while_open(message);
  if (after_answer) after_answer();
}

bool VirtualDialogs::confirm(const Message& question) {
  questions.push_back(question);
  if (while_open) while_open(question);
  return take(confirm_answers).value_or(false);
}

void VirtualDialogs::tell(const Message& message) { told.push_back(message); }

std::string VirtualDialogs::input(const std::string& prompt, const std::string& title, const std::string&) {
  questions.push_back({prompt, title, Icon::none});
  return take(input_answers).value_or("");
}

std::optional<std::string> VirtualDialogs::open_file(const FileQuestion& question) {
  return next_file(question);
}

std::optional<std::string> VirtualDialogs::save_file(const FileQuestion& question) {
  return next_file(question);
}

std::optional<std::string> VirtualDialogs::next_file(const FileQuestion& question) {
  file_questions.push_back(question);
  return take(file_answers);
}

std::vector<std::string> VirtualDialogs::message_texts() const {
  std::vector<std::string> texts;
  for (const Message& message : messages) texts.push_back(message.text);
  return texts;
}

PageSize VirtualPrinter::page_size() {
  constexpr PageSize a4 = {11906, 16838};
  return orientation_ == Orientation::portrait ? a4 : PageSize{a4.height, a4.width};
}

double VirtualPrinter::text_width(const std::string& text) {
  return static_cast<double>(text.size()) * font.points * 12;  // 0.6 em of 20 units per point
}

bool VirtualPrinter::new_page() {
  pages_.push_back({orientation_, {}, {}});
  return failure == PrintFailure::none;
}

PrintedPage& VirtualPrinter::page() {
  if (pages_.empty()) new_page();
  return pages_.back();
}

void VirtualPrinter::print_line(double left, double top, const std::string& text) {
  page().lines.push_back({left, top, text});
}

void VirtualPrinter::print_window(const std::string& window_name) {
  refused_ = !pages_.empty() && !pages_.front().lines.empty();
  if (!refused_) page().windows.push_back(window_name);
}

PrintFailure VirtualPrinter::finish() {
  if (std::exchange(refused_, false)) return PrintFailure::busy;
  std::vector<PrintedPage> document = std::exchange(pages_, {});
  if (failure == PrintFailure::none && !document.empty()) documents.push_back(std::move(document));
  return failure;
}

bool VirtualShell::open_document(const std::string& path) {
  opened.push_back(path);
  return std::find(documents.begin(), documents.end(), path) != documents.end();
}

}  // namespace halden
