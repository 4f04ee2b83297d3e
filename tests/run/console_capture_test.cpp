#include "run/console_capture.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

void PrintTo(const ConsoleEnd& end, std::ostream* out) {
  *out << "kind " << int(end.kind) << " code " << end.code << " " << end.error.text.toStdString() << " "
       << end.error.detail.toStdString();
}

namespace {

const QString kHelper = QStringLiteral(TORVANE_BIN_DIR "/run_console_helper");

/// Collects what a console prints; `onPump` acts as the user.
class Collector : public ConsoleClient {
 public:
  void ReadProcess(const QString& chunk) override {
    EXPECT_FALSE(chunk.isEmpty());
    EXPECT_LE(chunk.size(), 1024);
    text += chunk;
    ++chunks;
  }
  void Pump() override {
    ++pumps;
    onPump();
  }

  QString text;
  int chunks = 0;
  int pumps = 0;
  std::function<void()> onPump = [] {};
};

ConsoleEnd Exited(int code) {
  return {.kind = ConsoleEnd::Kind::Exited, .code = code, .error = {}};
}
ConsoleEnd Signalled(int code) {
  return {.kind = ConsoleEnd::Kind::Signalled, .code = code, .error = {}};
}

/// True when the process ends within two seconds; one that nobody has reaped yet has ended.
bool IsGone(const QString& processId) {
  for (int i = 0; i < 200; ++i) {
    QFile state(u"/proc/%1/stat"_s.arg(processId));
    if (!state.open(QIODevice::ReadOnly) || state.readAll().contains(") Z ")) return true;
    QThread::msleep(10);
  }
  return false;
}

TEST(ConsoleCapture, HandsOnAllOutputAndTheEnd) {
  const struct {
    QString command, text;
    int code;
  } cases[] = {
      {u"cmd.exe"_s, u"Test console\r\n\r\nC:\\T>"_s, 0},
      {u"cmd /k exit 3"_s, u"three\r\nC:\\T>"_s, 3},
      {u"CMD.EXE  /k silent"_s, u""_s, 0},
      {u"cmd /k no last newline"_s, u"half a line"_s, 0},
      {u"cmd /k both"_s, u"out\nerr\nout\rC:\\T>"_s, 0},
      {u"cmd /k bytes"_s, u"*ERROR: ää €\r\r\nC:\\T>"_s, 0},
      {u"cmd /k slow bytes"_s, u"ä€ß"_s, 0},
      {u"cmd /k flood"_s, QString(200000, u'x') + u"\r\nC:\\T>"_s, 0},
      {u"cmd /k early prompt"_s, u"50%>*ERROR late\r\nC:\\T>"_s, 0},
      {u"cmd /k closes"_s, u"bye"_s, 4},
      {u"cmd /k no such mode"_s, u""_s, 2},
      {u'"' + HostFiles::ToDos(kHelper) + u"\" /k silent"_s, u""_s, 0},
      {u"sh -c \"echo one; exit 7\""_s, u"one\n"_s, 7},
  };
  ConsoleCapture console(kHelper);
  for (const auto& [command, text, code] : cases) {
    Collector collector;
    EXPECT_EQ(console.RunProcess(command, QString(), collector), Exited(code)) << command.toStdString();
    EXPECT_EQ(collector.text, text) << command.toStdString();
    // Printing byte by byte does not make pieces of one byte.
    if (command == u"cmd /k bytes") {
      EXPECT_LE(collector.chunks, 4);
    }
    EXPECT_EQ(console.ProcessID(), 0);
    EXPECT_EQ(console.CommandLine(), QString());
  }
}

TEST(ConsoleCapture, RunsInTheGivenDirectoryWithoutInputInAGroupOfItsOwn) {
  const QTemporaryDir dir;
  const QString folder = dir.path() + u"/Größe [1]"_s;
  ASSERT_TRUE(QDir().mkdir(folder));
  Collector collector;
  ConsoleCapture console(kHelper);
  EXPECT_EQ(console.RunProcess(u"cmd /k place"_s, HostFiles::ToDos(folder), collector), Exited(0));
  EXPECT_EQ(collector.text, folder + u" nothing to read own group"_s);
}

TEST(ConsoleCapture, TellsWhyItCannotRun) {
  Collector collector;
  const auto refused = [](std::uint32_t number, const QString& text, const QString& detail) {
    return ConsoleEnd{ConsoleEnd::Kind::NotRun, 0, {number, u"ConsoleCapture"_s, text, detail}};
  };
  const QString launching = u"An error occured while launching the process"_s;
  ConsoleCapture missing(u"/nowhere/torvane-cmd"_s);
  EXPECT_EQ(missing.RunProcess(u"cmd.exe"_s, QString(), collector),
            refused(0x80040192, launching, u"/nowhere/torvane-cmd: No such file or directory"_s));
  ConsoleCapture console(kHelper);
  EXPECT_EQ(console.RunProcess(u"cmd.exe"_s, u"Z:\\nowhere"_s, collector),
            refused(0x80040192, launching, u"/nowhere: No such file or directory"_s));

  collector.onPump = [&] {
    EXPECT_GT(console.ProcessID(), 0);
    EXPECT_EQ(console.CommandLine(), u"cmd /k early prompt"_s);
    Collector second;
    EXPECT_EQ(console.RunProcess(u"cmd.exe"_s, QString(), second),
              refused(0x80040190, u"A process is already running"_s, QString()));
  };
  EXPECT_EQ(console.RunProcess(u"cmd /k early prompt"_s, QString(), collector), Exited(0));
  EXPECT_GT(collector.pumps, 0);
}

TEST(ConsoleCapture, ACrashIsToldAndNothingOfItRunsOn) {
  Collector collector;
  ConsoleCapture console(kHelper);
  EXPECT_EQ(console.RunProcess(u"cmd /k crash"_s, QString(), collector), Signalled(SIGKILL));
  const QStringList lines = collector.text.split(u'\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_EQ(lines[0], u"before"_s);
  EXPECT_TRUE(IsGone(lines[1]));
}

TEST(ConsoleCapture, DoesNotWaitForWhatRunsOnInTheBackground) {
  QElapsedTimer timer;
  timer.start();
  Collector collector;
  EXPECT_EQ(ConsoleCapture(kHelper).RunProcess(u"cmd /k background"_s, QString(), collector), Exited(0));
  EXPECT_LT(timer.elapsed(), 5000);
  const int background = collector.text.trimmed().toInt();
  ASSERT_GT(background, 1);
  EXPECT_EQ(kill(background, SIGKILL), 0) << "it should still be running";
}

TEST(ConsoleCapture, TerminateEndsTheWholeGroupAtTheSecondCallByForce) {
  for (const auto& [command, calls, signal] :
       {std::tuple(u"cmd /k hang"_s, 1, SIGTERM), std::tuple(u"cmd /k stubborn"_s, 2, SIGKILL)}) {
    ConsoleCapture console(kHelper);
    Collector collector;
    collector.onPump = [&, left = calls]() mutable {
      if (collector.text.endsWith(u'\n') && left-- > 0) console.Terminate();
    };
    EXPECT_EQ(console.RunProcess(command, QString(), collector), Signalled(signal));
    EXPECT_TRUE(IsGone(collector.text.trimmed())) << command.toStdString();
  }
}

TEST(ConsoleCapture, CancelStopsListeningOnly) {
  ConsoleCapture console(kHelper);
  Collector collector;
  std::int32_t process = 0;
  collector.onPump = [&] {
    process = console.ProcessID();
    if (!collector.text.isEmpty()) console.Cancel();
  };
  EXPECT_EQ(console.RunProcess(u"cmd /k hang"_s, QString(), collector).kind, ConsoleEnd::Kind::Cancelled);
  EXPECT_EQ(console.ProcessID(), 0);
  EXPECT_EQ(kill(-process, SIGKILL), 0) << "it should still be running";
}

}  // namespace
}  // namespace torvane
