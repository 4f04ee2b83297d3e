#include "render/compositor.h"

#include <QPainter>

#include "designer/menu_frame.h"
#include "menu_fixture.h"
#include "render/menu_labels.h"
#include "render/text_painter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

/// The text of two letters that covers some pixels wholly in any font.
const QString kWord = u"HI"_s;
const QStringList kBigFont{u"FontSize=60"_s, u"FontBold=1"_s};

class Compositor : public MenuFixture {
 protected:
  /// Pixels that a button's or label's text covers wholly.
  QRegion SolidText(const DrawingView& drawing, const QString& text) const {
    const TextGeometry geometry = drawing.Geometry();
    const TextPainter painter(FontOf(geometry));
    QRegion solid;
    const QRect place(geometry.Left - 1, geometry.Top, geometry.Width + 1, geometry.Height);
    for (const TextLine& line : painter.Lines(text, place, geometry.Align)) {
      const LineCoverage coverage = painter.Draw(line, {720, 576});
      ForPixels(coverage.alpha, [&](QPoint at, QRgb) {
        if (coverage.alpha.constScanLine(at.y())[at.x()] == 255)
          solid += QRect(line.position + coverage.offset + at, QSize(1, 1));
      });
    }
    EXPECT_FALSE(solid.isEmpty());
    return solid;
  }

  static std::set<QRgb> ColorsIn(const QImage& picture, const QRegion& region) {
    std::set<QRgb> colors;
    for (const QRect& rectangle : region) colors.merge(ColorsOf(picture.copy(rectangle)));
    return colors;
  }
};

TEST_F(Compositor, MakesThePicturesThatEachModeNeeds) {
  const auto suffixes = [this](ComposeMode mode) {
    QStringList found;
    for (const MenuPicture& picture : Compose(mode).Pictures) found << picture.Suffix;
    found.sort();
    return found.join(u' ');
  };
  EXPECT_EQ(suffixes(ComposeMode::Compile), u"Act.png Backg.png High.png");
  EXPECT_EQ(suffixes(ComposeMode::PicturePreview), u"Act.png High.png Preview.png");
  EXPECT_EQ(suffixes(ComposeMode::ScriptPreview), u"Backg.png");

  project_.Settings.DefMenuRatio = true;
  EXPECT_EQ(suffixes(ComposeMode::Compile), u"Act.png ActL.png Backg.png High.png HighL.png");
  project_.Settings.VideoNormPal = false;
  for (const MenuPicture& picture : Compose().Pictures) EXPECT_EQ(picture.Image.size(), QSize(720, 480));
}

TEST_F(Compositor, RefusesWhatItCannotDraw) {
  const auto errorOf = [](const MenuView& menu, const Settings& settings) {
    return ComposeMenu(menu, settings, ComposeMode::Compile).Error();
  };
  for (const QString& key : {u"MM7"_s, u"TS"_s, u"MMB"_s}) {
    EXPECT_EQ(errorOf(MenuView(project_.Tree, key), project_.Settings),
              u"There is no menu \"" + key + u"\" in this project.");
  }
  Settings muxman = project_.Settings;
  muxman.Engine = 1;
  EXPECT_EQ(errorOf(Menu(), muxman),
            u"Menu MainMenu (MM): menus can be drawn for dvdauthor only; choose it as engine."_s);
  AddNode(project_, u"MMBG"_s, u"MMBGTrans|Transition=1"_s);
  EXPECT_EQ(errorOf(Menu(), project_.Settings),
            u"Menu MainMenu (MM): animated menus cannot be drawn yet; take its animations or transition away."_s);
}

TEST_F(Compositor, StretchesTheBackgroundOverTheWholeFrame) {
  QImage picture(100, 300, QImage::Format_ARGB32);
  picture.fill(0x00FFFFFF);  // transparent: black shows through
  QPainter(&picture).fillRect(0, 0, 100, 150, QColor(0x33, 0x66, 0xCC));
  project_.Tree.SetCaption(u"MMBGPath"_s, u"Image=" + SavePicture(u"tall.png"_s, picture));
  const QImage visible = PictureOf(Compose(), u"Backg.png");
  EXPECT_EQ(visible.format(), QImage::Format_RGB32);
  for (const int x : {0, 719}) {
    EXPECT_TRUE(visible.pixel(x, 0) == 0xFF3366CC && visible.pixel(x, 280) == 0xFF3366CC);
    EXPECT_TRUE(visible.pixel(x, 296) == kPlaneBlack && visible.pixel(x, 575) == kPlaneBlack);
  }
}

