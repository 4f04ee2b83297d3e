#include "compilers/disc_checks.h"
#include "compilers/project_findings.h"
#include "compilers/temporary_names.h"
#include "compilers/written_values.h"

#include <gtest/gtest.h>

#include <QFile>

#include "core/audio_title_set.h"
#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class DiscChecksTest : public testing::Test {
 protected:
  DiscChecksTest() : project_(test::FixedSettings()) {
    test::BuildTwoFilms(project_);
    project_.ProjectFile = u"C:\\x.tvn"_s;
  }

  static void Touch(const QString& path) { ASSERT_TRUE(HostFiles::WriteAtomically(path, "x")); }
  static bool Exists(const QString& path) { return HostFiles::FileExists(path) || HostFiles::DirExists(path); }

  const test::DriveC drive_{{u"O/DVD/VIDEO_TS/sub"_s, u"O/DVD/AUDIO_TS"_s, u"T"_s, u"iso"_s, u"v"_s}};
  Project project_;
};

TEST_F(DiscChecksTest, AnOldDiscIsReplacedOnlyWhenTheUserAgrees) {
  test::RecordingPrompter prompter({Answer::Cancel, Answer::Ok});
  EXPECT_TRUE(AgreesToReplaceDisc(project_, prompter));
  TellOfFormerDisc(project_, prompter);
  EXPECT_EQ(prompter.boxes.size(), 0U);
  Touch(u"C:\\O\\DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s);
  EXPECT_FALSE(AgreesToReplaceDisc(project_, prompter));
  EXPECT_TRUE(AgreesToReplaceDisc(project_, prompter));
  EXPECT_EQ(
      prompter.boxes.at(0),
      (Box{.kind = BoxKind::Question,
           .buttons = BoxButtons::OkCancel,
           .text = u"The VIDEO_TS folder contains files; these should be deleted before a new DVD is created. Shall "
                   u"Torvane try to delete the files?"_s,
           .title = u"Delete (old) VIDEO_TS folder"_s}));
  TellOfFormerDisc(project_, prompter);
  EXPECT_TRUE(prompter.boxes.back().text.contains(u"/O/DVD/VIDEO_TS holds a former disc, which stays there."));
  EXPECT_TRUE(Exists(u"C:\\O\\DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s));
}

TEST_F(DiscChecksTest, AnOldImageIsReplacedOnlyWhenTheUserAgrees) {
  project_.Settings.CreateISO = true;
  project_.Settings.ISOPath = u"C:\\iso"_s;
  project_.Settings.ISO_Name = u"Film"_s;
  test::RecordingPrompter prompter({Answer::Cancel, Answer::Ok});
  EXPECT_TRUE(AgreesToReplaceImage(project_, prompter));
  ASSERT_TRUE(QFile::link(drive_.Host(u"nowhere"_s), drive_.Host(u"iso/Film.ISO"_s)));
  EXPECT_FALSE(AgreesToReplaceImage(project_, prompter));
  EXPECT_TRUE(AgreesToReplaceImage(project_, prompter));
  ASSERT_EQ(prompter.boxes.size(), 2U);
  EXPECT_EQ(prompter.boxes[0].text, u"The ISO image: C:\\iso\\Film.ISO already exists.\r\nOverwrite it?"_s);
}

TEST_F(DiscChecksTest, TheRoomOfTheFormerDiscIsOfferedWhereItWouldSuffice) {
  const qint64 free = HostFiles::DriveFreeMB(u"C:\\"_s).value();
  const qint64 formerMB = 8000;
  QFile former(drive_.Host(u"O/DVD/VIDEO_TS/VTS_01_1.VOB"_s));
  ASSERT_TRUE(former.open(QIODevice::WriteOnly) && former.resize(formerMB * 1048576));  // sparse
  project_.Settings.TempDir = u"Z:\\tmp"_s;
  project_.Tree.SetCaption(u"FPTS1"_s, u"TotalSize(MB)=0"_s);
  project_.Tree.SetCaption(u"FPTS2"_s, u"TotalSize(MB)=0"_s);
  project_.Tree.SetCaption(u"TS"_s, u"TotalSize(MB)="_s + QString::number(free + formerMB / 2));
  test::RecordingPrompter gives({Answer::Yes});
  EXPECT_EQ(CheckFreeSpace(project_, gives), FormerFate::DeletedFirst);
  ASSERT_EQ(gives.boxes.size(), 1U);
  EXPECT_TRUE(gives.boxes[0].text.contains(u"the former disc and image take 8000 MB. Delete them before"));
  EXPECT_EQ(gives.boxes[0].preselected, Answer::No);
  test::RecordingPrompter keeps({Answer::No, Answer::Ok});
  EXPECT_EQ(CheckFreeSpace(project_, keeps), FormerFate::SetAside);
  EXPECT_EQ(keeps.boxes.size(), 2U);
  EXPECT_TRUE(former.exists());
}

TEST_F(DiscChecksTest, AsksForEachSpaceThatIsTooSmall) {
  project_.Tree.SetCaption(u"TS"_s, u"TotalSize(MB)=900000000"_s);
  project_.Tree.SetCaption(u"FPTS1"_s, u"TotalSize(MB)=700000000"_s);
  project_.Tree.SetCaption(u"FPTS2"_s, u"TotalSize(MB)=0"_s);
  project_.Settings.CreateISO = true;
  project_.Settings.ISOPath = u"C:\\iso"_s;
  test::RecordingPrompter agrees;
  EXPECT_TRUE(CheckFreeSpace(project_, agrees));
  const QStringList needed{u"2500000100"_s, u"1800000100"_s, u"1600000100"_s, u"900000000"_s,
                           u"1600000100"_s, u"700000000"_s,  u"900000000"_s};
  ASSERT_EQ(agrees.boxes.size(), size_t(needed.size()));
  for (qsizetype i = 0; i < needed.size(); ++i) {
    EXPECT_TRUE(agrees.boxes[i].text.startsWith(u"The free space on drive C: seem to be to small!\r\nSpace needed: " +
                                                needed[i] + u"  Space available: "))
        << agrees.boxes[i].text.toStdString();
  }
  test::RecordingPrompter refuses({Answer::Ok, Answer::Cancel});
  EXPECT_FALSE(CheckFreeSpace(project_, refuses));
  EXPECT_EQ(refuses.boxes.size(), 2U);

  project_.Tree.SetCaption(u"TS"_s, u"TotalSize(MB)=1"_s);
  project_.Tree.SetCaption(u"FPTS1"_s, u"TotalSize(MB)=0"_s);
  EXPECT_TRUE(CheckFreeSpace(project_, refuses));
  EXPECT_EQ(refuses.boxes.size(), 2U);
}

TEST_F(DiscChecksTest, LoopingMenusWithoutMotionAreNamed) {
  for (const QString& menu : {u"MM"_s, u"MM1"_s}) {
    test::AddNode(project_, menu + u"BG", menu + u"BGLoop|Loop=1");
  }
  test::RecordingPrompter prompter({Answer::No});
  EXPECT_FALSE(CheckLoopingMenus(project_, prompter));
  ASSERT_EQ(prompter.boxes.size(), 1U);
  // The submenu holds its Back button only.
  EXPECT_EQ(
      prompter.boxes[0].text,
      u"The following menus are designed as looping, but do not contain any animated elements:\r\nMainMenu\r\n\r\n"
      u"This is usually not indended as it results in a strange behavior of highlighting.\r\nContinue?"_s);
  EXPECT_EQ(prompter.boxes[0].preselected, Answer::No);

  for (const QString& moving :
       {u"MMBGAudio|Audio=C:\\a.ac3"_s, u"MMBGAni|Animation=C:\\a.m2v"_s, u"MMBGTrans|Transition=1"_s}) {
    test::AddNode(project_, u"MMBG"_s, moving);
    EXPECT_TRUE(CheckLoopingMenus(project_, prompter)) << moving.toStdString();
    project_.Tree.Remove(moving.section(u'|', 0, 0));
  }
  for (const auto& [value, loops] : {std::pair(u"0"_s, false), {u""_s, false}, {u"01"_s, true}}) {
    project_.Tree.SetCaption(u"MMBGLoop"_s, u"Loop="_s + value);
    EXPECT_EQ(CheckLoopingMenus(project_, prompter), !loops) << value.toStdString();
  }
  for (const QString& button : {u"MMB1"_s, u"MMB2"_s, u"MMB3"_s}) project_.Tree.Remove(button + u"Action");
  EXPECT_TRUE(CheckLoopingMenus(project_, prompter));
}

TEST_F(DiscChecksTest, ARunThatWouldDestroySourcesIsRefused) {
  const auto refused = [this](const QString& source) {
    project_.Tree.SetCaption(u"FPV1"_s, u"Video="_s + source);
    Touch(source);
    test::RecordingPrompter prompter;
    const bool safe = TellFindings(SourceSafetyFindings(project_) + TemporaryNameFindings(project_), prompter);
    return safe ? QString() : prompter.boxes.at(0).text;
  };
  EXPECT_EQ(refused(u"C:\\v\\a.m2v"_s), QString());
  EXPECT_TRUE(
      refused(u"C:\\o\\dvd\\VIDEO_TS\\a.vob"_s).contains(u"a.vob of the project lies in the folder of the disc"));
  ASSERT_TRUE(QFile::link(drive_.Host(u"O/DVD"_s), drive_.Host(u"v/disc"_s)));
  EXPECT_TRUE(
      refused(u"C:\\v\\disc\\video_ts\\a.vob"_s).contains(u"a.vob of the project lies in the folder of the disc"));
  EXPECT_EQ(refused(u"C:\\T\\a.m2v"_s), QString());
  EXPECT_TRUE(refused(u"C:\\T\\film2.mpg"_s).contains(u"C:\\T\\Film2.mpg"));
  project_.Settings.AutoDelete = true;
  EXPECT_TRUE(refused(u"C:\\T\\a.m2v"_s).contains(u"T/a.m2v of the project lies in the temporary directory"));
}

TEST_F(DiscChecksTest, TwoFilmsOfOneNameAreRefused) {
  project_.Tree.SetCaption(u"FP2"_s, u"Name=FILM1"_s);
  test::RecordingPrompter prompter;
  EXPECT_FALSE(TellFindings(TemporaryNameFindings(project_), prompter));
  ASSERT_EQ(prompter.boxes.size(), 1U);
  EXPECT_TRUE(prompter.boxes[0].text.contains(u"Films 1 and 2"));
}

TEST_F(DiscChecksTest, SourcesThatTheVideoBatchWouldLoseAreRefused) {
  project_.Settings.AutoDelete = false;
  const QString song = u"C:\\T\\TempAudioMpg\\song.ac3"_s;
  const QString image = u"C:\\T\\FPA3#02.png"_s;
  AddAudioTitleSetSubtree(
      project_, {.Name = u"Songs"_s, .Titles = {{song, {}, {}, {}, image, 0}, {u"C:\\v\\2.ac3"_s, {}, {}, {}, {}, 0}}},
      u"MM"_s, 3);
  test::RecordingPrompter prompter;
  EXPECT_FALSE(TellFindings(TemporaryNameFindings(project_), prompter));
  ASSERT_EQ(prompter.boxes.size(), 1U);
  const QStringList lines = prompter.boxes[0].text.split(u"\r\n"_s);
  ASSERT_EQ(lines.size(), 2);
  EXPECT_TRUE(lines[0].startsWith(u"The file " + image +
                                  u" is a source of the project and would be overwritten by a temporary"));
  EXPECT_TRUE(lines[1].startsWith(u"The file " + song + u" is a source of the project and lies in a folder"));
}

TEST_F(DiscChecksTest, AFilmNamedLikeAFileOfTheProgramIsRefused) {
  test::AddNode(project_, u"FP1"_s, u"FP1S1|SubTitel1=C:\\v\\a.srt"_s);
  const std::pair<QString, bool> names[] = {
      {u"*"_s, false},      {u"intro"_s, false},    {u"INTRO"_s, false},    {u"EmptyBackg"_s, false},
      {u"MMMenu"_s, false}, {u"mm1backg"_s, false}, {u"MMBackgN"_s, false}, {u"film1_sub1"_s, false},
      {u"Film1"_s, false},  {u"Author"_s, true},    {u"MM2Menu"_s, true},   {u"Film1_SUB2"_s, true}};
  test::AddNode(project_, u"MMBG"_s, u"MMBGAudio|Audio=C:\\v\\a.ac3"_s);
  project_.Settings.UseInsnavForMenus = true;
  for (const auto& [name, taken] : names) {
    project_.Tree.SetCaption(u"FP2"_s, u"Name=" + name);
    test::RecordingPrompter prompter;
    EXPECT_EQ(
        TellFindings(TryWriters(project_).Refused, prompter) && TellFindings(TemporaryNameFindings(project_), prompter),
        taken)
        << name.toStdString();
    EXPECT_EQ(prompter.boxes.size(), taken ? 0U : 1U);
    for (const Box& box : prompter.boxes) EXPECT_TRUE(box.text.contains(name)) << box.text.toStdString();
  }
}

TEST_F(DiscChecksTest, AMissingIntroIsNamed) {
  project_.Settings.UseIntro = true;
  project_.Settings.IntroMovie = u"C:\\v\\intro.mpg"_s;
  test::RecordingPrompter prompter;
  EXPECT_FALSE(CheckIntro(project_, prompter));
  EXPECT_EQ(prompter.boxes.at(0).text, u"Error: Intro video C:\\v\\intro.mpg not found!"_s);
  Touch(u"C:\\v\\intro.mpg"_s);
  EXPECT_TRUE(CheckIntro(project_, prompter));
}

}  // namespace
}  // namespace torvane
