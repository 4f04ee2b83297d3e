#include "core/start_command.h"

#include <gtest/gtest.h>

#include "support/drive_c.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class StartCommandTest : public testing::Test {
 protected:
  StartCommandTest() {
    for (const QString& name : {u"a.m2v"_s, u"My.Film.MPG"_s, u"a.ac3"_s, u"b.AC3"_s, u"c.txt"_s, u"p.tvn"_s, u"bad.m2v"_s}) {
      drive_.Write(name);
    }
  }

  StartCommand Parse(const QString& line) {
    return ParseStartCommand(line, [](const QString& path) { return !path.contains(u"bad"); }, prompter_);
  }

  std::optional<StartFilm> ReadFilm(const QString& line) {
    const StartCommand command = Parse(line);
    EXPECT_EQ(command.kind, StartKind::AddFilm) << line.toStdString();
    const auto isAudio = [](const QString& path) { return path.endsWith(u".ac3", Qt::CaseInsensitive); };
    return ReadStartFilm(command, settings_, isAudio, prompter_);
  }

  test::DriveC drive_;
  Settings settings_;
  test::RecordingPrompter prompter_;
};

TEST_F(StartCommandTest, RefusesWhatItCannotUse) {
  EXPECT_EQ(Parse({}), StartCommand{});
  EXPECT_EQ(Parse(u"\"C:\\none.tvn\""_s), StartCommand{});
  EXPECT_EQ(prompter_.Told(), QStringList{u"Projectfile: C:\\none.tvn not found"_s});
  for (const QString& line : {u"C:\\a.m2v"_s, u"C:\\p.tvn /format=PAL"_s}) {
    EXPECT_EQ(Parse(line), StartCommand{}) << line.toStdString();
    EXPECT_EQ(prompter_.Told(), QStringList{u"Wrong commandline syntax!\r\nCommandline: "_s + line});
  }
  for (const QString& line :
       {uR"("C:\p.tvn" /format="PAL")"_s, uR"("C:\a.m2v)"_s, uR"("" "C:\a.m2v")"_s, uR"("C:\none.m2v")"_s,
        uR"("C:\a.ac3")"_s, uR"("C:\bad.m2v")"_s}) {
    EXPECT_EQ(Parse(line), StartCommand{}) << line.toStdString();
    EXPECT_EQ(prompter_.Told(), QStringList{u"Wrong Videofile type or file not found\r\nCommandline: "_s + line});
  }
}

TEST_F(StartCommandTest, OpensAProjectWithAndWithoutQuotes) {
  for (const QString& line : {u"\"C:\\p.tvn\""_s, u"C:\\P.TVN"_s}) {
    const StartCommand command = Parse(line);
    EXPECT_EQ(command.kind, StartKind::LoadProject);
    EXPECT_TRUE(HostFiles::FileExists(command.projectFile)) << command.projectFile.toStdString();
  }
  EXPECT_EQ(prompter_.Told(), QStringList());
}

TEST_F(StartCommandTest, TakesNormAndTitleSetsIntoTheSettings) {
  using Flag = std::optional<bool>;
  const struct {
    QString options;
    Flag isPal;
    Flag noTitleSets;
  } cases[] = {
      {{}, {}, {}},
      {u"/format=\"NTSC\" /usetitlesets=\"OFF\""_s, false, true},
      {u"/UseTitleSets=\"on\"  /FORMAT=\"pal\""_s, true, false},
      {u"/format=\"anything PAL\" /usetitlesets=\"\""_s, {}, {}},
      {u"/format=\"   PAL\" /usetitlesets=\"  OFF\""_s, true, true},
      {u"/format=\"    NTSC\" /usetitlesets=\"    OFF\""_s, {}, {}},
      {u"/format=PAL /usetitlesets=\"ON"_s, {}, {}},
  };
  for (const auto& [options, isPal, noTitleSets] : cases) {
    const StartCommand command = Parse(u"\"C:\\a.m2v\" "_s + options);
    EXPECT_EQ(command.VideoNormPal, isPal) << options.toStdString();
    EXPECT_EQ(command.NoTitleSets, noTitleSets) << options.toStdString();
    for (const bool former : {false, true}) {
      Settings settings;
      settings.VideoNormPal = settings.NoTitleSets = former;
      Settings expected = settings;
      expected.InDir = u"C:"_s;
      expected.VideoNormPal = isPal.value_or(former);
      expected.NoTitleSets = noTitleSets.value_or(former);
      FollowVideoNorm(expected);
      ApplyStartCommand(command, settings);
      EXPECT_TRUE(settings == expected) << options.toStdString();
    }
  }
}

