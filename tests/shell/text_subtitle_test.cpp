#include <QtEndian>
#include <vector>

#include "media/palette.h"
#include "media/palette_file.h"
#include "real_media.h"
#include "shell/font_name.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

class TextSubtitleTest : public RealMediaTest {
 protected:
  void WriteControl(const QString& name, const QByteArray& file, const QByteArray& charset) const {
    Write(name, "<subpictures>\r\n   <stream>\r\n     <textsub filename=\"C:\\T\\" + file +
                    "\"\r\n        characterset=\"" + charset +
                    "\"\r\n        fontsize=\"28.0\"\r\n        font=\"arial.ttf\"\r\n"
                    "        horizontal-alignment=\"center\"\r\n        vertical-alignment=\"bottom\"\r\n"
                    "        left-margin=\"60\"\r\n        right-margin=\"60\"\r\n        top-margin=\"30\"\r\n"
                    "        bottom-margin=\"30\"\r\n        movie-fps=\"25\"\r\n        subtitle-fps=\"25\"\r\n"
                    "        movie-width=\"720\"\r\n        movie-height=\"576\"\r\n     />\r\n   </stream>\r\n"
                    "</subpictures>\r\n");
  }

  /// A black film with two streams of the same words, in ISO-8859-1 and in UTF-8.
  std::string MakeFilm() const {
    Ffmpeg(u"-f lavfi -i color=black:s=720x576:r=25:d=5 -c:v mpeg2video -b:v 2000k -g 12 -f mpeg2video v.m2v"_s);
    const QString words =
        u"1\r\n00:00:01,000 --> 00:00:02,000\r\nGrüße & <b>mehr\r\n\r\n"
        "2\r\n00:00:03,000 --> 00:00:04,000\r\nEnde\r\n"_s;
    Write(u"latin.srt"_s, words.toLatin1());
    Write(u"utf8.srt"_s, words.toUtf8());
    WriteControl(u"Spu1Sub1.xml"_s, "latin.srt", "ISO-8859-1");
    WriteControl(u"Spu2Sub1.xml"_s, "utf8.srt", "UTF-8");
    return RunBatch(
        "\"C:\\Tools\\mplex.exe\" -M -f 8 -o \"C:\\T\\F.mpg\" \"C:\\T\\v.m2v\"\r\n"
        "\"C:\\Tools\\spumux.exe\" -ma -w -s0 \"C:\\T\\Spu1Sub1.xml\" <\"C:\\T\\F.mpg\" > \"C:\\T\\F_SUB1.mpg\" \r\n"
        "\"C:\\Tools\\spumux.exe\" -ma -s1 \"C:\\T\\Spu2Sub1.xml\" <\"C:\\T\\F_SUB1.mpg\" > \"C:\\T\\F_SUB2.mpg\" "
        "\r\n");
  }

  /// How many points of the film with one of its subtitle streams are not black, and where, at a time in seconds.
  QRect Lit(int stream, const char* seconds) const {
    Ffmpeg(u"-i F_SUB2.mpg -filter_complex [0:v][0:s:%1]overlay -ss %2 -frames:v 1 f.png"_s.arg(stream).arg(
        QLatin1StringView(seconds)));
    const QImage picture(Host(u"f.png"_s));
    QRect lit;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (qGray(picture.pixel(x, y)) > 80) lit |= QRect(x, y, 1, 1);
      }
    }
    return lit;
  }
};

TEST_F(TextSubtitleTest, ShowsTheSameWordsFromBothCharacterSetsAtTheirTimes) {
  const std::string printed = MakeFilm();
  EXPECT_EQ(printed.find("ERR"), std::string::npos) << printed;
  EXPECT_NE(printed.find("LiberationSans-Regular.ttf"), std::string::npos) << printed;
  EXPECT_EQ(Lit(0, "0.5"), QRect());
  EXPECT_EQ(Lit(0, "2.5"), QRect());
  EXPECT_EQ(Lit(0, "4.5"), QRect());
  const QRect latin = Lit(0, "1.5");
  EXPECT_TRUE(QRect(120, 450, 480, 100).contains(latin) && latin.width() > 150)
      << latin.x() << ' ' << latin.y() << ' ' << latin.width();
  EXPECT_EQ(Lit(1, "1.5"), latin);
  const QRect last = Lit(1, "3.5");
  EXPECT_TRUE(last.width() > 30 && last.width() < latin.width());
}

