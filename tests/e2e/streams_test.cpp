// A film with everything that a film can have: what the project says of its streams stands on the disc.

#include <dvdread/ifo_read.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <map>

#include "dvd_player.h"
#include "media/palette.h"
#include "media/palette_file.h"
#include "shell/mpeg_pack.h"
#include "shell/sup_writer.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using testing::ElementsAre;
using testing::Pointwise;

/// Seconds by which a subtitle or a chapter may be early or late.
constexpr double startTolerance = 0.05;
constexpr int supSeconds = 4;

QByteArray Cue(int number, const QByteArray& from, const QByteArray& to, const QByteArray& text) {
  return QByteArray::number(number) + "\r\n" + from + " --> " + to + "\r\n" + text + "\r\n\r\n";
}

/// A frame within a block, in two colours of the palette.
Subpicture Picture() {
  Subpicture picture{QRect(200, 400, 320, 60), {}, {0, 5, 9, 0}, {0, 15, 15, 0}};
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 320; ++x) picture.pixels += char(x < 20 || x >= 300 || y < 10 || y >= 50 ? 1 : 2);
  }
  picture.end = 3 * 90000;
  return picture;
}

/// Sixteen different colours that survive the way to RGB and back.
QList<int> Colours() {
  QList<int> colours;
  for (int step = 0; colours.size() < kPaletteSize; ++step) {
    const int colour = RgbToPalette(240 - step * 3, 20 + step * 4, step * 37 % 200 + 30);
    if (IsStablePaletteColor(colour) && !colours.contains(colour)) colours << colour;
  }
  return colours;
}

/// The colours of the opaque pixels, by their places in the frame.
std::map<std::pair<int, int>, int> Shown(const Subpicture& picture, const QList<int>& palette) {
  std::map<std::pair<int, int>, int> shown;
  for (int y = 0; y < picture.area.height(); ++y) {
    for (int x = 0; x < picture.area.width(); ++x) {
      const int value = picture.pixels[y * picture.area.width() + x];
      if (picture.contrast[size_t(value)] == 0) continue;
      shown[{picture.area.left() + x, picture.area.top() + y}] = palette[picture.colors[size_t(value)]];
    }
  }
  return shown;
}

/// The first unit of a subpicture stream (from 0) of a title.
std::optional<Subpicture> FirstPicture(const QByteArray& title, int stream) {
  QByteArray unit;
  for (qsizetype at = 0; at + MpegPack::kSize <= title.size(); at += MpegPack::kSize) {
    const MpegPack pack(title.mid(at, MpegPack::kSize));
    for (const PesPacket& packet : pack.Packets()) {
      if (packet.stream != 0xBD || quint8(pack.Bytes()[packet.payload]) != 0x20 + stream) continue;
      unit += pack.Bytes().sliced(packet.payload + 1, packet.end - packet.payload - 1);
      if (unit.size() < qFromBigEndian<quint16>(unit.constData())) continue;
      const Result<SubpictureUnit> read = ReadSubpicture(unit);
      return read ? read->picture : std::nullopt;
    }
  }
  return std::nullopt;
}

/// What ffprobe finds in a title: the kinds of its streams, and when the packets of its subtitles are shown, in seconds
/// from the first picture.
struct Probe {
  std::map<std::string, int> kinds;
  std::map<int, std::vector<double>> shown;  ///< by the stream's id in the title
};

Probe ProbeTitle(const QString& path) {
  const QStringList options =
      u"-v error -probesize 100M -analyzeduration 100M -of json -show_entries "_s
      u"stream=index,codec_name,id:packet=stream_index,pts_time"_s.split(u' ');
  const QJsonObject found = QJsonDocument::fromJson(OutputOf(u"ffprobe"_s, options + QStringList{path})).object();
  Probe probe;
  std::map<int, QString> names;
  std::map<int, int> ids;
  for (const QJsonValue& stream : found[u"streams"_s].toArray()) {
    const int index = stream[u"index"_s].toInt();
    names[index] = stream[u"codec_name"_s].toString();
    ids[index] = stream[u"id"_s].toString().toInt(nullptr, 16);
    ++probe.kinds[names[index].toStdString()];
  }
  double first = 1e9;
  for (const QJsonValue& packet : found[u"packets"_s].toArray()) {
    if (names[packet[u"stream_index"_s].toInt()] != u"mpeg2video" || !packet[u"pts_time"_s].isString()) continue;
    first = std::min(first, packet[u"pts_time"_s].toString().toDouble());
  }
  for (const QJsonValue& packet : found[u"packets"_s].toArray()) {
    const int index = packet[u"stream_index"_s].toInt();
    if (names[index] != u"dvd_subtitle" || !packet[u"pts_time"_s].isString()) continue;
    probe.shown[ids[index]].push_back(packet[u"pts_time"_s].toString().toDouble() - first);
  }
  return probe;
}

std::string Language(uint16_t code) {
  return {char(code >> 8), char(code & 0xFF)};
}

