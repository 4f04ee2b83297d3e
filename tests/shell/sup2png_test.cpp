#include "shell/sup2png.h"

#include "real_media.h"
#include "shell/mpeg_pack.h"
#include "support/mutation_run.h"
#include "tool_mutations.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

/// An odd number of lines and points, runs of every length, all four values.
Subpicture Pattern() {
  Subpicture picture{QRect(101, 401, 351, 57), {}, {0, 1, 2, 3}, {0, 15, 15, 8}};
  for (int y = 0; y < picture.area.height(); ++y) {
    for (int x = 0; x < picture.area.width(); ++x) {
      picture.pixels += char(y == 5 ? 3 : x < 64 ? x & y & 3 : x < 100 + y * 3 ? 1 : x < 340 ? 2 : 0);
    }
  }
  picture.end = 1024 * 88;  // 1.001 s
  return picture;
}

class Sup2PngTest : public RealMediaTest {
 protected:
  /// The subpicture units of a program stream, with their presentation times.
  std::vector<std::pair<qint64, Subpicture>> UnitsOf(const QString& name) const {
    std::vector<std::pair<qint64, Subpicture>> units;
    const QByteArray bytes = Read(name);
    QByteArray unit;
    qint64 pts = 0;
    for (qsizetype at = 0; at < bytes.size(); at += MpegPack::kSize) {
      const MpegPack pack(bytes.mid(at, MpegPack::kSize));
      for (const PesPacket& packet : pack.Packets()) {
        if (packet.stream != 0xBD || quint8(pack.Bytes()[packet.payload]) != 0x20) continue;
        if (packet.pts) pts = *packet.pts;
        unit += pack.Bytes().sliced(packet.payload + 1, packet.end - packet.payload - 1);
        if (unit.size() < qFromBigEndian<quint16>(unit.constData())) continue;
        const Result<SubpictureUnit> read = ReadSubpicture(unit);
        EXPECT_TRUE(read && read->picture) << read.Error().toStdString();
        if (read && read->picture) units.emplace_back(pts, *read->picture);
        unit.clear();
      }
    }
    return units;
  }
};

TEST_F(Sup2PngTest, ReadsWhatWasWrittenIntoEachUnit) {
  Subpicture pattern = Pattern();
  pattern.forced = true;
  Subpicture point{QRect(719, 575, 1, 1), QByteArray(1, '\2'), {4, 5, 6, 7}, {1, 2, 3, 4}, 2048, {}, false};
  Subpicture whole{QRect(0, 0, 720, 576), QByteArray(720 * 576, '\1'), {15, 14, 13, 12}, {0, 15, 0, 0}, 0, 4096, false};
  for (const Subpicture& picture : {pattern, point, whole}) {
    const Result<SubpictureUnit> read = ReadSubpicture(SupWriter::Unit(picture));
    ASSERT_TRUE(read) << read.Error().toStdString();
    EXPECT_EQ(read->picture, picture);
  }
  // A fade shows itself first in its second step; a unit that only stops ends the one before.
  Subpicture faded = pattern;
  faded.contrast = {0, 0, 0, 0};
  QByteArray unit = SupWriter::Unit(faded);
  unit.replace(unit.size() - 2, 2, QByteArray::fromHex("040ff0ff"));
  qToBigEndian(quint16(unit.size()), unit.data());
  faded.contrast = {0, 15, 15, 0};
  faded.end.reset();
  EXPECT_EQ(ReadSubpicture(unit)->picture, faded);
  const Result<SubpictureUnit> stop = ReadSubpicture(QByteArray::fromHex("000a00040010000402ff"));
  EXPECT_TRUE(stop && !stop->picture && stop->end == 16 * 1024);
}

