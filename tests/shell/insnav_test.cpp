#include <dvdnav/dvdnav.h>

#include <QtEndian>
#include <vector>

#include "real_media.h"
#include "shell/mpeg_pack.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

/// A unit of a finished title, in ticks of 90 kHz.
struct Unit {
  qint64 start = 0;
  qint64 length = 0;
};

class InsnavTest : public RealMediaTest {
 protected:
  std::vector<MpegPack> Packs(const QString& name) const {
    const QByteArray bytes = Read(name);
    std::vector<MpegPack> packs;
    for (qsizetype at = 0; at < bytes.size(); at += MpegPack::kSize) {
      packs.emplace_back(bytes.mid(at, MpegPack::kSize));
      EXPECT_TRUE(packs.back().IsWhole()) << at;
    }
    return packs;
  }

  std::string Author(const QByteArray& body) const {
    Write(u"Author.xml"_s, "<dvdauthor dest=\"C:\\T\\DVD\">" + body + "</dvdauthor>");
    return RunBatch("dvdauthor -x C:\\T\\Author.xml\r\n");
  }

  /// The units of the VOBs of a finished disc, by their navigation packs.
  std::vector<Unit> Units(const QString& vob) const {
    std::vector<Unit> units;
    for (const MpegPack& pack : Packs(vob)) {
      if (!pack.IsNavigation()) continue;
      const auto at = [&pack](int position) { return qFromBigEndian<quint32>(pack.Bytes().constData() + position); };
      units.push_back({at(57), qint64(at(61)) - at(57)});
    }
    return units;
  }
};

/// Every pack of the input is there, in its place between the added ones, and is sent neither late nor before the last.
void ExpectSoundStream(const std::vector<MpegPack>& input, const std::vector<MpegPack>& output) {
  qint64 sent = -1;
  size_t next = 0;
  for (const MpegPack& pack : output) {
    EXPECT_GE(pack.Scr(), sent);
    sent = pack.Scr() + pack.TransferTicks();
    for (const PesPacket& packet : pack.Packets()) {
      if (packet.pts) {
        EXPECT_GE(*packet.pts * 300, sent);
      }
    }
    if (pack.IsNavigation() && !(next < input.size() && input[next].IsNavigation())) continue;
    ASSERT_LT(next, input.size());
    if (!pack.IsNavigation()) {
      EXPECT_EQ(pack.Bytes().sliced(14), input[next].Bytes().sliced(14)) << next;
    }
    ++next;
  }
  EXPECT_EQ(next, input.size());
}