TEST_F(Compositor, GoesOnWithoutAPictureAndTellsWhichIsMissing) {
  const QString broken = HostFiles::ToDos(dir_.filePath(u"broken.jpg"_s));
  ASSERT_TRUE(HostFiles::WriteAtomically(broken, "no picture"));
  project_.Tree.SetCaption(u"MMBGPath"_s, u"Image=C:\\gone\\back.jpg"_s);
  AddImage(project_, u"MM"_s, 1, broken, {10, 10, 50, 50});
  AddImage(project_, u"MM"_s, 2, broken, {10, 100, 50, 50});
  AddButton(project_, u"MM"_s, 1, u""_s, {300, 100, 40, 20});
  AddMask(project_, u"MMB1"_s, u"C:\\gone\\mask.gif"_s, u"100"_s, u"1"_s);
  const ComposedMenu menu = Compose();
  EXPECT_EQ(ColorsOf(PictureOf(menu, u"Backg.png")), std::set{kPlaneBlack});
  EXPECT_EQ(menu.Errors, QStringList({u"Picture \"C:\\gone\\back.jpg\" of menu MainMenu (MM): File Not Found"_s,
                                      u"Picture \"" + broken + u"\" of menu MainMenu (MM): Unknown Image Format",
                                      u"Picture \"C:\\gone\\mask.gif\" of menu MainMenu (MM): File Not Found"_s}));
  EXPECT_TRUE(menu.ButtonsValid);
}

TEST_F(Compositor, DrawsImagesInTreeOrderWithTheirMasksOverThem) {
  QImage blue(30, 30, QImage::Format_RGB32);
  blue.fill(0xFF0000FF);
  const QString path = SavePicture(u"blue.png"_s, blue);
  QImage green = blue;
  green.fill(0xFF00FF00);
  AddImage(project_, u"MM"_s, 2, SavePicture(u"green.png"_s, green), {100, 100, 60, 60});
  AddImage(project_, u"MM"_s, 1, path, {140, 100, 60, 60});
  AddMask(project_, u"MMI1"_s, HalfMask(), u"50"_s, u""_s, 0, 15);
  const QImage visible = PictureOf(Compose(), u"Backg.png");
  EXPECT_EQ(AreaOf(visible, 0xFF00FF00), QRect(100, 100, 40, 60));
  EXPECT_EQ(AreaOf(visible, 0xFF0000FF), QRect(140, 100, 60, 60));
  EXPECT_EQ(AreaOf(visible, [](QRgb pixel) { return qRed(pixel) > 0xF0 && qBlue(pixel) < 0x10; }),
            QRect(155, 130, 15, 30));
  EXPECT_EQ(visible.pixel(99, 100), kGrey);
  EXPECT_EQ(visible.pixel(200, 159), kGrey);
}

TEST_F(Compositor, LightsTheTextOfAButtonExactlyWhereItIsSeen) {
  AddButton(project_, u"MM"_s, 1, u"Play it"_s, {100, 100, 300, 60},
            {u"FontSize=28"_s, u"Color=255,255,0"_s, u"Align=2"_s});
  const ComposedMenu menu = Compose();
  const QImage visible = PictureOf(menu, u"Backg.png");
  const QImage high = PictureOf(menu, u"High.png");
  const QImage act = PictureOf(menu, u"Act.png");
  EXPECT_EQ(ColorsOf(high), (std::set<QRgb>{0, kFill}));
  EXPECT_EQ(ColorsOf(act), (std::set<QRgb>{0, kActFill}));
  qsizetype seen = 0;
  ForPixels(high, [&](QPoint at, QRgb pixel) {
    ASSERT_EQ(pixel == kFill, act.pixel(at) == kActFill);
    const bool changed = visible.pixel(at) != kGrey;
    ASSERT_TRUE(pixel == kFill || !changed) << at.x() << ' ' << at.y();
    seen += changed ? 1 : 0;
  });
  // The faintest edges of a letter are lit, but need not change a pixel of the picture.
  EXPECT_GT(seen * 10, CountOf(high, kFill) * 9);
  EXPECT_TRUE(QRect(99, 100, 302, 61).contains(AreaOf(high, kFill)));
}

