#include <QStringEncoder>
#include <QtEndian>
#include <vector>

#include "real_media.h"
#include "shell/font_name.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

class TextSubtitleTest : public RealMediaTest {
 protected:
  /// A black film with three streams of the same words, in ISO-8859-1, UTF-8 and UTF-16, all said to be ISO-8859-1.
  std::string MakeFilm() const {
    Ffmpeg(u"-f lavfi -i color=black:s=720x576:r=25:d=5 -c:v mpeg2video -b:v 2000k -g 12 -f mpeg2video v.m2v"_s);
    const QString words =
        u"1\r\n00:00:01,000 --> 00:00:02,000\r\nGrüße & <b>mehr\r\n\r\n"
        "2\r\n00:00:03,000 --> 00:00:04,000\r\nEnde\r\n"_s;
    Write(u"latin.srt"_s, words.toLatin1());
    Write(u"utf8.srt"_s, words.toUtf8());
    Write(u"utf16.srt"_s, QStringEncoder(QStringEncoder::Utf16BE, QStringEncoder::Flag::WriteBom)(words));
    const auto control = [](const QString& file) {
      return Data(u"TextSub.xml"_s).replace(u"{file}"_s, file).replace(u"{charset}"_s, u"ISO-8859-1"_s).toUtf8();
    };
    Write(u"Spu1Sub1.xml"_s, control(u"latin.srt"_s));
    Write(u"Spu2Sub1.xml"_s, control(u"utf8.srt"_s));
    Write(u"Spu3Sub1.xml"_s, control(u"utf16.srt"_s));
    return RunBatch(
        "\"C:\\Tools\\mplex.exe\" -M -f 8 -o \"C:\\T\\F.mpg\" \"C:\\T\\v.m2v\"\r\n"
        "\"C:\\Tools\\spumux.exe\" -ma -w -s0 \"C:\\T\\Spu1Sub1.xml\" <\"C:\\T\\F.mpg\" > \"C:\\T\\F_SUB1.mpg\" \r\n"
        "\"C:\\Tools\\spumux.exe\" -ma -s1 \"C:\\T\\Spu2Sub1.xml\" <\"C:\\T\\F_SUB1.mpg\" > \"C:\\T\\F_SUB2.mpg\" "
        "\r\n"
        "\"C:\\Tools\\spumux.exe\" -ma -s2 \"C:\\T\\Spu3Sub1.xml\" <\"C:\\T\\F_SUB2.mpg\" > \"C:\\T\\F_SUB3.mpg\" "
        "\r\n");
  }

  /// The film with one of its subtitle streams at a time in seconds.
  QImage Shown(int stream, const char* seconds) const {
    Ffmpeg(u"-i F_SUB3.mpg -filter_complex [0:v][0:s:%1]overlay -ss %2 -frames:v 1 f.png"_s.arg(stream).arg(
        QLatin1StringView(seconds)));
    return QImage(Host(u"f.png"_s));
  }

  /// Where a picture is not black.
  static QRect Lit(const QImage& picture) {
    QRect lit;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (qGray(picture.pixel(x, y)) > 80) lit |= QRect(x, y, 1, 1);
      }
    }
    return lit;
  }
};

TEST_F(TextSubtitleTest, ShowsTheSameWordsFromAllCharacterSetsAtTheirTimes) {
  const std::string printed = MakeFilm();
  EXPECT_FALSE(Contains(printed, "ERR")) << printed;
  EXPECT_TRUE(Contains(printed, "INFO: default video format is PAL")) << printed;
  EXPECT_TRUE(Contains(printed, "LiberationSans-Regular.ttf")) << printed;
  for (const char* seconds : {"0.5", "2.5", "4.5"}) EXPECT_EQ(Lit(Shown(0, seconds)), QRect()) << seconds;
  const QImage picture = Shown(0, "1.5");
  const QRect latin = Lit(picture);
  EXPECT_TRUE(QRect(120, 450, 480, 100).contains(latin) && latin.width() > 150)
      << latin.x() << ' ' << latin.y() << ' ' << latin.width();
  EXPECT_EQ(Shown(1, "1.5"), picture);
  EXPECT_EQ(Shown(2, "1.5"), picture);
  const QRect last = Lit(Shown(1, "3.5"));
  EXPECT_TRUE(last.width() > 30 && last.width() < latin.width());
}

