#include "media/palette.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "media/palette_check.h"
#include "media/palette_file.h"
#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int Ycc(int y, int cr, int cb) {
  return y + cr * 256 + cb * 65536;
}
constexpr int Rgb(int r, int g, int b) {
  return r + g * 256 + b * 65536;
}

TEST(Palette, ConvertsByWholeNumbers) {
  const struct {
    int color, rgb, back;
  } cases[] = {
      {Ycc(16, 128, 128), Rgb(0, 0, 0), Ycc(16, 128, 128)},
      {Ycc(235, 128, 128), Rgb(255, 255, 255), Ycc(235, 128, 128)},
      {Ycc(81, 240, 90), Rgb(254, 0, 0), Ycc(81, 240, 90)},
      {Ycc(0, 0, 0), Rgb(0, 135, 0), Ycc(84, 78, 89)},
      {Ycc(255, 255, 255), Rgb(255, 125, 255), Ycc(170, 176, 166)},
      {Ycc(16, 0, 128), Rgb(0, 104, 0), Ycc(68, 90, 98)},
  };
  for (const auto& [color, rgb, back] : cases) {
    EXPECT_EQ(PaletteToRgb(color), rgb) << color;
    EXPECT_EQ(RgbToPalette(rgb), back) << color;
  }
  EXPECT_EQ(PaletteColorToRgbText(Ycc(81, 240, 90)), u"254, 0, 0"_s);
}

TEST(Palette, EveryColorHasAStableOneNearby) {
  // All corners and a dense grid of the colours that a palette can hold.
  int farthest = 0;
  for (int y = 0; y <= 255; y += 5) {
    for (int cr = 0; cr <= 255; cr += 5) {
      for (int cb = 0; cb <= 255; cb += 5) {
        const int color = Ycc(y, cr, cb);
        const int rgb = PaletteToRgb(color);
        const int back = RgbToPalette(rgb);
        const int stable = StablePaletteColor(color, rgb, back);
        ASSERT_TRUE(IsStablePaletteColor(stable)) << color;
        if (color == back) {
          ASSERT_EQ(stable, color);
        }
        const int shown = PaletteToRgb(stable);
        for (const int shift : {0, 8, 16})
          farthest = std::max(farthest, std::abs((rgb >> shift & 255) - (shown >> shift & 255)));
      }
    }
  }
  EXPECT_LE(farthest, 16);
}

TEST(PaletteCheck, OffersStableColors) {
  const QString good = u"8421392,0,8421392"_s;  // black, nothing, black
  QString list = good;
  test::RecordingPrompter silent;
  EXPECT_TRUE(CheckPaletteRoundTrip(list, silent));
  EXPECT_TRUE(silent.boxes.empty());
  EXPECT_EQ(list, good);

  const QString poor = PaletteList({Ycc(16, 128, 128), Ycc(255, 255, 255), 0, Ycc(0, 0, 0) + 1});
  const QString text =
      u"Warning: Some colors are not lossless convertible between RGB and YCrCb!\r\n"
      "Color1: OrigPaletteValue=FFFFFF; RGB->YCrCbValue:AAB0A6\r\n"
      "Color3: OrigPaletteValue=010000; RGB->YCrCbValue:554E58\r\n"
      "\r\nThis doesn't matter, if the subtitles are already multiplexed.\r\nFor internal multiplexing of subtitles, "
      "the palette\r\nmust be converted to RGB compatible colors.\r\n\r\nConvert palette?"_s;
  for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
    list = poor;
    test::RecordingPrompter prompter({answer});
    EXPECT_EQ(CheckPaletteRoundTrip(list, prompter), answer != Answer::Cancel);
    ASSERT_EQ(prompter.boxes.size(), 1U);
    EXPECT_EQ(prompter.boxes[0].text.toStdString(), text.toStdString());
    EXPECT_EQ(prompter.boxes[0].buttons, BoxButtons::YesNoCancel);
    EXPECT_EQ(prompter.boxes[0].kind, BoxKind::Warning);
    const QList<int> colors = PaletteColors(list);
    if (answer == Answer::Yes) {
      EXPECT_EQ(list, PaletteList({Ycc(16, 128, 128), colors.value(1), 0, colors.value(3)}));
      EXPECT_TRUE(IsStablePaletteColor(colors[1]) && IsStablePaletteColor(colors[3]));
    } else {
      EXPECT_EQ(list, poor);
    }
  }
}

