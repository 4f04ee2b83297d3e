#include "media/media_advice.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/settings.h"
#include "mpeg_pieces.h"
#include "platform/host_files.h"
#include "support/shell_command.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

class MediaAdvice : public testing::Test {
 protected:
  QString Fault(const QString& name, MediaUse use, bool pal = true) {
    Settings settings;
    settings.VideoNormPal = pal;
    const std::optional<Finding> fault = MediaFault(HostFiles::ToDos(dir_.filePath(name)), use, settings);
    return fault ? fault->text : QString();
  }

  void Encode(const QString& options) { ShellCommand(dir_.path(), u"ffmpeg -v error -y "_s + options); }

  void Follow(const QString& fault) {
    ShellCommand(dir_.path(), fault.sliced(std::max<qsizetype>(0, fault.indexOf(u"ffmpeg -i "))) + u" -v error");
  }

  QTemporaryDir dir_;
};

/// The advice is followed to the letter, and what comes of it is fit for a disc.
TEST_F(MediaAdvice, TheCommandsMakeOfForeignMediaWhatADiscTakes) {
  const QString picture = u"-f lavfi -i testsrc2=s=320x136:r=24:d=0.4 "_s;
  const QString dvdPicture = u"-f lavfi -i testsrc2=s=720x576:r=25:d=0.4 "_s;
  const QString sound = u"-f lavfi -i sine=d=0.4:r=44100 "_s;
  const struct {
    MediaUse use;
    QString name, options, says, made;
    bool pal = true;
  } cases[] = {
      {MediaUse::Film, u"a.mp4"_s, picture + sound + u"-c:a aac", u"is an MP4 file"_s, u"a-dvd.mpg"_s},
      {MediaUse::Film, u"b.mkv"_s, picture, u"is a Matroska or WebM file"_s, u"b-dvd.mpg"_s, false},
      {MediaUse::Film, u"c.m2v"_s, picture + u"-c:v libx264 -f h264", u"is H.264 video"_s, u"c-dvd.mpg"_s},
      {MediaUse::Film, u"d.m2v"_s, picture + u"-c:v libx265 -x265-params log-level=0 -f hevc", u"is H.265"_s, {}},
      {MediaUse::Film, u"e it's.mpg"_s, dvdPicture + sound + u"-c:v mpeg2video -c:a mp2 -f mpegts",
       u"is an MPEG transport stream"_s, u"e it's-dvd.mpg"_s},
      {MediaUse::Film,
       u"f.m2v"_s,
       dvdPicture + u"-c:v mpeg2video -mpegts_m2ts_mode 1 -f mpegts",
       u"is an MPEG transport stream"_s,
       {}},
      {MediaUse::Film, u"g.avi"_s, picture + u"-c:v mpeg4", u"is an AVI file"_s, {}},
      {MediaUse::Film, u"h.m2v"_s, picture + u"-c:v mpeg4 -f m4v", u"is MPEG-4 video"_s, {}},
      {MediaUse::Film, u"i.m2v"_s, dvdPicture + sound + u"-target pal-dvd", u"ending .mpg"_s, {}},
      {MediaUse::Film, u"j.mpg"_s, dvdPicture + u"-c:v mpeg2video -f mpeg2video", u"ending .m2v"_s, {}},
      {MediaUse::Film,
       u"k.m2v"_s,
       u"-f lavfi -i testsrc2=s=1280x720:d=0.1 -c:v mpeg2video -f mpeg2video"_s,
       u"has pictures of 1280 by 720"_s,
       {}},
      {MediaUse::Film, u"l.m2v"_s, dvdPicture + u"-frames:v 1 -c:v png -f image2", u"is a PNG picture"_s, {}},
      {MediaUse::Sound, u"n.mp3"_s, sound, u"is MP3 (MPEG layer III) sound"_s, u"n-dvd.ac3"_s},
      {MediaUse::Sound, u"b.ac3"_s, sound + u"-c:a eac3 -f eac3", u"is E-AC3 (Dolby Digital Plus)"_s, u"b-dvd.ac3"_s},
      {MediaUse::Sound, u"c.ac3"_s, sound + u"-c:a ac3", u"is AC3 sound of 44100 Hz"_s, u"c-dvd.ac3"_s},
      {MediaUse::Sound, u"d.mp2"_s, sound + u"-c:a mp2", u"is MPEG layer II sound of 44100 Hz"_s, {}},
      {MediaUse::Sound, u"e.wav"_s, sound, u"is a WAV file of 44100 Hz"_s, {}},
      {MediaUse::Sound, u"f.wav"_s, sound + u"-ar 48000 -c:a pcm_s24le", u"has 1 channels of 24 bits"_s, {}},
      {MediaUse::Sound, u"g.wav"_s, sound + u"-ar 48000 -c:a pcm_f32le", u"is a WAV file whose sound"_s, {}},
      {MediaUse::Sound, u"h.aac"_s, sound, u"is AAC sound"_s, {}},
      {MediaUse::Sound, u"i.ac3"_s, sound + u"-c:a flac -f flac", u"is FLAC sound"_s, {}},
      {MediaUse::Sound, u"j.ogg"_s, sound, u"is an Ogg file"_s, {}},
      {MediaUse::Sound, u"k.m4a"_s, sound, u"is an M4A sound file"_s, {}},
      {MediaUse::Sound, u"m.ac3"_s, sound + u"-ar 48000 -c:a pcm_s16le -f wav", u"ending .wav"_s, {}},
      {MediaUse::Sound, u"o.mp2"_s, sound + u"-ar 22050 -c:a mp2", u"of 22050 Hz"_s, {}},
      {MediaUse::Picture, u"p.mpv"_s, dvdPicture + u"-c:v mpeg2video -f mpeg2video", u"no picture"_s, u"p-dvd.png"_s},
      // What a disc takes as it is.
      {MediaUse::Film, u"ok.m2v"_s, dvdPicture + u"-c:v mpeg2video -f mpeg2video", {}, {}},
      {MediaUse::Film, u"ok.mpg"_s, dvdPicture + sound + u"-target pal-dvd", {}, {}},
      {MediaUse::Film,
       u"ok.m1v"_s,
       u"-f lavfi -i testsrc2=s=352x288:r=25:d=0.2 -c:v mpeg1video -f mpeg1video"_s,
       {},
       {}},
      {MediaUse::Sound, u"ok.ac3"_s, sound + u"-ar 48000", {}, {}},
      {MediaUse::Sound, u"ok.mp2"_s, sound + u"-ar 48000", {}, {}},
      {MediaUse::Sound, u"ok.dts"_s, sound + u"-ar 48000 -c:a dca -strict -2", {}, {}},
      {MediaUse::Sound, u"ok.wav"_s, sound + u"-ar 96000", {}, {}},
      {MediaUse::Picture, u"ok.png"_s, dvdPicture + u"-frames:v 1", {}, {}},
      {MediaUse::Picture, u"ok.jpg"_s, dvdPicture + u"-frames:v 1", {}, {}},
      {MediaUse::Picture, u"ok.bmp"_s, dvdPicture + u"-frames:v 1", {}, {}},
      {MediaUse::Picture, u"ok.gif"_s, dvdPicture + u"-frames:v 1", {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name.toStdString());
    Encode(c.options + u" \"" + c.name + u'"');
    const QString fault = Fault(c.name, c.use, c.pal);
    if (c.says.isEmpty()) {
      EXPECT_EQ(fault, QString());
      continue;
    }
    EXPECT_TRUE(fault.startsWith(dir_.filePath(c.name)) && fault.contains(c.says)) << fault.toStdString();
    if (c.made.isEmpty()) continue;
    Follow(fault);
    EXPECT_EQ(Fault(c.made, c.use), QString());
  }
  ShellCommand(dir_.path(), u"printf 'ID3\\003\\0\\0\\0\\0\\0\\004abcd' | cat - ok.mp2 > tag.mp2"_s);
  const QString tagged = Fault(u"tag.mp2"_s, MediaUse::Sound);
  EXPECT_TRUE(tagged.contains(u"begins with a tag")) << tagged.toStdString();
  Follow(tagged);
  EXPECT_EQ(Fault(u"tag-dvd.mp2"_s, MediaUse::Sound), QString());
  const MediaKind ntsc = IdentifyMedia(HostFiles::ToDos(dir_.filePath(u"b-dvd.mpg"_s)));
  EXPECT_EQ(std::pair(ntsc.width, ntsc.height), std::pair(720, 480));
}

TEST_F(MediaAdvice, FilesOfFewBytesAreToldApart) {
  const QString text = u"1\n00:00:01,000 --> 00:00:02,000\nGr\u00FC\u00DFe\n"_s;
  const QByteArray utf16(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
  const struct {
    const char* name;
    MediaUse use;
    QByteArray bytes;
    QString says;
  } cases[] = {
      {"nothing", MediaUse::Film, "", u"is empty"_s},
      {"zeros", MediaUse::Film, QByteArray(5000, '\0'), u"is a file of no known kind"_s},
      {"noise of the wrong kind", MediaUse::Sound, QByteArray("\1\2\3\4\5", 5), u"is a file of no known kind"_s},
      {"a text", MediaUse::Sound, "BM is no picture, PG no subtitle", u"is a text"_s},
      {"MPEG behind other bytes", MediaUse::Film, QByteArray(5000, '\0') + Sequence(720, 576, 3, 3), {}},
      {"MPEG that begins with a picture",
       MediaUse::Film,
       Code(0) + Bytes({0, 1, 2, 3}) + Code(0x20) + QByteArray(50, 'x') + Sequence(720, 576, 3, 3),
       {}},
      {"a program stream of another video", MediaUse::Film, Pack(90000) + QByteArray(2000, '\0'),
       u"is an MPEG program stream without MPEG video"_s},
      {"swapped AC3", MediaUse::Sound, QByteArray("\x77\x0B\0\0", 4), u"is AC3 sound with its bytes swapped"_s},
      {"text in UTF-16", MediaUse::Subtitle, "\xFF\xFE" + utf16, {}},
      {"text in UTF-16 is no sound", MediaUse::Sound, "\xFF\xFE" + utf16, u"is a text"_s},
      {"text in ISO-8859-1", MediaUse::Subtitle, text.toLatin1(), {}},
      {"SUP", MediaUse::Subtitle, QByteArray("SP\0\0\0\0\0\0", 8), {}},
      {"PGS", MediaUse::Subtitle, QByteArray("PG\0\0\0\0\0\0", 8), u"is a Blu-ray subtitle (PGS)"_s},
      {"Matroska", MediaUse::Subtitle, QByteArray("\x1A\x45\xDF\xA3\0", 5), u"-map 0:s:0"_s},
  };
  for (const auto& c : cases) {
    QFile file(dir_.filePath(u"x"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(c.bytes) == c.bytes.size());
    file.close();
    const QString fault = Fault(u"x"_s, c.use);
    EXPECT_TRUE(c.says.isEmpty() ? fault.isEmpty() : fault.contains(c.says)) << c.name << ": " << fault.toStdString();
  }
  EXPECT_TRUE(Fault(u"gone"_s, MediaUse::Picture).contains(u"gone cannot be read"));
}

}  // namespace
}  // namespace torvane
