#include "cli/edit_commands.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "cli/commands.h"
#include "core/project_file.h"
#include "platform/host_files.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Runs commands on "C:\p.tvn", which holds two films and a submenu.
class EditCommandsTest : public testing::Test {
 protected:
  EditCommandsTest() {
    qputenv("TORVANE_DRIVE_C", dir_.path().toUtf8());
    for (const QString& name : {u"O"_s, u"T"_s, u"s"_s}) QDir(dir_.path()).mkdir(name);
    EXPECT_TRUE(HostFiles::WriteAtomically(u"C:\\i.png"_s, "picture"));
    Project project(test::FixedSettings());
    test::BuildTwoFilms(project);
    project.ProjectFile = u"C:\\p.tvn"_s;
    EXPECT_TRUE(SaveProject(project, prompter_));
  }
  ~EditCommandsTest() override { qunsetenv("TORVANE_DRIVE_C"); }

  int Run(const QStringList& arguments) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code =
        RunCli(QStringList{u"--profile"_s, u"C:\\s"_s, u"--set"_s, u"OutDir=C:\\O"_s, u"--set"_s, u"TempDir=C:\\T"_s} +
               arguments);
    out_ = QString::fromStdString(testing::internal::GetCapturedStdout());
    error_ = QString::fromStdString(testing::internal::GetCapturedStderr());
    error_.remove(u'\r').remove(kMissing_);
    return code;
  }

  QString CaptionIn(const QString& file, const QString& key) {
    Project project(test::FixedSettings());
    EXPECT_TRUE(LoadProject(project, file, prompter_));
    const ProjectNode* node = project.Tree.Find(key);
    return node ? node->Caption() : u"(none)"_s;
  }

  QTemporaryDir dir_;
  test::RecordingPrompter prompter_;
  QString out_;
  QString error_;
  /// The films of the project do not exist.
  static inline const QRegularExpression kMissing_{
      u"(info|warning|error): The following resources could not be found\n(?:[A-Z]:\\\\.*\n)+"_s};
};

TEST_F(EditCommandsTest, EachDoesOneThingAndSaves) {
  struct Case {
    QStringList arguments;  // behind the project
    QString key;
    QString caption;
  };
  const Case cases[] = {
      {{u"add-menu"_s, u"--text"_s, u"Extras"_s, u"--at"_s, u"40,50"_s}, u"MM2B0Action"_s, u"Action=jump menu 1;"_s},
      {{u"add-menu"_s, u"--text=Extras"_s, u"--menu"_s, u"MM1"_s}, u"MM1B1Text"_s, u"Text=Extras"_s},
      {{u"add-button"_s, u"Off"_s, u"--action"_s, u"exit;"_s, u"--at"_s, u"40,50"_s}, u"MMBP4Left"_s, u"Left=40"_s},
      {{u"add-button"_s, u"x"_s, u"--action"_s, u"Play_all"_s, u"--style"_s, u"graphic"_s},
       u"MMB4FixedSize"_s,
       u"FixedSize=1"_s},
      {{u"add-label"_s, u"Summer"_s, u"--menu"_s, u"MM1"_s}, u"MM1L37Text"_s, u"Text=Summer"_s},
      {{u"add-image"_s, u"C:\\i.png"_s}, u"MMI1File"_s, u"C:\\i.png"_s},
      {{u"add-animation"_s, u"C:\\i.png"_s}, u"MMS01"_s, u"Ani=C:\\i.png"_s},
      {{u"delete"_s, u"F2"_s}, u"MMB2"_s, u"(none)"_s},
      {{u"delete"_s, u"MMM1"_s}, u"MM1"_s, u"(none)"_s},
      {{u"set"_s, u"MMBGPath"_s, u"C:\\i.png"_s}, u"MMBGPath"_s, u"Image=C:\\i.png"_s},
      {{u"align"_s, u"bottom"_s, u"MMB1"_s, u"MMB2"_s}, u"MMBP1Top"_s, u"Top=180"_s},
      {{u"copy-layout"_s, u"MM"_s, u"MM1"_s, u"--parts"_s, u"00010000"_s}, u"MM1B36"_s, u"FreeButton1"_s},
      {{u"shrink"_s, u"150"_s}, u"FPVShrinkTo1"_s, u"ShrinkTo(MB)=74"_s},
  };
  for (const Case& c : cases) {
    QStringList arguments = c.arguments;
    arguments.insert(1, u"C:\\p.tvn"_s);
    EXPECT_EQ(Run(arguments + QStringList{u"-o"_s, u"C:\\out.tvn"_s}), kExitDone) << error_.toStdString();
    EXPECT_EQ(CaptionIn(u"C:\\out.tvn"_s, c.key).toStdString(), c.caption.toStdString()) << arguments.join(u' ').toStdString();
  }
  EXPECT_EQ(CaptionIn(u"C:\\p.tvn"_s, u"MMB2"_s), u"FilmButton2");
  EXPECT_EQ(Run({u"add-label"_s, u"C:\\p.tvn"_s, u"Here"_s}), kExitDone);
  EXPECT_EQ(CaptionIn(u"C:\\p.tvn"_s, u"MML37Text"_s), u"Text=Here");
}

