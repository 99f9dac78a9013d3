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

struct Ended {
  int exit_code;
  QString output;
  QString errors;
};

struct Halden : QProcess {
  explicit Halden(const QStringList& arguments, bool display = true) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment.remove(QLatin1String(variable));
    if (display) environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    setProcessEnvironment(environment);
    start(QStringLiteral(HALDEN_BIN_DIR "/halden"), arguments);
  }

  ~Halden() override { kill(), waitForFinished(); }

  Ended wait() {
    EXPECT_TRUE(waitForFinished(30000));
    EXPECT_EQ(exitStatus(), NormalExit);
    return {exitCode(), QString::fromUtf8(readAllStandardOutput()),
            QString::fromUtf8(readAllStandardError())};
  }
};

TEST(Program, HelpAndVersionNeedNoDisplay) {
  const Ended version = Halden({QStringLiteral("--version")}, false).wait();
  EXPECT_EQ(version.exit_code, 0);
  EXPECT_EQ(version.output.trimmed(), QStringLiteral("halden 7.0"));
  const Ended help = Halden({QStringLiteral("--help")}, false).wait();
  EXPECT_EQ(help.exit_code, 0);
  for (const char* option : {"--demo", "--com", "--workdir", "--screenshot", "--after", "--palette"})
    EXPECT_TRUE(help.output.contains(QLatin1String(option))) << option;
}

TEST(Program, WithoutADisplayItNamesTheOtherWay) {
  const Ended ended = Halden({}, false).wait();
  EXPECT_EQ(ended.exit_code, 1);
  EXPECT_TRUE(ended.errors.contains(QStringLiteral("haldenctl live")));
  EXPECT_EQ(ended.errors.trimmed().count(QLatin1Char('\n')), 0);
}

TEST(Program, WrongUsageIsRefused) {
  const std::vector<QStringList> wrong = {{QStringLiteral("--nonsense")},
                                          {QStringLiteral("--com"), QStringLiteral("17=/dev/ttyUSB0")},
                                          {QStringLiteral("--com"), QStringLiteral("1=")},
                                          {QStringLiteral("--workdir"), QStringLiteral("/not/there")},
                                          {QStringLiteral("--palette"), QStringLiteral("green")},
                                          {QStringLiteral("--after"), QStringLiteral("soon")}};
  for (const QStringList& arguments : wrong) {
    const Ended ended = Halden(arguments).wait();
    EXPECT_EQ(ended.exit_code, 2) << arguments.join(QLatin1Char(' ')).toStdString();
    EXPECT_FALSE(ended.errors.isEmpty());
  }
}

struct PictureTest : testing::Test {
  QStringList arguments(const QString& picture) const {
    return {QStringLiteral("--workdir"),    folder.path(),
            QStringLiteral("--palette"),    QStringLiteral("dark"),
            QStringLiteral("--after"),      QStringLiteral("0.05"),
            QStringLiteral("--screenshot"), picture};
  }

  QTemporaryDir folder;
};

TEST_F(PictureTest, IsTakenEvenWhereNobodyAnswersTheMessage) {
  const QString picture = folder.filePath(QStringLiteral("main window.png"));
  const Ended ended = Halden(arguments(picture)).wait();
  EXPECT_EQ(ended.exit_code, 0);
  EXPECT_TRUE(ended.errors.contains(QStringLiteral("Select COM port from the OPTION menu")));
  const QImage image(picture);
  EXPECT_GE(image.width(), 1024);
  EXPECT_EQ(image.pixelColor(3, image.height() / 2), QColor("#14171A"));
}

TEST_F(PictureTest, ThatCannotBeWrittenIsAFailure) {
  EXPECT_EQ(Halden(arguments(QStringLiteral("/not/there/picture.png"))).wait().exit_code, 1);
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
  const QTemporaryDir folder;
  // The demo asks its meter for nine seconds before its main window shows.
  Halden program({QStringLiteral("--demo"), QStringLiteral("--workdir"), folder.path()});
  ASSERT_TRUE(program.waitForStarted());
  const QDeadlineTimer deadline(30000);
  while (!handles_sigterm(program.processId()) && !deadline.hasExpired()) program.waitForFinished(10);
  program.waitForFinished(1000);
  ASSERT_EQ(program.state(), QProcess::Running);
  program.terminate();
  EXPECT_EQ(program.wait().exit_code, 0);
}

}  // namespace

}  // namespace halden
