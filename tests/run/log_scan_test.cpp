#include "run/log_scan.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

void PrintTo(const RunMark& mark, std::ostream* out) {
  *out << "{" << mark.from << ", " << mark.length << "}";
}

namespace {

using Marks = std::vector<RunMark>;

class LogScanTest : public testing::Test {
 protected:
  /// The marked texts of one scan of `text`, in the order of the rows.
  QStringList Found(int engine, const QString& runMode, const QString& text) const {
    Transcript transcript([](const QString&) {});
    transcript.AddShown(text);
    LogScan scan(engine, runMode, TempDir());
    QStringList found;
    for (const RunMark& mark : scan.ScanConsoleOutput(transcript)) found << text.mid(mark.from, mark.length);
    return found;
  }

  QString TempDir() const { return HostFiles::ToDos(dir_.path()); }

  QTemporaryDir dir_;
};

TEST_F(LogScanTest, FindsTheWordsOfTheEngineAndRunMode) {
  const QString dump = u"open_stackdumpfile: Dumping stack trace to dvdauthor.exe.stackdump"_s;
  const struct {
    int engine;
    std::string runModes;  ///< those in which the text is an error; e stands for ""
    QString text;
    QString marked;
  } cases[] = {
      {0, "0e", u"x*ERROR y\r\n"_s, u"*ERROR y"_s},
      {1, "0e", u"x*ERROR y\r\n"_s, u"*ERROR y"_s},
      {0, "", u"*error\r\n"_s, u""_s},
      {0, "1", u"ERR:  Parse error 'x' on token\r\n"_s, u"ERR:  Parse error 'x' on token"_s},
      {1, "1", u"ERR:  Parse error\r\n"_s, u"ERR:  Parse error"_s},
      {0, "01e", u"Error in parsing XML\n"_s, u"Error in parsing XML"_s},
      {1, "", u"Error in parsing XML\n"_s, u""_s},
      {1, "01e", u"a\nRejected b\r\n"_s, u"\nRejected b"_s},
      {0, "", u"a\nRejected b\r\n"_s, u""_s},
      {0, "0", u"a\nERR: b\nc"_s, u"\nERR: b"_s},
      {1, "", u"a\nERR: b\nc"_s, u""_s},
      {0, "0", u"a\rERR: b\rc"_s, u"\rERR: b"_s},
      {1, "0", u"a\rERR: b\rc"_s, u"\rERR: b"_s},
      {0, "", u"ERR: at the very start"_s, u""_s},
      {0, "", u"a ERR: in the middle"_s, u""_s},
      {0, "0", u"a\nassertion failed"_s, u"\nassertion failed"_s},
      {0, "0", u"a\nbefore "_s + dump + u"\nafter"_s, u"before "_s + dump + u"\n"_s},
      {0, "", u"a\nbefore "_s + dump, u""_s},
      {1, "0", u"a\nAudio type not recognized\r\n"_s, u"\nAudio type not recognized"_s},
      {1, "0", u"a\nMultiplex operation failed\r\n"_s, u"\nMultiplex operation failed"_s},
      {1, "0", u"a\nReference to non-existant scene x"_s, u"\nReference to non-existant scene x"_s},
      {1, "0", u"a\r\nSyntax error: line 3"_s, u"Syntax error: line 3"_s},
      {0, "", u"line 3: Syntax error"_s, u""_s},
      {0, "", u""_s, u""_s},
  };
  for (const auto& c : cases) {
    for (const char mode : {'0', '1', 'e'}) {
      const QString runMode = mode == 'e' ? QString() : QString(QLatin1Char(mode));
      const bool isError = c.runModes.find(mode) != std::string::npos;
      EXPECT_EQ(Found(c.engine, runMode, c.text), isError ? QStringList{c.marked} : QStringList())
          << c.engine << " " << mode << " " << c.text.toStdString();
    }
  }
}

TEST_F(LogScanTest, MarksTheFirstHitOfEachRowInOrder) {
  const QString text = u"1\nERR: one\r\nERR: two\r\n*ERROR three\r\n"_s;
  EXPECT_EQ(Found(0, u"0"_s, text), (QStringList{u"*ERROR three"_s, u"\nERR: one"_s}));
  EXPECT_EQ(Found(1, u"0"_s, u"a: Syntax error: b\r\n"_s),
            (QStringList{u": Syntax error: b"_s, u"a: Syntax error: b\r\n"_s}));
}

TEST_F(LogScanTest, MarksUpToALineEndOfTheFirstKindThatComes) {
  EXPECT_EQ(Found(0, u"1"_s, u"Error in parsing XML\ra\nb\r\nc"_s), QStringList{u"Error in parsing XML\ra\nb"_s});
  EXPECT_EQ(Found(0, u"1"_s, u"Error in parsing XML\ra\nb"_s), QStringList{u"Error in parsing XML\ra"_s});
  EXPECT_EQ(Found(0, u"1"_s, u"Error in parsing XML\ra"_s), QStringList{u"Error in parsing XML"_s});
}

TEST_F(LogScanTest, LooksAtEachTextOnceButForItsLastCharacter) {
  Transcript transcript([](const QString&) {});
  LogScan scan(0, u"0"_s, TempDir());
  EXPECT_EQ(scan.CheckedUpTo(), 1);
  EXPECT_EQ(scan.ScanConsoleOutput(transcript), Marks{});
  EXPECT_EQ(scan.CheckedUpTo(), 0);
  transcript.Add(u"ERR: first\n"_s);
  EXPECT_EQ(scan.ScanConsoleOutput(transcript), Marks{});
  EXPECT_EQ(scan.CheckedUpTo(), 11);
  transcript.Add(u"ERR: second\n"_s);
  EXPECT_EQ(scan.ScanConsoleOutput(transcript), (Marks{{10, 12}}));
  EXPECT_EQ(scan.ScanConsoleOutput(transcript), Marks{});
}

TEST_F(LogScanTest, ACrashedSpumuxIsAnErrorInEveryMode) {
  ASSERT_TRUE(HostFiles::WriteAtomically(TempDir() + u"\\spumux.exe.stackdump"_s, ""));
  const QString line = u"*ERROR spumux crashed (stackdump)\r\n"_s;
  for (const QString& runMode : {u"0"_s, u"1"_s, QString()}) {
    Transcript transcript([](const QString&) {});
    transcript.Add(u"text\r\n"_s);
    LogScan scan(1, runMode, TempDir());
    EXPECT_EQ(scan.ScanConsoleOutput(transcript), (Marks{{6, line.size()}}));
    EXPECT_EQ(transcript.Shown(), u"text\r\n"_s + line);
    EXPECT_EQ(transcript.ConsoleText(), u"text\r\n"_s + line);
    EXPECT_EQ(scan.CheckedUpTo(), transcript.Shown().size());
  }
}

}  // namespace
}  // namespace torvane
