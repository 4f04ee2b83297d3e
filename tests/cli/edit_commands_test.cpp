#include <QImage>

#include "cli_bench.h"
#include "support/golden.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Commands on "C:\p.tvn", which holds two films and a submenu.
class EditCommandsTest : public test::CliTest {
 protected:
  EditCommandsTest() {
    for (const QString& name : {u"v/a.m2v"_s, u"v/b.m2v"_s}) drive_.Write(name, test::FilmHead());
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::white);
    EXPECT_TRUE(picture.save(drive_.Host(u"i.png"_s)));
    Project project(test::FixedSettings());
    test::BuildTwoFilms(project);
    project.ProjectFile = u"C:\\p.tvn"_s;
    test::RecordingPrompter prompter;
    EXPECT_TRUE(SaveProject(project, prompter));
  }

  QString CaptionIn(const QString& file, const QString& key) { return Captions(file, key).section(u'\n', 0, 0); }
};

TEST_F(EditCommandsTest, EachDoesOneThingAndSaves) {
  const struct {
    QString line;
    QString key;
    QString caption;
  } cases[] = {
      {uR"(add-menu C:\p.tvn --text Extras --at 40,50)"_s, u"MM2B0Action"_s, u"Action=jump menu 1;"_s},
      {uR"(add-menu C:\p.tvn --text=Extras --menu MM1)"_s, u"MM1B1Text"_s, u"Text=Extras"_s},
      {uR"(add-button C:\p.tvn Off --action exit; --at 40,50)"_s, u"MMBP4Left"_s, u"Left=40"_s},
      {uR"(add-button C:\p.tvn x --action Play_all --style graphic)"_s, u"MMB4FixedSize"_s, u"FixedSize=1"_s},
      {uR"(add-label C:\p.tvn Summer --menu MM1)"_s, u"MM1L37Text"_s, u"Text=Summer"_s},
      {uR"(add-image C:\p.tvn C:\i.png)"_s, u"MMI1File"_s, u"C:\\i.png"_s},
      {uR"(add-animation C:\p.tvn C:\i.png)"_s, u"MMS01"_s, u"Ani=C:\\i.png"_s},
      {uR"(delete C:\p.tvn F2)"_s, u"MMB2"_s, u""_s},
      {uR"(delete C:\p.tvn MMM1)"_s, u"MM1"_s, u""_s},
      {uR"(set C:\p.tvn MMBGPath C:\i.png)"_s, u"MMBGPath"_s, u"Image=C:\\i.png"_s},
      {uR"(align C:\p.tvn bottom MMB1 MMB2)"_s, u"MMBP1Top"_s, u"Top=180"_s},
      {uR"(copy-layout C:\p.tvn MM MM1 --parts 00010000)"_s, u"MM1B36"_s, u"FreeButton1"_s},
      {uR"(shrink C:\p.tvn 150)"_s, u"FPVShrinkTo1"_s, u"ShrinkTo(MB)=74"_s},
  };
  for (const auto& [line, key, caption] : cases) {
    EXPECT_EQ(Run(line + uR"( -o C:\out.tvn)"), kExitDone) << error_.toStdString();
    EXPECT_EQ(CaptionIn(u"C:\\out.tvn"_s, key), caption) << line.toStdString();
    EXPECT_TRUE(HostFiles::RemoveFile(u"C:\\out.tvn"_s));
  }
  EXPECT_EQ(CaptionIn(u"C:\\p.tvn"_s, u"MMB2"_s), u"FilmButton2");
  EXPECT_EQ(Run(uR"(add-label C:\p.tvn Here)"_s), kExitDone);
  EXPECT_EQ(CaptionIn(u"C:\\p.tvn"_s, u"MML37Text"_s), u"Text=Here");
}

TEST_F(EditCommandsTest, TellWhyNothingWasDone) {
  const struct {
    QString line;
    QString error;
    int code = kExitFailed;
  } cases[] = {
      {uR"(add-label C:\p.tvn x --menu TS1)"_s, u"error: The project has no menu TS1\n"_s},
      {uR"(add-label C:\p.tvn x --at 40)"_s, u"error: --at takes a place within 720 by 576 as X,Y, not \"40\".\n"_s},
      {uR"(--set VideoNormPal=0 add-label C:\p.tvn x --at 40,480)"_s,
       u"error: --at takes a place within 720 by 480 as X,Y, not \"40,480\".\n"_s},
      {uR"(add-label C:\p.tvn x --type 40)"_s,
       u"torvane-cli: The command add-label takes no --type.\nTry: torvane-cli --help\n"_s, kExitUsage},
      {uR"(add-image C:\p.tvn C:\no.png)"_s, u"error: There is no picture C:\\no.png\n"_s},
      {uR"(set C:\p.tvn MMBGPath C:\no.png)"_s, u"error: There is no picture C:\\no.png\n"_s},
      {uR"(set C:\p.tvn MMBGPath C:\v\a.m2v)"_s,
       u"error: The file C:\\v\\a.m2v holds no picture that can be read; give a PNG, JPG, BMP or GIF.\n"_s},
      {uR"(set C:\p.tvn MMB9Text x)"_s, u"error: The project has no node MMB9Text.\n"_s},
      {uR"(add-chapters C:\p.tvn)"_s, u"info: Nothing selected\n"_s},
      {uR"(add-playlist C:\p.tvn 1 01)"_s, u"error: Playlists are for existing films, and for MuxMan alone.\n"_s},
      {uR"(delete C:\p.tvn MMBG)"_s, u"error: MMBG is nothing that can be deleted.\n"_s},
      {uR"(delete C:\p.tvn F1)"_s, u"info: Only the last video can be deleted\n"_s},
      {uR"(--assume no delete C:\p.tvn F2)"_s,
       u"question: Associated submenus are deleted too. \n Delete?\nFilm2 [Cancel]\n"_s},
      {uR"(set C:\p.tvn MMHCT1 100)"_s, u"info: Wrong number\n"_s},
      {uR"(set C:\p.tvn MMHT1 0)"_s, u"error: MMHT1 does not take the value \"0\".\n"_s},
      {uR"(align C:\p.tvn vertical MMB1 MMB2)"_s, u"info: Error: 3 or more objects necessary\n"_s},
      {uR"(copy-layout C:\p.tvn MM MM1 --parts 2)"_s, u"error: --parts takes eight characters, each 0 or 1.\n"_s},
  };
  const QByteArray before = *HostFiles::Read(u"C:\\p.tvn"_s);
  for (const auto& [line, error, code] : cases) {
    EXPECT_EQ(Run(line), code) << line.toStdString();
    EXPECT_EQ(error_, error) << line.toStdString();
  }
  EXPECT_EQ(*HostFiles::Read(u"C:\\p.tvn"_s), before);
}

TEST_F(EditCommandsTest, InfoTellsContentsAndFindings) {
  ASSERT_TRUE(HostFiles::RemoveFile(u"C:\\v\\a.m2v"_s));
  QByteArray sameNames = *HostFiles::Read(u"C:\\p.tvn"_s);
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\p.tvn"_s, sameNames.replace("Name=Film2", "Name=film1")));
  ASSERT_EQ(Run(uR"(info C:\p.tvn)"_s), kExitDone);
  test::ExpectGolden(out_.replace(drive_.Path(), u"(drive C)"_s).toUtf8(), u"info.txt"_s);
}

}  // namespace
}  // namespace torvane
