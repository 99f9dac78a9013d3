// The parts of the platform that a command does not use, or only partly: no message boxes, no printer, no
// documents, and no files or only those of the recording. Messages are kept, because the command decides how
// to report them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/configuration.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/pictures.h"
#include "platform/printer.h"
#include "platform/shell.h"

namespace halden {

// Every message is answered at once, every question with no.
class RememberingDialogs : public Dialogs {
 public:
  void message(const Message& message) override { last_message_ = message.text; }
  bool confirm(const Message&) override { return false; }
  void tell(const Message&) override {}
  std::string input(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> open_file(const FileQuestion&) override { return std::nullopt; }
  std::optional<std::string> save_file(const FileQuestion&) override { return std::nullopt; }

  // Empty when there was none.
  const std::string& last_message() const { return last_message_; }

 private:
  std::string last_message_;
};

class NoPrinter : public Printer {
 public:
  void set_target(const PrintTarget&) override {}
  void set_orientation(Orientation) override {}
  void set_font(const PrintFont&) override {}
  PageSize page_size() override { return {}; }
  double text_width(const std::string&) override { return 0.0; }
  double line_height() override { return 0.0; }
  void print_line(double, double, const std::string&) override {}
  bool new_page() override { return false; }
  void print_window(const std::string&) override {}
  PrintFailure finish() override { return PrintFailure::no_printer; }
  void discard() override {}
};

class NoPictures : public Pictures {
 public:
  void copy_chart(const Chart&) override {}
  void copy_dots(const DotPicture&) override {}
  void copy_text(const std::string&) override {}
  FileFailure save_chart(const Chart&, const std::string&) override { return FileFailure::failed; }
  FileFailure save_dots(const DotPicture&, const std::string&) override { return FileFailure::failed; }
};

class SilentShell : public Shell {
 public:
  explicit SilentShell(std::function<void()> end) : end_(std::move(end)) {}
  bool open_document(const std::string&) override { return false; }
  void beep() override {}
  void end_program() override { end_(); }

 private:
  std::function<void()> end_;
};

// An empty folder in which nothing can be written: the configuration files of the program with windows are
// neither read nor written.
class NoFiles : public Files {
 public:
  bool exists(const std::string&) override { return false; }
  FilePiece read(const std::string&, std::uint64_t, std::size_t) override {
    return {FileFailure::not_found, {}};
  }
  OpenedFile open(const std::string&) override { return {FileFailure::not_found}; }
  FileFailure append(const std::string&, std::string_view) override { return FileFailure::forbidden; }
  FileFailure replace(const std::string&, std::string_view) override { return FileFailure::forbidden; }
  CreatedFile create(const std::string&) override { return {FileFailure::forbidden}; }
  FileFailure remove(const std::string&) override { return FileFailure::none; }
  FileFailure rename(const std::string&, const std::string&) override { return FileFailure::forbidden; }
  std::optional<std::uint64_t> length(const std::string&) override { return std::nullopt; }
};

// For a command that writes files: the files on the disk, except that the configuration of the program with
// windows is neither read nor written.
class RecordedFiles : public Files {
 public:
  // `disk` outlives this.
  explicit RecordedFiles(Files& disk) : disk_(disk) {}

  bool exists(const std::string& path) override { return disk_.exists(path); }
  FilePiece read(const std::string& path, std::uint64_t offset, std::size_t max_bytes) override {
    if (is_configuration_file(path)) return {FileFailure::not_found, {}};
    return disk_.read(path, offset, max_bytes);
  }
  OpenedFile open(const std::string& path) override {
    if (is_configuration_file(path)) return {FileFailure::not_found};
    return disk_.open(path);
  }
  FileFailure append(const std::string& path, std::string_view bytes) override {
    return disk_.append(path, bytes);
  }
  FileFailure replace(const std::string& path, std::string_view bytes) override {
    return is_configuration_file(path) ? FileFailure::forbidden : disk_.replace(path, bytes);
  }
  CreatedFile create(const std::string& path) override { return disk_.create(path); }
  FileFailure remove(const std::string& path) override { return disk_.remove(path); }
  FileFailure rename(const std::string& path, const std::string& new_path) override {
    return disk_.rename(path, new_path);
  }
  std::optional<std::uint64_t> length(const std::string& path) override { return disk_.length(path); }

 private:
  Files& disk_;
};

}  // namespace halden