TEST_F(StartCommandTest, ReadsSoundAndChaptersOfTheFilm) {
  const QString a = u"C:\\a.ac3"_s;
  const QString b = u"C:\\b.AC3"_s;
  const QString start = u"00:00:00.000"_s;
  const struct {
    QString rest;
    std::array<QString, 3> audio;
    QString chapters;
    QString chapterFile;
    int wrong = 0;
  } cases[] = {
      {{}, {}, start, {}},
      {u" \"C:\\a.ac3\" \"C:\\b.AC3\" \"C:\\a.ac3\" \"C:\\b.AC3\" /format=\"PAL\""_s, {a, b, a}, start, {}},
      {u" \"C:\\none.ac3\" \"C:\\b.AC3\" \"C:\\c.txt\""_s, {QString(), b}, start, {}, 2},
      {u" /format=\"PAL\" \"C:\\a.ac3\""_s, {}, start, {}},
      {uR"( "C:\a.ac3" /chapters="00:00:00,00:01:00" /chapterfile="C:\c.txt")"_s, {a}, u"00:00:00,00:01:00"_s,
       u"C:\\c.txt"_s},
      {u" /Chapters=   \"00:00:01\" /chapterfile=\"C:\\none.txt\""_s, {}, start, {}},
      {u" \"C:\\a.ac3"_s, {}, start, {}},
  };
  for (const auto& [rest, audio, chapters, chapterFile, wrong] : cases) {
    const StartFilm expected{.film = {.Name = u"a"_s, .VideoFile = u"C:\\a.m2v"_s, .Audio = audio, .Chapters = chapters},
                             .chapterFile = chapterFile};
    EXPECT_TRUE(ReadFilm(u"\"C:\\A.M2V\""_s + rest) == expected) << rest.toStdString();
    EXPECT_EQ(prompter_.Told().size(), wrong) << rest.toStdString();
  }
  ReadFilm(u"\"C:\\a.m2v\" \"C:\\c.txt\""_s);
  EXPECT_EQ(prompter_.Told(), QStringList{u"Wrong Audiofile: C:\\c.txt\r\nCommandline: \"C:\\a.m2v\" \"C:\\c.txt\""_s});
}

TEST_F(StartCommandTest, AMultiplexedVideoTakesNoSound) {
  const QString line = u"\"C:\\My.Film.MPG\" \"C:\\a.ac3\" \"C:\\none.ac3\""_s;
  const StartFilm expected{.film = {.Name = u"My"_s, .VideoFile = u"C:\\My.Film.MPG"_s}};
  EXPECT_TRUE(ReadFilm(line) == expected);
  EXPECT_EQ(prompter_.Told(),
            QStringList{u"Add. audio files are not allowed for multiplexed videos (MPG Video files)\r\n"
                        u"Videofile: C:\\My.Film.MPG"_s});
  settings_.Engine = 1;
  EXPECT_FALSE(ReadFilm(line));
  EXPECT_EQ(prompter_.Told(), QStringList{u"VideoFile not found: My.Film.MPG"_s});
}

TEST_F(StartCommandTest, ArgumentsThatArrivedApartAreJoined) {
  const QString here = HostFiles::ToDos(QDir::currentPath());
  const struct {
    QStringList arguments;
    QString line;
  } cases[] = {
      {{}, {}},
      {{u"/v/my film.m2v"_s, u"C:\\a.ac3"_s, u"/Format=PAL"_s, u"/chapterfile=/v/c.txt"_s, u"/chapters=\"0,1\""_s},
       u"\"Z:\\v\\my film.m2v\" \"C:\\a.ac3\" /Format=\"PAL\" /chapterfile=\"Z:\\v\\c.txt\" /chapters=\"0,1\""_s},
      {{u"films/p.tvn"_s}, u"\""_s + here + u"\\films\\p.tvn\""},
      {{u"\"C:/p.tvn\""_s}, u"\"C:\\p.tvn\""_s},
  };
  for (const auto& [arguments, line] : cases) EXPECT_EQ(JoinArguments(arguments), line);
  EXPECT_EQ(Parse(JoinArguments({drive_.Host(u"p.tvn"_s)})).kind, StartKind::LoadProject);
}

}  // namespace
}  // namespace torvane