TEST_F(Compositor, DrawsWhatTheHighlightTypeSays) {
  const struct {
    QString fill, frame;
    bool text, framed;
  } cases[] = {{u"Fill=1"_s, u"Frame=0"_s, true, false},
               {u"Fill=0"_s, u"Frame=1"_s, false, true},
               {u"Fill=1"_s, u"Frame=1"_s, true, true},
               {u"Fill=0"_s, u"Frame=0"_s, true, false}};
  AddButton(project_, u"MM"_s, 1, kWord, {100, 100, 200, 100}, kBigFont);
  project_.Tree.SetCaption(u"MMHT3"_s, u"Rounded=0"_s);
  for (const auto& [fill, frame, text, framed] : cases) {
    SetCaptions(project_, {{u"MMHT1"_s, fill}, {u"MMHT2"_s, frame}});
    const QImage high = PictureOf(Compose(), u"High.png");
    EXPECT_EQ(CountOf(high, kFill) > 0, text) << fill.toStdString() << frame.toStdString();
    EXPECT_EQ(AreaOf(high, kFrame), framed ? QRect(97, 98, 206, 105) : QRect());
    EXPECT_EQ(CountOf(high, kFrame), framed ? 206 * 105 - 200 * 99 : 0);
  }
}

TEST_F(Compositor, LeavesOutWhatCannotBeSelected) {
  AddButton(project_, u"MM"_s, 1, u" "_s, {100, 100, 50, 30}, {u"NormVis=0"_s, u"FontUnderline=1"_s});
  AddButton(project_, u"MM"_s, 2, kWord, {300, 100, 200, 100}, kBigFont);
  project_.Tree.SetCaption(u"MMHT2"_s, u"Frame=1"_s);
  project_.Tree.Remove(u"MMB2Action"_s);
  const ComposedMenu menu = Compose();
  EXPECT_EQ(ColorsOf(PictureOf(menu, u"High.png")), std::set<QRgb>{0});
  EXPECT_GT(CountOf(PictureOf(menu, u"Backg.png"), 0xFFFFFFFF), 0);
}

TEST_F(Compositor, UsesMasksAsTheirHighlightSays) {
  // The mask of 40 by 20 stands at (100, 100); its left half is opaque.
  const struct {
    QString highlight;
    bool shown;
    QRect lit;
  } cases[] = {{u"0"_s, true, {}},
               {u"1"_s, true, {100, 100, 20, 20}},
               {u"2"_s, true, {120, 100, 20, 20}},
               {u"3"_s, false, {100, 100, 20, 20}}};
  AddButton(project_, u"MM"_s, 1, u" "_s, {100, 100, 40, 20});
  AddMask(project_, u"MMB1"_s, HalfMask(), u"100"_s, u"0"_s);
  project_.Tree.SetCaption(u"MMHT2"_s, u"Frame=1"_s);
  for (const auto& [highlight, shown, lit] : cases) {
    project_.Tree.SetCaption(u"MMB1GifMaskUseHigh"_s, u"Highlight=" + highlight);
    const ComposedMenu menu = Compose();
    const QImage high = PictureOf(menu, u"High.png");
    EXPECT_EQ(AreaOf(high, kFill), lit) << highlight.toStdString();
    EXPECT_EQ(CountOf(high, kFill), lit.width() * lit.height());
    EXPECT_EQ(AreaOf(PictureOf(menu, u"Backg.png"), 0xFFFFFF00), shown ? QRect(100, 100, 20, 20) : QRect());
    // A frame belongs to the text; a lit mask has none.
    EXPECT_EQ(CountOf(high, kFrame) > 0, highlight == u"0");
  }
}

TEST_F(Compositor, CutsTheTextOutOfALitMask) {
  QImage full(10, 10, QImage::Format_ARGB32);
  full.fill(0xFF00FFFF);
  AddButton(project_, u"MM"_s, 1, kWord, {100, 100, 200, 100}, kBigFont + QStringList{u"NormVis=0"_s});
  AddMask(project_, u"MMB1"_s, SavePicture(u"full.png"_s, full), u"100"_s, u"3"_s);
  const QRegion solid = SolidText(Menu().Buttons().at(0).Drawing(), kWord);
  EXPECT_EQ(ColorsIn(PictureOf(Compose(), u"High.png"), solid), std::set<QRgb>{0});
  project_.Settings.ExclTextFromGifMask = false;
  const QImage whole = PictureOf(Compose(), u"High.png");
  EXPECT_EQ(CountOf(whole, kFill), 200 * 100);
  // An outline widens the cut by a pixel on each side.
  project_.Settings.ExclTextFromGifMask = true;
  const qsizetype narrow = CountOf(PictureOf(Compose(), u"High.png"), kFill);
  AddNode(project_, u"MMBP1"_s, u"MMBP1Outline|Outline=0,0,0"_s);
  EXPECT_LT(CountOf(PictureOf(Compose(), u"High.png"), kFill), narrow);
}