/// A titleset IFO whose first program chain has colours (i, i + 1, i + 2).
QByteArray Ifo() {
  QByteArray file(8192, '\0');
  file.replace(0, 12, "DVDVIDEO-VTS");
  file[207] = 2;        // sector of the program chain table
  file[4096 + 14] = 1;  // offset 0x0110 of the first chain
  file[4096 + 15] = 0x10;
  for (int i = 0; i < 16; ++i) {
    for (int byte = 0; byte < 3; ++byte) file[4096 + 0x110 + 164 + 4 * i + 1 + byte] = char(i + byte);
  }
  return file;
}

QString Counted() {
  QList<int> colors;
  for (int i = 0; i < 16; ++i) colors << Ycc(i, i + 1, i + 2);
  return PaletteList(colors);
}

QByteArray HexLines(const QByteArray& lineEnd, int count = 16) {
  QByteArray text;
  for (int i = 0; i < count; ++i) {
    for (int byte = 0; byte < 3; ++byte) text += QByteArray::number(i + byte, 16).rightJustified(2, '0').toUpper();
    text += lineEnd;
  }
  return text;
}

TEST(PaletteFile, ReadsEachKind) {
  QList<int> rgb;
  QList<int> shortSst;
  QByteArray sst = "st_format 2\r\n# Palette entries:\r\n";
  for (int i = 0; i < 16; ++i) {
    rgb << RgbToPalette(i, i + 1, i + 2);
    shortSst << (i < 10 && i != 3 ? RgbToPalette(255, i, 7) : RgbToPalette(0));
    if (i < 10)
      sst += i == 3 ? QByteArray("nothing\r\n")
                    : "Color " + QByteArray::number(i) + " RGB(255,  " + QByteArray::number(i) + ",  7)\r\n";
  }
  const struct {
    const char* name;
    QString path;
    QByteArray content;
    QString expected;
  } cases[] = {
      {"ifo", u"VTS_01_0.IFO"_s, Ifo(), Counted()},
      {"ifo of the manager", u"a.ifo"_s, Ifo().replace(9, 3, "VMG"), {}},
      {"ifo cut off in its palette", u"a.ifo"_s, Ifo().first(4096 + 0x110 + 164 + 63), {}},
      {"ifo that just holds it", u"a.ifo"_s, Ifo().first(4096 + 0x110 + 164 + 64), Counted()},
      {"ifo with a wild pointer", u"a.ifo"_s, Ifo().replace(205, 1, "\xFF"), {}},
      {"pal", u"a.pal"_s, HexLines("\r\n"), Counted()},
      {"pal, longer lines and remarks", u"a.pal"_s, "x\r\n" + HexLines(" remark\r\n"), Counted()},
      {"pal, Unix line ends", u"a.pal"_s, HexLines("\n"), Counted()},
      {"pal, 15 lines", u"a.pal"_s, HexLines("\r\n", 15), {}},
      {"pal, 17 lines", u"a.pal"_s, HexLines("\r\n", 17), {}},
      {"pal, no hex", u"a.pal"_s, HexLines("\r\n").replace(3, 1, "g"), {}},
      {"pal, empty", u"a.pal"_s, {}, {}},
      {"rgb", u"a.Rgb"_s, HexLines("\r\n").toLower(), PaletteList(rgb)},
      {"sst with ten colours", u"a.sst"_s, sst, PaletteList(shortSst)},
      {"sst without a palette", u"a.sst"_s, "st_format 2\r\n", {}},
      {"another ending", u"a.txt"_s, HexLines("\r\n"), {}},
  };
  for (const auto& [name, path, content, expected] : cases) {
    const Result<QString> palette = ParsePalette(path, content);
    EXPECT_EQ(bool(palette), !expected.isEmpty()) << name;
    EXPECT_EQ((palette ? *palette : palette.Error()).toStdString(),
              (expected.isEmpty() ? u"Illegal file"_s : expected).toStdString())
        << name;
  }
}

TEST(PaletteFile, WhatIsWrittenIsReadBack) {
  const test::DriveC drive;
  EXPECT_EQ(PaletteFileText(u"8421392,255"_s), "108080\r\nFF0000\r\n");
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\a.pal"_s, PaletteFileText(Counted())));
  EXPECT_EQ(*ReadPaletteFile(u"C:\\a.pal"_s), Counted());
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\big.ifo"_s, Ifo() + QByteArray(1048576, '\0')));
  EXPECT_EQ(ReadPaletteFile(u"C:\\big.ifo"_s).Error(), u"Illegal file"_s);
  EXPECT_FALSE(ReadPaletteFile(u"C:\\missing.pal"_s));
}

}  // namespace
}  // namespace torvane