TEST_F(TextSubtitleTest, TakesTheColoursOfTheTitlesPalette) {
  QList<int> changed = StableColors();
  changed[1] = 0x1789C5;  // RGB gives it, but not by the way there and back
  changed[2] = 0x362290;  // no RGB colour gives it; players show what the next one is
  QList<int> shown = changed;
  shown[2] = RgbToPalette(PaletteToRgb(changed[2]));
  ASSERT_TRUE(!IsStablePaletteColor(changed[1]) && shown[2] != changed[2]);
  const QByteArray author =
      "<dvdauthor dest=\"C:\\T\\DVD\"><vmgm/><titleset><titles><subpicture/><pgc palette=\"C:\\T\\F.pal\">"
      "<vob file=\"C:\\T\\F_SUB3.mpg\"/></pgc></titles></titleset></dvdauthor>";
  Write(u"Author.xml"_s, author);
  for (const auto& [colors, expected] : {std::pair(StableColors(), StableColors()), std::pair(changed, shown)}) {
    Write(u"F.pal"_s, PaletteFileText(PaletteList(colors)));
    MakeFilm();
    QDir(Host(u"DVD"_s)).removeRecursively();
    const std::string printed = RunBatch("dvdauthor -x C:\\T\\Author.xml\r\n");
    EXPECT_FALSE(Contains(printed, "ERR")) << printed;

    // The palette of the title is the file's, and the letters' commands name its second and third colour.
    const QByteArray ifo = Read(u"DVD/VIDEO_TS/VTS_01_0.IFO"_s);
    const auto number = [&ifo](qsizetype at) { return qsizetype(qFromBigEndian<quint32>(ifo.constData() + at)); };
    const qsizetype table = number(0xCC) * 2048;
    const qsizetype chain = table + number(table + 12);
    for (int i = 0; i < kPaletteSize; ++i) {
      const qsizetype at = chain + 164 + 4 * i;
      EXPECT_EQ(quint8(ifo[at + 1]) | quint8(ifo[at + 2]) << 8 | quint8(ifo[at + 3]) << 16, expected[i]) << i;
    }
    const QByteArray vob = Read(u"DVD/VIDEO_TS/VTS_01_1.VOB"_s);
    EXPECT_NE(vob.indexOf(QByteArray::fromHex("03121104")), -1);
  }
  EXPECT_EQ(Read(u"F.pal"_s), PaletteFileText(PaletteList(changed)));

  Write(u"F.pal"_s, "no palette\r\n");
  EXPECT_TRUE(Contains(MakeFilm(), "*ERROR: " + Host(u"F.pal"_s).toStdString() + ": no palette of 16 colours"));
  EXPECT_FALSE(QFile::exists(Host(u"F_SUB1.mpg"_s)));
}

TEST_F(TextSubtitleTest, FindsFontsByTheNamesOfTheirFiles) {
  qputenv("TORVANE_DRIVE_C", Drive().toUtf8());
  const QString liberation = u"/usr/share/fonts/truetype/liberation/Liberation"_s;
  const QString fancy = Drive() + u"/Windows/Fonts/Fancy.TTF"_s;
  QDir().mkpath(Drive() + u"/Windows/Fonts"_s);
  QFile::copy(liberation + u"Mono-Regular.ttf", fancy);
  const std::vector<std::pair<QString, QString>> names{
      {u"arial.ttf"_s, u"Arial"_s},
      {u"ARIALBD.TTF"_s, u"Arial:bold"_s},
      {u"timesbi.ttf"_s, u"Times New Roman:bold:italic"_s},
      {u"verdanaz.ttf"_s, u"Verdana:bold:italic"_s},
      {u"couri.ttf"_s, u"Courier New:italic"_s},
      {u"nonesuch.ttf"_s, u"nonesuch"_s},
      {u"DejaVu Sans"_s, u"DejaVu Sans"_s},
      {u"liberationserif-bold.ttf"_s, liberation + u"Serif-Bold.ttf"},
      {u"fancy.ttf"_s, fancy},
      {u"C:\\windows\\fonts\\fancy.ttf"_s, fancy},
      {u"C:\\gone\\arial.ttf"_s, u"Arial"_s},
  };
  for (const auto& [name, native] : names) EXPECT_EQ(NativeFontName(name), native);
  qunsetenv("TORVANE_DRIVE_C");
}

}  // namespace
}  // namespace torvane::test
