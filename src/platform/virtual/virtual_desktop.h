// Dialogs that answer from a script, a printer that keeps its pages, a desktop that only records what it
// was asked.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "platform/pictures.h"
#include "platform/printer.h"
#include "platform/shell.h"

namespace halden {

class VirtualDialogs : public Dialogs {
 public:
  void message(const Message& message) override;
  bool confirm(const Message& question) override;
  void tell(const Message& message) override;
  std::string input(const std::string& prompt, const std::string& title, const std::string& initial) override;
  std::optional<std::string> open_file(const FileQuestion& question) override;
  std::optional<std::string> save_file(const FileQuestion& question) override;

  // The script: the answers to the next questions. A question without an answer is declined or cancelled.
  std::deque<bool> confirm_answers;
  std::deque<std::string> input_answers;
  std::deque<std::string> file_answers;

  // What was shown and asked, oldest first.
  std::vector<Message> messages;
  std::vector<Message> questions;
  std::vector<Message> told;
  std::vector<FileQuestion> file_questions;

  // Called when a box has been answered; ends the handler when the program has ended meanwhile.
  std::function<void()> after_answer;

  // Runs while a message or a question is on the screen, before it is answered.
  std::function<void(const Message&)> while_open;

  // The texts of all messages, for comparing in one line.
  std::vector<std::string> message_texts() const;

 private:
  std::optional<std::string> next_file(const FileQuestion& question);
};

struct PrintedLine {
  double left, top;
  std::string text;
  bool operator==(const PrintedLine&) const = default;
};

struct PrintedPage {
  Orientation orientation = Orientation::portrait;
  std::vector<PrintedLine> lines;
  std::vector<std::string> windows;
};

class VirtualPrinter : public Printer {
 public:
  std::vector<std::string> printers() override { return names; }
  void set_target(const PrintTarget& wanted) override { target = wanted; }
  void set_orientation(Orientation orientation) override { orientation_ = orientation; }
  void set_font(const PrintFont& wanted) override { font = wanted; }
  PageSize page_size() override;
  double text_width(const std::string& text) override;
  double line_height() override { return font.points * 24; }  // 1.2 em
  void print_line(double left, double top, const std::string& text) override;
  bool new_page() override;
  void print_window(const std::string& window_name) override;
  PrintFailure finish() override;
  void discard() override { pages_.clear(); }
  std::string destination() const override { return "LaserJet & Co"; }

  std::vector<std::vector<PrintedPage>> documents;  // finished ones
  PrintFailure failure = PrintFailure::none;        // what finish() says; nothing is printed then
  PrintFont font;                                   // of the lines
  std::vector<std::string> names;                   // of the printers that are set up
  PrintTarget target;

 private:
  PrintedPage& page();

  Orientation orientation_ = Orientation::portrait;
  std::vector<PrintedPage> pages_;
  bool refused_ = false;  // a window, while lines are printed
};

// Keeps the path of each saved picture, and what was copied last.
class VirtualPictures : public Pictures {
 public:
  void copy_chart(const Chart&) override { ++copied_charts; }
  void copy_dots(const DotPicture& picture) override { copied_dots = picture; }
  void copy_text(const std::string& text) override { copied_text = text; }
  FileFailure save_chart(const Chart&, const std::string& path) override { return save(path); }
  FileFailure save_dots(const DotPicture&, const std::string& path) override { return save(path); }

  int copied_charts = 0;
  DotPicture copied_dots;
  std::string copied_text;
  std::vector<std::string> saved;
  FileFailure failure = FileFailure::none;

 private:
  FileFailure save(const std::string& path) {
    saved.push_back(path);
    return failure;
  }
};

class VirtualShell : public Shell {
 public:
  bool open_document(const std::string& path) override;
  void beep() override { ++beeps; }
  void end_program() override { ended = true; }

  std::vector<std::string> opened;
  std::vector<std::string> documents;  // those that exist
  int beeps = 0;
  bool ended = false;
};

}  // namespace halden