TEST_F(Compositor, KeepsHighlightsPureWhereRedMeetsGreenAndMasksAreSoft) {
  // Text that crosses its own frame, and a mask with soft edges, once inverted.
  AddButton(project_, u"MM"_s, 1, u"Wide word"_s, {100, 100, 20, 20}, kBigFont);
  QImage soft(64, 64, QImage::Format_ARGB32);
  soft.fill(Qt::transparent);
  for (int x = 0; x < 64; ++x) QPainter(&soft).fillRect(x, 0, 1, 64, QColor(40, 90, 200, x * 4));
  const QString path = SavePicture(u"soft.png"_s, soft);
  for (const int number : {2, 3}) {
    AddButton(project_, u"MM"_s, number, u" "_s, {100 * number, 300, 50, 50});
    AddMask(project_, ButtonKey(u"MM"_s, number), path, u"100"_s, QString::number(number - 1));
  }
  SetCaptions(project_, {{u"MMHT1"_s, u"Fill=1"_s}, {u"MMHT2"_s, u"Frame=1"_s}});
  project_.Settings.DefMenuRatio = true;
  const ComposedMenu menu = Compose();
  for (const QStringView suffix : {u"High.png", u"HighL.png"}) {
    EXPECT_EQ(ColorsOf(PictureOf(menu, suffix)), (std::set<QRgb>{0, kFill, kFrame}));
  }
  for (const QStringView suffix : {u"Act.png", u"ActL.png"}) {
    EXPECT_EQ(ColorsOf(PictureOf(menu, suffix)), (std::set<QRgb>{0, kActFill, kActFrame}));
  }
}

TEST_F(Compositor, PutsTheHighlightsOfAWideMenuIntoTheLetterbox) {
  project_.Settings.DefMenuRatio = true;
  AddButton(project_, u"MM"_s, 1, u""_s, {100, 100, 50, 40}, {u"NormVis=0"_s});
  // Line 100 is shown at 147 for PAL and 135 for NTSC.
  for (const auto& [pal, letterboxTop] : {std::pair(true, 147), std::pair(false, 135)}) {
    project_.Settings.VideoNormPal = pal;
    for (const QString& blur : {u"Blur=0"_s, u"Blur=1"_s}) {
      project_.Tree.SetCaption(u"MMBGBlur"_s, blur);
      const ComposedMenu menu = Compose();
      EXPECT_EQ(ColorsOf(PictureOf(menu, u"Backg.png")), std::set{kGrey});
      // Soft edges make the fully lit area at most a pixel smaller on each side.
      const int slack = blur.endsWith(u'1') ? 1 : 0;
      for (const auto& [suffix, most] :
           {std::pair(u"High.png", QRect(99, 100, 52, 41)), std::pair(u"HighL.png", QRect(99, letterboxTop, 52, 31))}) {
        const QRect lit = AreaOf(PictureOf(menu, suffix), [](QRgb pixel) { return qAlpha(pixel) > 200; });
        EXPECT_TRUE(most.contains(lit) && lit.contains(most.adjusted(slack, slack, -slack, -slack)))
            << lit.x() << ' ' << lit.y() << ' ' << lit.width() << ' ' << lit.height();
        if (slack == 0) {
          EXPECT_EQ(CountOf(PictureOf(menu, suffix), kFill), lit.width() * lit.height());
        }
      }
    }
  }
}