TEST_F(Sup2PngTest, BringsSubtitlesIntoAFilmAndItsTitleWithTheirColours) {
  Ffmpeg(u"-f lavfi -i color=black:s=720x576:r=25:d=8 -c:v mpeg2video -b:v 2000k -g 12 -f mpeg2video v.m2v"_s);
  const Subpicture pattern = Pattern();
  Subpicture forced = pattern;
  forced.forced = true;
  forced.end.reset();
  Write(u"Film's subtitles.sup"_s, SupWriter::Record(90000, SupWriter::Unit(pattern)) +
                                       SupWriter::Record(90000 * 5, SupWriter::Unit(forced)) +
                                       SupWriter::Record(90000 * 6, QByteArray::fromHex("000a00040010000402ff")));
  const QList<int> colors = StableColors();
  Write(u"F.pal"_s, PaletteFileText(PaletteList(colors)));
  // The lines of a generated batch.
  const std::string printed = RunBatch(
      "erase \"C:\\T\\TempSub.d\\*.*\" /Q\r\nrmdir \"C:\\T\\TempSub.d\"\r\nerase \"C:\\T\\TempSub.sup\"\r\n"
      "copy \"C:\\T\\Film's subtitles.sup\" \"C:\\T\\TempSub.sup\"\r\n"
      "\"C:\\Tools\\sup2png.exe\" \"C:\\T\\TempSub.sup\" \"C:\\T\\F.pal\"\r\n"
      "copy \"C:\\T\\TempSub.d\\spumux.xml\" \"C:\\T\\Spu1Sub1.xml\"\r\n"
      "\"C:\\Tools\\mplex.exe\" -M -f 8 -o \"C:\\T\\F.mpg\" \"C:\\T\\v.m2v\"\r\n"
      "\"C:\\Tools\\spumux.exe\" -s0 \"C:\\T\\Spu1Sub1.xml\" <\"C:\\T\\F.mpg\" > \"C:\\T\\F_SUB1.mpg\" \r\n");
  const QString folder = Host(u"TempSub.d"_s);
  const QByteArray picture = HostFiles::ToDos(folder).toUtf8() + "\\sub0000";
  EXPECT_EQ(
      Read(u"Spu1Sub1.xml"_s),
      "<subpictures>\r\n  <stream>\r\n    <spu start=\"00:00:01.000\" end=\"00:00:02.001\" image=\"" + picture +
          "1.png\" xoffset=\"101\" yoffset=\"401\"/>\r\n    <spu start=\"00:00:05.000\" end=\"00:00:06.182\" image=\"" +
          picture + "2.png\" xoffset=\"101\" yoffset=\"401\" force=\"yes\"/>\r\n  </stream>\r\n</subpictures>\r\n");
  const QImage image(folder + u"/sub00001.png"_s);
  ASSERT_EQ(image.size(), pattern.area.size());
  for (int i = 0; i < pattern.pixels.size(); ++i) {
    const int value = pattern.pixels[i];
    const int rgb = PaletteToRgb(colors[value]);
    const QRgb expected = qRgba(rgb & 255, rgb >> 8 & 255, rgb >> 16, pattern.contrast[size_t(value)] * 17);
    ASSERT_EQ(image.pixel(i % 351, i / 351), expected) << i;
  }

  // In the film: the same pictures at the same places and times.
  EXPECT_TRUE(Contains(printed, "2 subtitles added")) << printed;
  const auto units = UnitsOf(u"F_SUB1.mpg"_s);
  ASSERT_EQ(units.size(), 2U);
  EXPECT_EQ(units[1].first - units[0].first, 90000 * 4);
  EXPECT_FALSE(units[0].second.forced);
  EXPECT_TRUE(units[1].second.forced);
  for (const auto& [pts, found] : units) {
    for (int y = 0; y < 57; ++y) {
      for (int x = 0; x < 351; ++x) {
        const QPoint at = QPoint(101 + x, 401 + y) - found.area.topLeft();
        const bool inside = QRect(QPoint(), found.area.size()).contains(at);
        const int value = inside ? found.pixels[at.y() * found.area.width() + at.x()] : -1;
        const int contrast = inside ? found.contrast[size_t(value)] : 0;
        ASSERT_EQ(contrast, pattern.contrast[size_t(pattern.pixels[y * 351 + x])]) << x << ' ' << y;
      }
    }
  }
  EXPECT_NEAR(*units[0].second.end, *pattern.end, 1024);

  // And dvdauthor finds their colours in the title's palette.
  Write(u"Author.xml"_s,
        "<dvdauthor dest=\"C:\\T\\DVD\"><vmgm/><titleset><titles><subpicture/><pgc palette=\"C:\\T\\F.pal\">"
        "<vob file=\"C:\\T\\F_SUB1.mpg\"/></pgc></titles></titleset></dvdauthor>");
  const std::string authored = RunBatch("dvdauthor -x C:\\T\\Author.xml\r\n");
  EXPECT_FALSE(Contains(authored, "ERR")) << authored;
  const auto title = UnitsOf(u"DVD/VIDEO_TS/VTS_01_1.VOB"_s);
  ASSERT_EQ(title.size(), 2U);
  const Subpicture& shown = title[0].second;
  const QPoint at = QPoint(101 + 200, 401 + 50) - shown.area.topLeft();
  EXPECT_EQ(shown.colors[size_t(shown.pixels[at.y() * shown.area.width() + at.x()])], 1);
}

