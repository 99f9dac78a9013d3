// The program itself, started as its user starts it.

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <csignal>

namespace halden {

namespace {

struct Halden : QProcess {
  // Starts with the arguments, given as words; %1 among them is the folder.
  explicit Halden(const char* arguments, bool display = true) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment.remove(QLatin1String(variable));
    if (display) environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    setProcessEnvironment(environment);
    QStringList words = QString::fromUtf8(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    start(QStringLiteral(HALDEN_BIN_DIR "/halden"),
          words.replaceInStrings(QStringLiteral("%1"), folder.path()));
  }

  ~Halden() override { kill(), waitForFinished(); }

  int wait() {
    EXPECT_TRUE(waitForFinished(30000));
    EXPECT_EQ(exitStatus(), NormalExit);
    return exitCode();
  }

  QTemporaryDir folder;
};

TEST(Program, AnswersAndRefusesBeforeAnyWindow) {
  struct Case {
    const char* arguments;
    bool display;
    int exit_code;
    const char* output;
    const char* errors;
  };
  const Case cases[] = {
      {"--version", false, 0, "halden 7.0", ""},
      {"--help", false, 0, "--palette", ""},
      {"", false, 1, "", "haldenctl live"},
      {"--nonsense", true, 2, "", "nonsense"},
      {"--com 1=", true, 2, "", "1="},
      {"--workdir /not/there", true, 2, "", "/not/there"},
      {"--palette green", true, 2, "", "green"},
      {"--after soon", true, 2, "", "soon"},
      {"--workdir %1 --after 0.05 --screenshot /not/there.png", true, 1, "", "/not/there.png"}};
  for (const Case& wanted : cases) {
    Halden program(wanted.arguments, wanted.display);
    EXPECT_EQ(program.wait(), wanted.exit_code) << wanted.arguments;
    const QByteArray output = program.readAllStandardOutput();
    const QByteArray errors = program.readAllStandardError();
    EXPECT_TRUE(output.contains(wanted.output)) << wanted.arguments << output.constData();
    EXPECT_TRUE(errors.contains(wanted.errors)) << wanted.arguments << errors.constData();
    EXPECT_EQ(output.isEmpty(), wanted.exit_code != 0) << wanted.arguments;
  }
}

TEST(Program, APictureIsTakenEvenWhereNobodyAnswersTheMessage) {
  Halden program("--workdir %1 --palette dark --after 0.05 --screenshot %1/電表.png");
  EXPECT_EQ(program.wait(), 0);
  EXPECT_TRUE(program.readAllStandardError().contains("Select COM port from the OPTION menu"));
  const QImage image(program.folder.filePath(QStringLiteral("電表.png")));
  EXPECT_GE(image.width(), 1024);
  EXPECT_EQ(image.pixelColor(3, image.height() / 2), QColor("#14171A"));
}

// Whether the process has taken over SIGTERM already.
bool handles_sigterm(qint64 process) {
  QFile status(QStringLiteral("/proc/%1/status").arg(process));
  if (!status.open(QIODevice::ReadOnly)) return false;
  for (const QByteArray& line : status.readAll().split('\n'))
    if (line.startsWith("SigCgt:"))
      return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
  return false;
}

TEST(Program, EndsWhenToldToInTheMiddleOfAWait) {
  // The demo asks its meter for nine seconds before its main window shows.
  Halden program("--demo --workdir %1");
  ASSERT_TRUE(program.waitForStarted());
  const QDeadlineTimer deadline(30000);
  while (!handles_sigterm(program.processId()) && !deadline.hasExpired()) program.waitForFinished(10);
  program.waitForFinished(1000);
  ASSERT_EQ(program.state(), QProcess::Running);
  program.terminate();
  EXPECT_EQ(program.wait(), 0);
}

}  // namespace

}  // namespace halden
