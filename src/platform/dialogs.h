// Everything the program says to or asks of its user in a box. Logic decides the text and gives it in full;
// nothing is added to it here.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace halden {

enum class Icon { none, information, question, exclamation, critical };

// What the Enter key answers to a question.
enum class Preset { yes, no };

struct Message {
  std::string text;
  std::string title;
  Icon icon = Icon::none;
  Preset preset = Preset::yes;
};

// One line of a file dialog's filter list: "csv Files(*.csv)" with "*.csv".
struct FileFilter {
  std::string caption;
  std::string pattern;
};

struct FileQuestion {
  std::vector<FileFilter> filters;
  std::string default_extension;  // with its dot; added to a name typed without one
  std::string suggested_name;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // Shows the text with an OK button and waits for it. Timers go on meanwhile.
  virtual void message(const Message& message) = 0;

  // Asks with Yes and No.
  virtual bool confirm(const Message& question) = 0;

  // Shows the text without waiting, one box per text at a time: for messages from a timer tick.
  virtual void tell(const Message& message) = 0;

  // Empty when cancelled.
  virtual std::string input(const std::string& prompt, const std::string& title,
                            const std::string& initial) = 0;

  // The chosen path in UTF-8; nothing when cancelled. The save dialog asks nothing about overwriting.
  virtual std::optional<std::string> open_file(const FileQuestion& question) = 0;
  virtual std::optional<std::string> save_file(const FileQuestion& question) = 0;
};

}  // namespace halden
