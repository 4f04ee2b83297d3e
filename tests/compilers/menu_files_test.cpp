#include "compilers/menu_files.h"

#include <gmock/gmock.h>

#include "render/menu_fixture.h"
#include "support/harmless_values.h"
#include "support/shell_command.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class MenuFiles : public test::MenuFixture {
 protected:
  HighlightFiles Highlights(const ComposedMenu& composed) const {
    return WriteHighlightFiles(Menu(), composed, test::Harmless(project_.Settings));
  }
  QString Shell(const QString& command) const { return test::ShellCommand(dir_.path(), command); }
};

TEST_F(MenuFiles, AreThoseOfTheMenusForms) {
  test::AddButton(project_, u"MM"_s, 1, u"Film"_s, {100, 100, 200, 80});
  test::AddButton(project_, u"MM"_s, 2, u" "_s, {400, 100, 50, 30}, {u"NormVis=0"_s});
  const QStringList still{u"MMHigh.png"_s, u"MMAct.png"_s, u"MMBackg.png"_s, u"MMSpu.xml"_s};
  EXPECT_THAT(MenuFileNames(Compose(), Highlights(Compose())), testing::UnorderedElementsAreArray(still));
  EXPECT_EQ(Highlights(Compose()).Spu.count("<button "), 1) << "one that cannot be selected is none";

  project_.Settings.DefMenuRatio = true;
  const ComposedMenu wide = Compose();
  const QStringList more = still + QStringList{u"MMHighL.png"_s, u"MMActL.png"_s, u"MMSpuL.xml"_s};
  EXPECT_THAT(MenuFileNames(wide, Highlights(wide)), testing::UnorderedElementsAreArray(more));
  EXPECT_TRUE(Highlights(wide).SpuL.contains("MMHighL.png"));
  ASSERT_TRUE(WriteMenuFiles(wide, Highlights(wide), project_.Settings.TempDir));
  for (const QString& name : more) EXPECT_TRUE(QFile::exists(dir_.filePath(name))) << name.toStdString();
}

TEST_F(MenuFiles, AreTakenBySpumux) {
  test::AddButton(project_, u"MM"_s, 1, u"First\r\nbutton"_s, {100, 100, 200, 80}, {u"FontSize=28"_s});
  test::AddButton(project_, u"MM"_s, 2, u""_s, {400, 100, 200, 80}, {u"NormVis=0"_s});
  test::AddButton(project_, u"MM"_s, 3, u" "_s, {100, 300, 80, 40});
  test::AddMask(project_, u"MMB3"_s, HalfMask(), u"100"_s, u"1"_s);
  project_.Tree.SetCaption(u"MMHCT1"_s, u"Transparenz=41%"_s);
  project_.Settings.DefMenuRatio = true;
  Shell(u"ffmpeg -loglevel error -f lavfi -i color=size=720x576:rate=25 -frames:v 10 -target pal-dvd in.mpg"_s);
  for (const QString& blur : {u"Blur=0"_s, u"Blur=1"_s}) {
    for (const QString& frame : {u"Frame=0"_s, u"Frame=1"_s}) {
      test::SetCaptions(project_, {{u"MMBGBlur"_s, blur}, {u"MMHT2"_s, frame}, {u"MMHT1"_s, u"Fill=1"_s}});
      const ComposedMenu menu = Compose();
      ASSERT_TRUE(menu.ButtonsValid);
      ASSERT_TRUE(WriteMenuPictures(menu.Pictures, menu.MenuKey, project_.Settings.TempDir));
      const HighlightFiles highlights = Highlights(menu);
      for (const auto& [name, text] :
           {std::pair(u"Spu.xml"_s, highlights.Spu), std::pair(u"SpuL.xml"_s, highlights.SpuL)}) {
        QByteArray native = text;
        native.replace(QByteArray(project_.Settings.TempDir.toUtf8() + '\\'), QByteArray(dir_.path().toUtf8() + '/'));
        ASSERT_TRUE(HostFiles::WriteAtomically(project_.Settings.TempDir + u'\\' + name, native));
        const QString output = Shell(u"VIDEO_FORMAT=PAL spumux " + name + u" < in.mpg > out.mpg");
        EXPECT_TRUE(output.contains(u"1 subtitles added, 0 subtitles skipped"_s))
            << blur.toStdString() << ' ' << frame.toStdString() << '\n'
            << output.toStdString();
      }
    }
  }
}

}  // namespace
}  // namespace torvane