TEST(StreamsTest, EverythingOfAFilmIsOnTheDisc) {
  Workshop workshop;
  const QString dir = workshop.Dir() + u'/';
  for (const QString& name : {u"two.mp2"_s, u"three.ac3"_s}) {
    MakeSound(dir + name, 250, 24);
  }
  Put(dir + u"one.srt"_s,
      Cue(1, "00:00:02,000", "00:00:05,000", "One") + Cue(2, "00:00:08,000", "00:00:10,000", "Two"));
  Put(dir + u"two.srt"_s, Cue(1, "00:00:03,000", "00:00:06,000", "Drei"));
  Put(dir + u"three.sup"_s, SupWriter::Record(supSeconds * 90000, SupWriter::Unit(Picture())));
  const QList<int> colours = Colours();
  Put(dir + u"colours.pal"_s, PaletteFileText(PaletteList(colours)));

  const QString project = dir + u"all.tvn";
  for (const auto& [command, arguments] : std::initializer_list<std::pair<QString, QStringList>>{
           {u"new"_s, {project}},
           {u"add-title"_s, {project,           dir + u"film1.m2v",
                             u"--audio"_s,      dir + u"film1.ac3",
                             u"--audio"_s,      dir + u"two.mp2",
                             u"--audio"_s,      dir + u"three.ac3",
                             u"--sub"_s,        dir + u"one.srt",
                             u"--sub"_s,        dir + u"two.srt",
                             u"--sub"_s,        dir + u"three.sup",
                             u"--sub-format"_s, u"ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30"_s,
                             u"--sub-format"_s, u"CP1250/24.0/arial.ttf/left/top/60/60/30/30"_s,
                             u"--languages"_s,  u"EN,DE,FR,ES,IT,NL"_s,
                             u"--palette"_s,    dir + u"colours.pal",
                             u"--chapters"_s,   u"0:00,0:07.2,0:15.6"_s}},
           {u"build"_s, {project}}}) {
    ASSERT_TRUE(Succeeded(workshop.RunPlain(command, arguments))) << command.toStdString();
  }
  EXPECT_EQ(ProjectText(ContentOf(project)).Value(u"FPS1"_s), PaletteList(colours));

  dvd_reader_t* disc = DVDOpen((workshop.OutDir() + u"/DVD"_s).toUtf8().constData());
  ASSERT_TRUE(disc);
  ifo_handle_t* ifo = ifoOpen(disc, 1);
  ASSERT_TRUE(ifo);
  const vtsi_mat_t& title = *ifo->vtsi_mat;
  std::vector<std::string> sound;
  for (int i = 0; i < title.nr_of_vts_audio_streams; ++i) {
    const audio_attr_t& track = title.vts_audio_attr[i];
    sound.push_back((track.audio_format == 0 ? "ac3 " : "mpeg ") + Language(track.lang_code));
  }
  EXPECT_THAT(sound, ElementsAre("ac3 en", "mpeg de", "ac3 fr"));
  std::vector<std::string> subtitles;
  for (int i = 0; i < title.nr_of_vts_subp_streams; ++i)
    subtitles.push_back(Language(title.vts_subp_attr[i].lang_code));
  EXPECT_THAT(subtitles, ElementsAre("es", "it", "nl"));
  QList<int> palette;
  for (int i = 0; i < kPaletteSize; ++i) {
    const uint32_t entry = ifo->vts_pgcit->pgci_srp[0].pgc->palette[i];
    palette << int((entry >> 16 & 0xFF) | (entry & 0xFF00) | (entry & 0xFF) << 16);
  }
  EXPECT_EQ(PaletteList(palette), PaletteList(colours));
  ifoClose(ifo);
  DVDClose(disc);

  const QString film = workshop.OutDir() + u"/DVD/VIDEO_TS/VTS_01_1.VOB"_s;
  const Probe probe = ProbeTitle(film);
  EXPECT_EQ(probe.kinds, (std::map<std::string, int>{
                             {"ac3", 2}, {"dvd_nav_packet", 1}, {"dvd_subtitle", 3}, {"mp2", 1}, {"mpeg2video", 1}}));
  ASSERT_EQ(probe.shown.size(), 3U);
  EXPECT_THAT(probe.shown.at(0x20), Pointwise(testing::DoubleNear(startTolerance), {2.0, 8.0}));
  EXPECT_THAT(probe.shown.at(0x21), Pointwise(testing::DoubleNear(startTolerance), {3.0}));
  EXPECT_THAT(probe.shown.at(0x22), Pointwise(testing::DoubleNear(startTolerance), {double(supSeconds)}));
  const std::optional<Subpicture> shown = FirstPicture(ContentOf(film), 2);
  ASSERT_TRUE(shown);
  EXPECT_EQ(Shown(*shown, colours), Shown(Picture(), colours));

  const std::unique_ptr<DvdPlayer> player = DvdPlayer::Open(workshop.OutDir() + u"/DVD"_s);
  ASSERT_TRUE(player);
  ASSERT_EQ(player->Settle().domain, DiscPlace::Domain::VmgmMenu);
  ASSERT_EQ(player->Press(1), DiscPlace::Chapter(1, 1));
  const PlayedTitle played = player->PlayToEnd();
  EXPECT_THAT(played.chapterStarts, Pointwise(testing::DoubleNear(startTolerance), {0.0, 7.2, 15.6}));
  EXPECT_NEAR(played.seconds, 24, tolerance);
}

}  // namespace
}  // namespace torvane::test