TEST_F(Sup2PngTest, NamesTheSubtitleThatIsBrokenAndKeepsTheFormerFolder) {
  const QByteArray good = SupWriter::Record(0, SupWriter::Unit(Pattern()));
  const QByteArray place = QByteArray::number(good.size());
  const std::vector<std::pair<QByteArray, QByteArray>> cases{
      {"", "holds no subtitles"},
      {"WEBVTT and more", "subtitle 1, at byte 0, does not begin with SP"},
      {good + "SP", "subtitle 2, at byte " + place + ", is cut off"},
      {good + good.chopped(1), "subtitle 2, at byte " + place + ", is cut off"},
      {good + "XP", "subtitle 2, at byte " + place + ", does not begin with SP"},
      {SupWriter::Record(0, QByteArray::fromHex("000a00040010000002ff")),
       "subtitle 1, at byte 0, has commands in a circle"},
      {SupWriter::Record(0, QByteArray::fromHex("000a00040010000442ff")),
       "subtitle 1, at byte 0, has an unknown command 66"},
      {SupWriter::Record(0, QByteArray::fromHex("000a00090010000401ff")), "subtitle 1, at byte 0, ends too early"},
      {SupWriter::Record(0, QByteArray::fromHex("000a00040010000401ff")),
       "subtitle 1, at byte 0, shows a picture without telling where"},
      {SupWriter::Record(0, QByteArray::fromHex("0010000400000004050002d0000001ff")),
       "subtitle 1, at byte 0, draws outside the picture, at 0,0 to 720,1"},
  };
  Write(u"a.sup"_s, good);
  EXPECT_EQ(RunBatch("sup2png C:\\T\\a.sup\r\n"), "sup2png: 1 subtitles\r\n");
  const QByteArray former = Read(u"a.d/spumux.xml"_s);
  for (const auto& [bytes, message] : cases) {
    Write(u"a.sup"_s, bytes);
    EXPECT_EQ(RunBatch("sup2png C:\\T\\a.sup\r\n"), "ERR:  sup2png: " + Host(u"a.sup"_s).toStdString() + ": " +
                                                        message.toStdString() +
                                                        "\r\n\r\n*ERROR: sup2png ended with status 1\r\n");
    EXPECT_EQ(Read(u"a.d/spumux.xml"_s), former);
    EXPECT_FALSE(QFile::exists(Host(u"a.d.part"_s)));
  }
  // What others laid into the folder is never removed.
  Write(u"a.sup"_s, good);
  Write(u"a.d/mine.txt"_s, "mine");
  EXPECT_NE(RunBatch("sup2png C:\\T\\a.sup\r\n").find("Directory not empty"), std::string::npos);
  EXPECT_EQ(Read(u"a.d/mine.txt"_s), "mine");
}

TEST(OwnTools, SurviveDamagedFiles) {
  ToolMutations mutations(11);
  EXPECT_EQ(ShortRun(mutations, 300), QString());
  EXPECT_GT(mutations.Succeeded(), 20);
}

}  // namespace
}  // namespace torvane::test