TEST_F(Compositor, KeepsEveryLineOfAFrameInTheLetterbox) {
  project_.Settings.DefMenuRatio = true;
  project_.Settings.DefFrameWidth = 1;
  SetCaptions(project_, {{u"MMHT1"_s, u"Fill=0"_s}, {u"MMHT2"_s, u"Frame=1"_s}});
  AddButton(project_, u"MM"_s, 1, u"a"_s, {100, 100, 50, 40});
  for (const bool pal : {true, false}) {
    project_.Settings.VideoNormPal = pal;
    for (const QString& form : {u"Blur=0 Rounded=0"_s, u"Blur=1 Rounded=0"_s, u"Blur=0 Rounded=1"_s}) {
      SetCaptions(project_, {{u"MMBGBlur"_s, form.section(u' ', 0, 0)}, {u"MMHT3"_s, form.section(u' ', 1, 1)}});
      // Four heights stand for all: three lines of the letterbox show four of the frame.
      for (int top = 100; top < 104; ++top) {
        project_.Tree.SetCaption(u"MMBP1Top"_s, u"Top=%1"_s.arg(top));
        const QImage high = PictureOf(Compose(), u"HighL.png");
        const QRect lit(QPoint(99, LetterboxY(top, project_.Settings)),
                        QPoint(150, LetterboxY(top + 40, project_.Settings)));
        EXPECT_EQ(AreaOf(high, kFrame), lit) << top << form.toStdString();
        EXPECT_EQ(CountOf(high, kFrame), 2 * lit.width() + 2 * lit.height() - 4);
      }
    }
  }
}

TEST_F(Compositor, SoftensMenusIntoFourColors) {
  AddButton(project_, u"MM"_s, 1, u"Soft text"_s, {100, 100, 300, 60}, {u"FontSize=28"_s});
  SetCaptions(project_, {{u"MMBGBlur"_s, u"Blur=1"_s},
                         {u"MMBGBlurX"_s, u"BlurX=90"_s},
                         {u"MMBGBlurY"_s, u"BlurY=90"_s},
                         {u"MMHCT1"_s, u"Transparenz=20%"_s}});
  const QImage soft = PictureOf(Compose(), u"Backg.png");
  const QImage high = PictureOf(Compose(), u"High.png");
  EXPECT_EQ(high.format(), QImage::Format_Indexed8);
  EXPECT_EQ(ColorsOf(high), (std::set<QRgb>{0, 0xCCFF0000, 0x8FFF0000, 0x3DFF0000}));
  EXPECT_EQ(ColorsOf(PictureOf(Compose(), u"Act.png")), (std::set<QRgb>{0, 0xFF0000FF, 0xB20000FF, 0x4C0000FF}));

  project_.Tree.SetCaption(u"MMHT2"_s, u"Frame=1"_s);
  EXPECT_EQ(ColorsOf(PictureOf(Compose(), u"High.png")), (std::set<QRgb>{0, 0xCCFF0000, kFrame, 0x7AFF0000}));

  project_.Tree.SetCaption(u"MMBGBlur"_s, u"Blur=0"_s);
  QImage sharp = PictureOf(Compose(), u"Backg.png");
  EXPECT_NE(sharp, soft);
  Blur32HV(sharp, 90, 90);
  EXPECT_EQ(sharp.convertToFormat(QImage::Format_RGB32), soft);
}

TEST_F(Compositor, TakesTheBlurThatAMenuLacksFromTheSettings) {
  AddButton(project_, u"MM"_s, 1, kWord, {100, 100, 200, 100}, kBigFont);
  for (const QString& key : {u"MMBGBlur"_s, u"MMBGBlurX"_s, u"MMBGBlurY"_s}) project_.Tree.Remove(key);
  QImage expected = PictureOf(Compose(), u"Backg.png");
  project_.Settings.UseBlur = true;
  project_.Settings.BlurX = 30;
  project_.Settings.BlurY = 70;
  Blur32HV(expected, 30, 70);
  EXPECT_EQ(PictureOf(Compose(), u"Backg.png"), expected.convertToFormat(QImage::Format_RGB32));
}

