// One of the programs as a real process, and what it needs around it: a folder, a simulated meter.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <string>

namespace halden {

struct Ended {
  int exit_code;  // the negative signal for a process that was killed
  std::string output, errors;
};

class Program {
 public:
  // The words of the command stand between blanks or in double quotes. A process that runs far too long (90
  // s, of what takes 25 s when the computer has nothing else to do) is killed, so that no wait below is
  // endless.
  explicit Program(const std::string& command, unsigned limit_s = 90) {
    static const bool found = qputenv("PATH", HALDEN_BIN_DIR ":" + qgetenv("PATH"));
    process_.setChildProcessModifier([limit_s] {
      for (const int signal : {SIGINT, SIGTERM, SIGALRM}) ::signal(signal, SIG_DFL);  // nohup hands on others
      ::alarm(limit_s);
    });
    process_.startCommand(QString::fromStdString(command));
    EXPECT_TRUE(found && process_.waitForStarted()) << command;
  }
  ~Program() {
    process_.kill();
    process_.waitForFinished(-1);
  }

  // The next line of its output; empty when that ended before.
  std::string read_line() {
    while (!process_.canReadLine() && process_.waitForReadyRead(-1)) continue;
    return process_.canReadLine() ? process_.readLine().chopped(1).toStdString() : std::string();
  }

  void write(const std::string& line) {
    process_.write((line + "\n").c_str());
    process_.waitForBytesWritten(-1);
  }

  // The next line it says after one on its standard input.
  std::string answer(const std::string& line) {
    write(line);
    return read_line();
  }

  void send_signal(int signal) {
    if (process_.processId() > 0) ::kill(static_cast<pid_t>(process_.processId()), signal);
  }

  // Waits for the end; the output is what was not read yet.
  Ended end() {
    process_.waitForFinished(-1);
    const int code = process_.exitCode();
    return {process_.exitStatus() == QProcess::NormalExit ? code : -code,
            process_.readAllStandardOutput().toStdString(), process_.readAllStandardError().toStdString()};
  }

 private:
  QProcess process_;
};

inline Ended run(const std::string& command) { return Program(command).end(); }

struct TempFolder : QTemporaryDir {
  std::string operator/(const char* name) const { return filePath(name).toStdString(); }

  void write(const char* name, const char* bytes) const {
    QFile file(filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(bytes) >= 0);
  }

  // Empty when there is no such file.
  std::string read(const char* name) const {
    QFile file(filePath(name));
    return file.open(QFile::ReadOnly) ? file.readAll().toStdString() : std::string();
  }
};

// Looks again and again, for 30 s at most.
template <typename Condition>
void wait_until(Condition condition) {
  for (int looks = 0; looks < 1500 && !condition(); ++looks) QThread::msleep(20);
}

// halden-meter with its device under the name `port`.
struct SimulatedMeter {
  explicit SimulatedMeter(const std::string& options = {}, unsigned limit_s = 90)
      : program("halden-meter --link " + port + " " + options, limit_s) {
    EXPECT_NE(program.read_line(), "") << "the meter does not start";
  }

  // Returns when a program has opened the port for good and asked for the status, and waits, taking no input.
  void wait_for_request() {
    wait_until([this] { return program.answer("log") != "0 \"\""; });
  }

  TempFolder folder;
  const std::string port = folder / "meter";
  Program program;
};

}  // namespace halden