TEST_F(TextSubtitleTest, TakesTheColoursOfTheTitlesPalette) {
  QList<int> colors;
  for (int step = 0; colors.size() < kPaletteSize; ++step) {
    const int color = RgbToPalette(10 + step * 5, 240 - step * 4, step * step % 256);
    if (IsStablePaletteColor(color)) colors << color;
  }
  Write(u"F.pal"_s, PaletteFileText(PaletteList(colors)));
  MakeFilm();
  Write(u"Author.xml"_s,
        "<dvdauthor dest=\"C:\\T\\DVD\"><vmgm/><titleset><titles><subpicture/><pgc palette=\"C:\\T\\F.pal\">"
        "<vob file=\"C:\\T\\F_SUB2.mpg\"/></pgc></titles></titleset></dvdauthor>");
  const std::string printed = RunBatch("dvdauthor -x C:\\T\\Author.xml\r\n");
  EXPECT_EQ(printed.find("ERR"), std::string::npos) << printed;

  // The palette of the title is the file's, and the letters' commands name its second and third colour.
  const QByteArray ifo = Read(u"DVD/VIDEO_TS/VTS_01_0.IFO"_s);
  const auto number = [&ifo](qsizetype at) { return qsizetype(qFromBigEndian<quint32>(ifo.constData() + at)); };
  const qsizetype table = number(0xCC) * 2048;
  const qsizetype chain = table + number(table + 12);
  for (int i = 0; i < kPaletteSize; ++i) {
    const qsizetype at = chain + 164 + 4 * i;
    EXPECT_EQ(quint8(ifo[at + 1]) | quint8(ifo[at + 2]) << 8 | quint8(ifo[at + 3]) << 16, colors[i]) << i;
  }
  const QByteArray vob = Read(u"DVD/VIDEO_TS/VTS_01_1.VOB"_s);
  EXPECT_NE(vob.indexOf(QByteArray::fromHex("03121104")), -1);

  Write(u"F.pal"_s, "no palette\r\n");
  const std::string refused = MakeFilm();
  EXPECT_NE(refused.find("*ERROR: " + Host(u"F.pal"_s).toStdString() + ": no palette of 16 colours"),
            std::string::npos);
  EXPECT_FALSE(QFile::exists(Host(u"F_SUB1.mpg"_s)));
}

TEST_F(TextSubtitleTest, FindsFontsByTheNamesOfTheirFiles) {
  qputenv("TORVANE_DRIVE_C", Drive().toUtf8());
  QDir().mkpath(Drive() + u"/Windows/Fonts"_s);
  QFile::copy(u"/usr/share/fonts/truetype/liberation/LiberationMono-Regular.ttf"_s,
              Drive() + u"/Windows/Fonts/Fancy.TTF"_s);
  const std::vector<std::pair<QString, QString>> names{
      {u"arial.ttf"_s, u"Arial"_s},
      {u"ARIALBD.TTF"_s, u"Arial:bold"_s},
      {u"timesbi.ttf"_s, u"Times New Roman:bold:italic"_s},
      {u"verdanaz.ttf"_s, u"Verdana:bold:italic"_s},
      {u"couri.ttf"_s, u"Courier New:italic"_s},
      {u"nonesuch.ttf"_s, u"nonesuch"_s},
      {u"DejaVu Sans"_s, u"DejaVu Sans"_s},
      {u"liberationserif-bold.ttf"_s, u"/usr/share/fonts/truetype/liberation/LiberationSerif-Bold.ttf"_s},
      {u"fancy.ttf"_s, Drive() + u"/Windows/Fonts/Fancy.TTF"_s},
      {u"C:\\windows\\fonts\\fancy.ttf"_s, Drive() + u"/Windows/Fonts/Fancy.TTF"_s},
      {u"C:\\gone\\arial.ttf"_s, u"Arial"_s},
  };
  for (const auto& [name, native] : names) EXPECT_EQ(NativeFontName(name), native);
  qunsetenv("TORVANE_DRIVE_C");
}

}  // namespace
}  // namespace torvane::test
