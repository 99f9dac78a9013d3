// What a command of haldenctl works with: the program connected to a meter, and the user's terminal.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cli/port_argument.h"
#include "cli/process_io.h"

namespace halden {

struct Program;

// Exit codes.
inline constexpr int exit_done = 0;
inline constexpr int exit_failed = 1;
inline constexpr int exit_wrong_usage = 2;

// The output to the user who typed the command.
class Terminal {
 public:
  virtual ~Terminal() = default;

  // Results, for people and for other programs; they reach the reader at once.
  virtual void print(const std::string& results) = 0;

  // The size of the screen on which results can be replaced by escape sequences; nothing when a program or a
  // file takes them.
  virtual std::optional<ScreenSize> screen() const = 0;

  // A remark while the command continues, in one sentence.
  virtual void note(const std::string& sentence) = 0;

  // What the command does now, for somebody who watches it: one line that vanishes with the next output, and
  // only on a terminal.
  virtual void progress(const std::string& sentence) = 0;

  // The command ends: done, or failed for the reason given in one sentence. Only the first call counts.
  virtual void done() = 0;
  virtual void failed(const std::string& sentence) = 0;
};

// The program without windows, connected to the meter for the length of one command.
class Session : public Terminal {
 public:
  // Starts the program up on the port; when the meter has sent its status and is being polled, runs
  // `command`. Then the event loop runs until the command ends. Returns the exit code. When
  // the port does not open or the meter does not answer, the command is not run: it has failed.
  virtual int run(const std::function<void()>& command) = 0;

  // From now on an interruption runs `finish`, which ends the command.
  virtual void on_interruption(std::function<void()> finish) = 0;

  // The same for a command that must leave the meter and its files in order, and ends by itself: `handler`
  // runs once for every interruption. A reader of its results who has gone does not end it.
  virtual void on_each_interruption(std::function<void()> handler) = 0;

  // Calls the handler every `period_ms` while the session runs.
  virtual void every(int period_ms, std::function<void()> handler) = 0;

  virtual Program& program() = 0;

  // The text of the last message of the program; empty when there was none.
  virtual const std::string& last_message() const = 0;
};

// Whether an interruption by Ctrl-C or a request to terminate is the normal end of a command or its failure.
enum class Interruption { is_end, is_failure };

// The files of a command: none at all, or those of the disk. The configuration of the program with windows is
// neither read nor written. What a command keeps beside its results goes into the current folder, or into a
// private one that is removed at the end.
enum class FileAccess { none, disk, disk_and_private_folder };

using OpenSession =
    std::function<std::unique_ptr<Session>(const PortArgument& port, Interruption, FileAccess)>;

}  // namespace halden