TEST_F(InsnavTest, MakesATitleThatCanBeSearchedOfOnePictureAndItsSound) {
  const std::tuple<const char*, QString, int> cases[] = {
      {"p", u"ac3"_s, 192}, {"n", u"ac3"_s, 448}, {"p", u"mp2"_s, 64}, {"n", u"mp2"_s, 224}};
  for (const auto& [norm, encoder, bitRate] : cases) {
    SCOPED_TRACE(norm + encoder.toStdString() + std::to_string(bitRate));
    const QString file = u"a."_s + encoder;
    Ffmpeg(
        u"-f lavfi -i sine=440:duration=40 -ac 2 -ar 48000 -c:a %1 -b:a %2k %3"_s.arg(encoder).arg(bitRate).arg(file));
    const double seconds = double(QFile(Host(file)).size()) * 8 / (bitRate * 1000.0);
    MakeStill(norm);
    const std::string printed = RunBatch(
        u"\"C:\\Tools\\mplex.exe\" -M -f 8 -o \"C:\\T\\t.mpg\" \"C:\\T\\v.m2v\" \"C:\\T\\%1\"\r\n"
        "\"C:\\Tools\\insnav.exe\" -o \"C:\\T\\m.mpg\" \"C:\\T\\t.mpg\"\r\n"_s.arg(file)
            .toUtf8());
    ASSERT_TRUE(Contains(printed, "navigation packs added")) << printed;
    ExpectSoundStream(Packs(u"t.mpg"_s), Packs(u"m.mpg"_s));

    QDir(Host(u"DVD"_s)).removeRecursively();
    const std::string authored =
        Author("<vmgm/><titleset><titles><pgc><vob file=\"C:\\T\\m.mpg\"/></pgc></titles></titleset>");
    EXPECT_FALSE(Contains(authored, "WARN") || Contains(authored, "ERR")) << authored;
    const std::vector<Unit> units = Units(u"DVD/VIDEO_TS/VTS_01_1.VOB"_s);
    ASSERT_GT(units.size(), 30U);
    for (size_t i = 0; i < units.size(); ++i) {
      EXPECT_GE(units[i].length, 36000) << i;
      EXPECT_LE(units[i].length, i + 1 < units.size() ? 90000 : 108000) << i;
    }

    dvdnav_t* dvd = nullptr;
    ASSERT_EQ(dvdnav_open(&dvd, QFile::encodeName(Host(u"DVD"_s)).constData()), DVDNAV_STATUS_OK);
    dvdnav_set_readahead_flag(dvd, 0);
    dvdnav_set_PGC_positioning_flag(dvd, 1);
    uint64_t* chapters = nullptr;
    uint64_t duration = 0;
    EXPECT_EQ(dvdnav_describe_title_chapters(dvd, 1, &chapters, &duration), 1U);
    free(chapters);
    // The library counts 30 pictures of NTSC as a second.
    EXPECT_NEAR(double(duration) / 90000 * (norm[0] == 'p' ? 1 : 1.001), seconds, 0.04);
    EXPECT_NEAR(double(units.back().start + units.back().length - units.front().start) / 90000, seconds, 0.04);
    ASSERT_EQ(dvdnav_title_play(dvd, 1), DVDNAV_STATUS_OK);
    std::vector<uint8_t> block(2048);
    const auto toNextUnit = [&] {
      for (int i = 0; i < 2000; ++i) {
        int32_t event = 0;
        int32_t length = 0;
        if (dvdnav_get_next_block(dvd, block.data(), &event, &length) != DVDNAV_STATUS_OK) break;
        if (event == DVDNAV_NAV_PACKET) return qint64(dvdnav_get_current_nav_pci(dvd)->pci_gi.vobu_s_ptm);
      }
      return qint64(-1);
    };
    ASSERT_EQ(toNextUnit(), units.front().start);
    for (const int target : {20, 36, 3}) {
      ASSERT_EQ(dvdnav_time_search(dvd, uint64_t(target) * 90000), DVDNAV_STATUS_OK) << dvdnav_err_to_string(dvd);
      EXPECT_NEAR(double(toNextUnit() - units.front().start) / 90000, target, 1.2);
    }
    dvdnav_close(dvd);
  }
}

/// mplex of this machine reads no WAV files; what it is given instead must be the same sound.
TEST_F(InsnavTest, TheSoundOfAWavFileComesOutByteForByte) {
  Ffmpeg(u"-f lavfi -i sine=440:duration=6 -ac 2 -ar 48000 -c:a pcm_s16le a.wav"_s);
  Ffmpeg(u"-f lavfi -i sine=440:duration=6 -ac 2 -ar 48000 -f s16be expected"_s);
  MakeStill("p");
  const QByteArray line = "\"C:\\Tools\\mplex.exe\" -M -f 8 -o \"C:\\T\\t.mpg\" \"C:\\T\\v.m2v\" \"C:\\T\\a.WAV\"\r\n";
  const std::string printed = RunBatch(line + "\"C:\\Tools\\insnav.exe\" -o \"C:\\T\\m.mpg\" \"C:\\T\\t.mpg\"\r\n");
  EXPECT_TRUE(Contains(printed, "no under-runs")) << printed;
  Author("<vmgm/><titleset><titles><pgc><vob file=\"C:\\T\\m.mpg\"/></pgc></titles></titleset>");
  EXPECT_GE(Units(u"DVD/VIDEO_TS/VTS_01_1.VOB"_s).size(), 10U);
  Ffmpeg(u"-i DVD/VIDEO_TS/VTS_01_1.VOB -map 0:a -f s16be found"_s);
  EXPECT_TRUE(Read(u"found"_s) == Read(u"expected"_s));

  Ffmpeg(u"-f lavfi -i sine=440:duration=1 -ac 1 -ar 44100 -c:a pcm_s16le a.wav"_s);
  EXPECT_EQ(RunBatch(line), "*ERROR: " + Host(u"a.wav"_s).toStdString() +
                                ": 44100 Hz, 16 bits, 1 channels; a DVD takes 48000 Hz and 16 bits, so convert it\r\n");
  for (const QByteArray& bytes :
       {QByteArray(), QByteArray("RIFF    WAVEdata\1"), QByteArray("RIFF    WAVEfmt \xFF\xFF\xFF\xFF")}) {
    Write(u"a.wav"_s, bytes);
    EXPECT_EQ(RunBatch(line), "*ERROR: " + Host(u"a.wav"_s).toStdString() + ": no WAV file with samples\r\n");
  }
  EXPECT_EQ(QDir(Host({})).entryList({u"torvane-cmd-*"_s}, QDir::Dirs | QDir::Hidden), QStringList());
}

