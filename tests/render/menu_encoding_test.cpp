#include "render/menu_encoding.h"

#include <gtest/gtest.h>

#include "support/menu_builder.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class MenuEncoding : public testing::Test {
 protected:
  MenuEncoding() : project_(test::FixedSettings()) { AddDefaultProject(project_); }

  MenuView Menu() const { return {project_.Tree, u"MM"_s}; }
  void AddBackground(const QString& node) { test::AddNode(project_, u"MMBG"_s, node); }

  Project project_;
};

TEST_F(MenuEncoding, EncodesAPlainStillMenu) {
  EXPECT_EQ(StillMenuBatch1(Menu(), project_.Settings), test::WithCrLf(R"(@echo off
echo *creating MMback.m2v
"C:\tools\png2yuv.exe" -n 1 -I p -L 0 -f 25 -j "C:\T\MMBackg.png" | "C:\tools\mpeg2enc.exe" -f 8 -I 0 -q 1 -b 7000 -a 2 -n p -o "C:\T\MMBackg.m2v"
)"));
  EXPECT_EQ(StillMenuBatch2(Menu(), project_.Settings), test::WithCrLf(R"(@echo off
echo *mux to MMback.mpg
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\MMBackg.mpg" "C:\T\MMBackg.m2v"
echo *creating menufile MMMenu.mpg
"C:\tools\spumux.exe" "C:\T\MMSpu.xml" <"C:\T\MMBackg.mpg" > "C:\T\MMMenu.mpg"
)"));
}

TEST_F(MenuEncoding, EncodesAWideNtscMenuWithItsOwnValues) {
  project_.Settings.VideoNormPal = false;
  project_.Settings.DefMenuRatio = true;
  project_.Settings.NumStillFrames = 15;
  project_.Settings.TempDir = u"C:\\Müll 100%"_s;
  project_.Settings.DvdAuthorPath = u"C:\\Program Files\\ß"_s;
  AddBackground(u"MMBGQuality|Quality=4"_s);
  AddBackground(u"MMBGBitrate|Bitrate= 5000"_s);
  AddBackground(u"MMBGAudio|Audio=C:\\sound\\Я 5%.ac3"_s);
  EXPECT_EQ(StillMenuBatch1(Menu(), project_.Settings),
            test::WithCrLf("@echo off\n"
                           "echo *creating MMback.m2v\n"
                           "\"C:\\Program Files\\\xE1\\png2yuv.exe\" -n 15 -I p -L 0 -f 29.97 -j "
                           "\"C:\\M\x81ll 100%%\\MMBackg.png\" | \"C:\\Program Files\\\xE1\\mpeg2enc.exe\" -f 8 -I 0 "
                           "-q 4 -b 5000 -a 3 -n n -o \"C:\\M\x81ll 100%%\\MMBackg.m2v\"\n"));
  EXPECT_EQ(StillMenuBatch2(Menu(), project_.Settings),
            test::WithCrLf("@echo off\n"
                           "echo *mux to MMback.mpg\n"
                           "\"C:\\Program Files\\\xE1\\mplex.exe\" -M -f 8 -o \"C:\\M\x81ll 100%%\\MMBackg.mpg\" "
                           "\"C:\\M\x81ll 100%%\\MMBackg.m2v\" \"C:\\sound\\\xD0\xAF 5%%.ac3\"\n"
                           "echo *creating menufile MMMenu.mpg\n"
                           "\"C:\\Program Files\\\xE1\\spumux.exe\" \"C:\\M\x81ll 100%%\\MMSpu.xml\" "
                           "<\"C:\\M\x81ll 100%%\\MMBackg.mpg\" > \"C:\\M\x81ll 100%%\\MMMenu.mpg\"\n"
                           "REM *creating letterbox menufile MMMenuL.mpg\n"
                           "\"C:\\Program Files\\\xE1\\spumux.exe\" -s1 \"C:\\M\x81ll 100%%\\MMSpuL.xml\" "
                           "<\"C:\\M\x81ll 100%%\\MMMenu.mpg\" > \"C:\\M\x81ll 100%%\\MMMenuL.mpg\"\n"));
}

TEST_F(MenuEncoding, CountsFramesOfAMenuInFullLength) {
  struct Case {
    QString frames;    ///< "" for no node
    QString duration;  ///< in seconds, "" for no node
    bool pal;
    int expected;
  };
  const Case cases[] = {
      {u""_s, u""_s, true, 3},
      {u""_s, u"12.5"_s, true, 3},
      {u"Frames=Full length"_s, u""_s, true, 3},
      {u"Frames=Full length"_s, u"12.5"_s, false, 375},
      {u"Frames=Full length"_s, u"12.5"_s, true, 312},  // 312.5 halves to the even neighbour
      {u"Frames=Full length"_s, u"0.04"_s, true, 1},
      {u"Frames=Full length"_s, u"0.01"_s, true, 3},
      {u"Frames=500"_s, u"2"_s, true, 50},
  };
  for (const Case& test : cases) {
    Project project(test::FixedSettings());
    project.Settings.NumStillFrames = 3;
    AddDefaultProject(project);
    project.Settings.NumStillFrames = 3;
    project.Settings.VideoNormPal = test.pal;
    if (!test.frames.isEmpty()) test::AddNode(project, u"MMBG"_s, u"MMBGFrames|" + test.frames);
    if (!test.duration.isEmpty()) {
      test::AddNode(project, u"MMBG"_s, u"MMBGDuration|Duration=00:00:99.00|" + test.duration);
    }
    EXPECT_EQ(StillMenuFrames(MenuView(project.Tree, u"MM"_s), project.Settings), test.expected)
        << test.frames.toStdString() << ' ' << test.duration.toStdString();
  }
}

TEST_F(MenuEncoding, InsertsNavigationIntoASingleStillFrameWithAudio) {
  const QByteArray direct = R"("C:\tools\mplex.exe" -M -f 8 -o "C:\T\MMBackg.mpg" "C:\T\MMBackg.m2v" "C:\a.mp2")";
  const QList<QByteArray> inserted{
      R"("C:\tools\mplex.exe" -M -f 8 -o "C:\T\MMBackgN.mpg" "C:\T\MMBackg.m2v" "C:\a.mp2")",
      R"("C:\tools\insnav.exe" -o "C:\T\MMBackg.mpg" "C:\T\MMBackgN.mpg")", R"(erase "C:\T\MMBackgN.mpg")"};
  AddBackground(u"MMBGAudio|Audio=C:\\a.mp2"_s);
  const auto muxLines = [&] {
    const QList<QByteArray> lines = StillMenuBatch2(Menu(), project_.Settings).split('\n');
    QList<QByteArray> middle;
    for (const QByteArray& line : lines.sliced(2, lines.size() - 5)) middle << line.trimmed();
    return middle;
  };
  EXPECT_EQ(muxLines(), QList{direct});
  project_.Settings.UseInsnavForMenus = true;
  EXPECT_EQ(muxLines(), inserted);

  AddBackground(u"MMBGFrames|Frames=Full length"_s);
  AddBackground(u"MMBGDuration|Duration=00:00:10.00|10"_s);
  EXPECT_EQ(muxLines(), QList{direct}) << "many frames";

  project_.Tree.Remove(u"MMBGFrames"_s);
  project_.Tree.SetCaption(u"MMBGAudio"_s, u"Audio="_s);
  EXPECT_EQ(muxLines(),
            (QList<QByteArray>{R"("C:\tools\mplex.exe" -M -f 8 -o "C:\T\MMBackg.mpg" "C:\T\MMBackg.m2v")"}));
}

TEST_F(MenuEncoding, MakesTheEmptyMenu) {
  EXPECT_EQ(EmptyMenuBatch(project_.Settings), test::WithCrLf(R"(@echo off
echo *creating EmptyBackg.m2v
"C:\tools\jpeg2yuv.exe" -n 1 -I t -L 1 -f 25 -j "C:\T\EmptyBackg.jpg" | "C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 3000 -a 2 -n p -o "C:\T\EmptyBackg.m2v"
echo *mux to EmptyBackg.mpg
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\EmptyBackg.mpg" "C:\T\EmptyBackg.m2v"
)"));
  EXPECT_EQ(EmptyMenuPicture(project_.Settings).size(), QSize(720, 576));
  project_.Settings.DefMenuRatio = true;
  project_.Settings.VideoNormPal = false;
  EXPECT_EQ(
      test::LinesWith(EmptyMenuBatch(project_.Settings), "jpeg2yuv"),
      (QList<QByteArray>{
          R"("C:\tools\jpeg2yuv.exe" -n 1 -I t -L 1 -f 29.97 -j "C:\T\EmptyBackg.jpg" | "C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 3000 -a 3 -n n -o "C:\T\EmptyBackg.m2v")"}));
  EXPECT_EQ(EmptyMenuPicture(project_.Settings).size(), QSize(720, 480));
}

}  // namespace
}  // namespace torvane