TEST_F(EditCommandsTest, TellWhyNothingWasDone) {
  struct Case {
    QStringList arguments;
    int code;
    QString error;
  };
  const Case cases[] = {
      {{u"add-label"_s, u"C:\\p.tvn"_s, u"x"_s, u"--menu"_s, u"TS1"_s},
       kExitFailed,
       u"error: The project has no menu TS1\n"_s},
      {{u"add-label"_s, u"C:\\p.tvn"_s, u"x"_s, u"--at"_s, u"40"_s},
       kExitFailed,
       u"error: --at takes a place within 720 by 576 as X,Y, not \"40\".\n"_s},
      {{u"add-label"_s, u"C:\\p.tvn"_s, u"x"_s, u"--type"_s, u"40"_s},
       kExitUsage,
       u"torvane-cli: The command add-label takes no --type.\nTry: torvane-cli --help\n"_s},
      {{u"add-image"_s, u"C:\\p.tvn"_s, u"C:\\no.png"_s}, kExitFailed, u"error: There is no picture C:\\no.png\n"_s},
      {{u"add-chapters"_s, u"C:\\p.tvn"_s}, kExitFailed, u"info: Nothing selected\n"_s},
      {{u"add-playlist"_s, u"C:\\p.tvn"_s, u"1"_s, u"01"_s},
       kExitFailed,
       u"error: Playlists are for existing films, and for MuxMan alone.\n"_s},
      {{u"delete"_s, u"C:\\p.tvn"_s, u"MMBG"_s}, kExitFailed, u"error: MMBG is nothing that can be deleted.\n"_s},
      {{u"delete"_s, u"C:\\p.tvn"_s, u"F1"_s}, kExitFailed, u"info: Only the last video can be deleted\n"_s},
      {{u"--assume"_s, u"no"_s, u"delete"_s, u"C:\\p.tvn"_s, u"F2"_s},
       kExitFailed,
       u"question: Associated submenus are deleted too. \n Delete?\nFilm2 [Cancel]\n"_s},
      {{u"set"_s, u"C:\\p.tvn"_s, u"MMHCT1"_s, u"100"_s}, kExitFailed, u"info: Wrong number\n"_s},
      {{u"set"_s, u"C:\\p.tvn"_s, u"MMHT1"_s, u"0"_s}, kExitFailed, u"error: MMHT1 does not take the value \"0\".\n"_s},
      {{u"align"_s, u"C:\\p.tvn"_s, u"vertical"_s, u"MMB1"_s, u"MMB2"_s},
       kExitFailed,
       u"info: Error: 3 or more objects necessary\n"_s},
      {{u"copy-layout"_s, u"C:\\p.tvn"_s, u"MM"_s, u"MM1"_s, u"--parts"_s, u"2"_s},
       kExitFailed,
       u"error: --parts takes eight characters, each 0 or 1.\n"_s},
  };
  const QByteArray before = *HostFiles::Read(u"C:\\p.tvn"_s);
  for (const Case& c : cases) {
    EXPECT_EQ(Run(c.arguments), c.code) << c.arguments.join(u' ').toStdString();
    EXPECT_EQ(error_.toStdString(), c.error.toStdString()) << c.arguments.join(u' ').toStdString();
  }
  EXPECT_EQ(*HostFiles::Read(u"C:\\p.tvn"_s), before);
}

TEST_F(EditCommandsTest, InfoTellsContentsAndFindings) {
  ASSERT_EQ(Run({u"info"_s, u"C:\\p.tvn"_s}), kExitDone);
  EXPECT_EQ(out_.toStdString(),
            R"(Project: C:\p.tvn
Format: one titleset, PAL, 4:3, dvdauthor
Size: 201 MB
Size bar: single-layer disc, green to 28.944 of 720 pixels
Films: 2
  F1 "Film1" 100 MB, , x, 25 fps, , 1 chapters, 0 audio files, 0 subtitle files
      C:\v\a.m2v
  F2 "Film2" 100 MB, , x, 25 fps, , 1 chapters, 0 audio files, 0 subtitle files
      C:\v\b.m2v
Menus:
  MM "MainMenu" 4:3, 3 buttons of 36, 0 labels, 0 images, 0 animations
  MM1 "MainSubMenu1" 4:3, 1 buttons of 36, 0 labels, 0 images, 0 animations
Findings:
  missing file: C:\v\a.m2v
  missing file: C:\v\b.m2v
)");
}

}  // namespace
}  // namespace torvane
