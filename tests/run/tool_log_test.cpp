#include "run/tool_log.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using enum ToolLog::Moment;

class ToolLogTest : public testing::Test {
 protected:
  ToolLogTest() { HostFiles::MakeDir(Out(u"DVD\\VIDEO_TS"_s)); }

  QString Out(const QString& relative) const { return HostFiles::ToDos(dir_.path()) + u'\\' + relative; }
  void Check(ToolLog::Moment moment) { muxMan_.CheckMuxManLogFile(moment); }
  void Append(const QString& file, const QByteArray& text) { ASSERT_TRUE(HostFiles::Append(Out(file), text)); }

  QTemporaryDir dir_;
  Transcript transcript_{[](const QString&) {}};
  int pauses_ = 0;
  std::function<void(int)> onPause_ = [](int) {};
  ToolLog muxMan_{ToolLog::Tool::MuxMan, HostFiles::ToDos(dir_.path()), transcript_, [this](int ms) {
                    EXPECT_EQ(ms, 50);
                    ++pauses_;
                    onPause_(ms);
                  }};
};

TEST_F(ToolLogTest, TakesWhatTheLogGainedEachTime) {
  Check(Running);
  EXPECT_EQ(transcript_.Shown(), QString());
  Append(u"muxman.log"_s, "first\r\n");
  Check(Running);
  Check(Running);
  Append(u"muxman.log"_s, u"C:\\Größe\r\n"_s.toLatin1());
  Check(Running);
  Append(u"muxman.log"_s, u"C:\\Größe\r\n"_s.toUtf8());
  Append(u"DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s, "x");
  Check(Final);
  EXPECT_EQ(transcript_.Shown(), u"first\r\nC:\\Größe\r\nC:\\Größe\r\n"_s);
  EXPECT_EQ(transcript_.ConsoleText(), transcript_.Shown());
  EXPECT_EQ(pauses_, 0);
}

TEST_F(ToolLogTest, WaitsForTheLogAtTheEnd) {
  onPause_ = [this](int) {
    if (pauses_ == 3) Append(u"muxman.log"_s, "late");
  };
  Append(u"DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s, "x");
  Check(Final);
  EXPECT_EQ(transcript_.Shown(), u"late"_s);
  EXPECT_EQ(pauses_, 3);
}

TEST_F(ToolLogTest, AMissingLogIsNoFailureButAMissingDiscIs) {
  Append(u"DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s, "x");
  Check(Final);
  EXPECT_EQ(pauses_, 19);
  EXPECT_EQ(transcript_.Shown(), QString());

  HostFiles::RemoveFile(Out(u"DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s));
  Append(u"muxman.log"_s, "fine");
  Check(Final);
  EXPECT_EQ(transcript_.Shown(), u"fine\r\n\rERR: MuxMan error!\r\n"_s);
  EXPECT_EQ(transcript_.ConsoleText(), u"fine\r\nMuxMan error!"_s);
}

TEST_F(ToolLogTest, ImgBurnLeavesNoDiscAndALogThatShrinksGivesNothing) {
  ToolLog imgBurn(ToolLog::Tool::ImgBurn, HostFiles::ToDos(dir_.path()), transcript_, [](int) {});
  Append(u"ImgBurn.log"_s, "old text");
  imgBurn.CheckMuxManLogFile(Running);
  ASSERT_TRUE(HostFiles::WriteAtomically(Out(u"ImgBurn.log"_s), "new"));
  imgBurn.CheckMuxManLogFile(Running);
  Append(u"ImgBurn.log"_s, "er");
  imgBurn.CheckMuxManLogFile(Final);
  EXPECT_EQ(transcript_.Shown(), u"old texter"_s);
}

}  // namespace
}  // namespace torvane