TEST_F(Compositor, LabelsThrowShadowsOnWhatLiesBelowThem) {
  AddLabel(project_, u"MM"_s, 37, kWord, {100, 100, 300, 100},
           kBigFont + QStringList{u"Shadow=1"_s, u"Color=255,255,0"_s});
  project_.Settings.DefShadow = u"128;150;100;1;"_s;
  const QRegion text = SolidText(Menu().Labels().at(0).Drawing(), kWord);
  const ComposedMenu menu = Compose();
  const QImage visible = PictureOf(menu, u"Backg.png");
  EXPECT_EQ(ColorsIn(visible, text), std::set<QRgb>{0xFFFFFF00});
  // 100 is darkened by 128 / 255.
  const std::set<QRgb> shadow = ColorsIn(visible, text.translated(150, 100));
  ASSERT_EQ(shadow.size(), 1U);
  EXPECT_NEAR(qRed(*shadow.begin()), 50, 1);
  // Labels never light up.
  EXPECT_EQ(ColorsOf(PictureOf(menu, u"High.png")), std::set<QRgb>{0});

  AddNode(project_, u"MMLP37"_s, u"MMLP37Outline|Outline=0,0,255"_s);
  const QImage outlined = PictureOf(Compose(), u"Backg.png");
  const auto dark = [](QRgb pixel) { return qRed(pixel) < 90 && qRed(pixel) > 40 && qRed(pixel) == qBlue(pixel); };
  EXPECT_EQ(AreaOf(outlined, dark).right(), AreaOf(visible, dark).right() + 1);
}

TEST_F(Compositor, LabelsHaveBlockEdgesAndOutlines) {
  const QString block = u"Block=1"_s;
  const QString outline = u"Outline=0,0,255"_s;
  // What stands behind the text, where only the block edge reaches.
  const std::pair<QStringList, QRgb> cases[] = {
      {{block}, qRgb(127, 99, 0)}, {{block, outline}, qRgb(0, 0, 255)}, {{outline}, kGrey}, {{}, kGrey}};
  project_.Settings.DefBlock = u"128;60;0;1;"_s;
  for (const auto& [attributes, expected] : cases) {
    project_.Tree.Remove(u"MML37"_s);
    AddLabel(project_, u"MM"_s, 37, u"I"_s, {100, 100, 300, 100},
             kBigFont + QStringList{u"Color=255,200,0"_s} + attributes);
    const QRegion text = SolidText(Menu().Labels().at(0).Drawing(), u"I"_s);
    const QImage visible = PictureOf(Compose(), u"Backg.png");
    EXPECT_EQ(ColorsIn(visible, text), std::set{qRgb(255, 200, 0)});
    EXPECT_EQ(ColorsIn(visible, text.translated(60, 0)), std::set{expected}) << attributes.join(u' ').toStdString();
    EXPECT_EQ(CountOf(visible, qRgb(0, 0, 255)) > 0, attributes.contains(outline));
  }
}

TEST_F(Compositor, TellsWhetherTheButtonsKeepTheRules) {
  AddButton(project_, u"MM"_s, 1, u"a"_s, {100, 100, 80, 40});
  EXPECT_TRUE(Compose().ButtonsValid);
  AddButton(project_, u"MM"_s, 2, u"b"_s, {150, 120, 80, 40});
  EXPECT_FALSE(Compose().ButtonsValid);
  SetDrawing(project_, u"MMBP2"_s, {u"Top=530"_s});
  EXPECT_TRUE(Compose().ButtonsValid);
  project_.Settings.VideoNormPal = false;
  EXPECT_FALSE(Compose().ButtonsValid);
}

TEST_F(Compositor, SurvivesDamagedNumbers) {
  for (int number = 1; number <= 3; ++number) {
    AddButton(project_, u"MM"_s, number, u"text\r\n\r\nmore"_s, {100, 100, 80, 40},
              {u"Left=99999999999"_s, u"Top=-99999999999"_s, u"Width=99999999999"_s, u"Height=-1"_s, u"FontSize=1e9"_s,
               u"Align=7"_s, u"Outline=x"_s});
  }
  AddMask(project_, u"MMB2"_s, HalfMask(), u"99999999"_s, u"1"_s, 1 << 30, -(1 << 30));
  AddLabel(project_, u"MM"_s, 37, u"x"_s, {0, 0, 1, 1}, {u"Shadow=1"_s, u"Block=1"_s, u"FontSize=-5"_s});
  SetCaptions(project_, {{u"MMHT2"_s, u"Frame=1"_s},
                         {u"MMBGBlur"_s, u"Blur=1"_s},
                         {u"MMBGBlurX"_s, u"BlurX=99999999999"_s},
                         {u"MMBGBlurY"_s, u"BlurY=-5"_s}});
  project_.Settings.DefFrameWidth = 1 << 30;
  project_.Settings.DefShadow = u"1e9;-99999999999;99999999999;1;"_s;
  project_.Settings.DefBlock = u"-1e9;99999999999;-99999999999;1;"_s;
  EXPECT_FALSE(Compose().ButtonsValid);
}

}  // namespace
}  // namespace torvane