TEST_F(InsnavTest, KeepsTheUnitsOfAFilmAndOfAMenuWithButtons) {
  Ffmpeg(u"-f lavfi -i sine=440:duration=6 -ac 2 -ar 48000 -c:a ac3 -b:a 192k a.ac3"_s);
  Ffmpeg(u"-f lavfi -i testsrc2=s=720x576:r=25:d=6 -c:v mpeg2video -b:v 3000k -g 12 -f mpeg2video v.m2v"_s);
  RunBatch("mplex -M -f 8 -o C:\\T\\t.mpg C:\\T\\v.m2v C:\\T\\a.ac3\r\ninsnav -o C:\\T\\film.mpg C:\\T\\t.mpg\r\n");
  ExpectSoundStream(Packs(u"t.mpg"_s), Packs(u"film.mpg"_s));
  EXPECT_EQ(Units(u"film.mpg"_s).size(), Units(u"t.mpg"_s).size());

  MakeStill("p");
  RunBatch("mplex -M -f 8 -o C:\\T\\t.mpg C:\\T\\v.m2v C:\\T\\a.ac3\r\ninsnav -o C:\\T\\m.mpg C:\\T\\t.mpg\r\n");
  QImage button(720, 576, QImage::Format_ARGB32);
  button.fill(Qt::transparent);
  for (int x = 100; x < 200; ++x) button.setPixelColor(x, 100, Qt::red);
  button.save(Host(u"h.png"_s));
  Write(u"s.xml"_s,
        "<subpictures><stream><spu start=\"0\" highlight=\"C:\\T\\h.png\" select=\"C:\\T\\h.png\" force=\"yes\">"
        "<button name=\"b\" x0=\"90\" y0=\"90\" x1=\"210\" y1=\"120\"/></spu></stream></subpictures>");
  std::string printed = RunBatch("spumux C:\\T\\s.xml <C:\\T\\m.mpg > C:\\T\\menu.mpg\r\n");
  printed += Author(
      "<vmgm><menus><video format=\"pal\"/><pgc><vob file=\"C:\\T\\menu.mpg\" pause=\"inf\"/><button name=\"b\">"
      "jump title 1;</button></pgc></menus></vmgm>"
      "<titleset><titles><pgc><vob file=\"C:\\T\\film.mpg\"/></pgc></titles></titleset>");
  EXPECT_FALSE(Contains(printed, "ERR")) << printed;
  const std::vector<Unit> units = Units(u"DVD/VIDEO_TS/VIDEO_TS.VOB"_s);
  EXPECT_EQ(units.size(), Units(u"m.mpg"_s).size());
  EXPECT_GE(units.size(), 10U);
}

TEST_F(InsnavTest, RefusesWhatIsNoStreamAndLeavesNoOutput) {
  const std::vector<std::pair<QByteArray, const char*>> cases{
      {"", "holds neither pictures nor sound"},
      {"no film at all", "no whole pack of 2048 bytes at byte 0; multiplex the film with mplex -f 8"},
      {QByteArray("\0\0\1\xBA\x44", 5) + QByteArray(2043 + 100, '\0'),
       "no whole pack of 2048 bytes at byte 2048; multiplex"},
      {QByteArray("\0\0\1\xBA\x44", 5) + QByteArray(2043, '\0'), "holds neither pictures nor sound"},
  };
  for (const auto& [bytes, message] : cases) {
    Write(u"m.mpg"_s, "former");
    Write(u"t.mpg"_s, bytes);
    const std::string printed = RunBatch("insnav -o C:\\T\\m.mpg C:\\T\\t.mpg\r\n");
    EXPECT_EQ(printed.find("ERR:  insnav: " + Host(u"t.mpg"_s).toStdString() + ": " + message), 0U) << printed;
    EXPECT_TRUE(printed.ends_with("\r\n*ERROR: insnav ended with status 1\r\n")) << printed;
    EXPECT_EQ(Files(), (QStringList{u"t.mpg"_s, u"x.bat"_s}));
  }
  EXPECT_EQ(RunBatch("insnav -o C:\\T\\m.mpg\r\n"),
            "ERR:  insnav: usage: insnav -o OUTPUT INPUT\r\n\r\n*ERROR: insnav ended with status 1\r\n");
}

}  // namespace
}  // namespace torvane::test
