#include "compilers/audio_titleset.h"

#include <algorithm>
#include <cmath>

#include "compilers/scene_time.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/keys.h"
#include "core/text.h"
#include "core/timecode.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kSecondsADay = 86400;

constexpr QStringView kAudioFolder = u"TempAudioMpg";  ///< below the temporary directory

QString InAudioFolder(const QString& name) {
  return kAudioFolder + u'\\' + name;
}

/// Lines of nested blocks, each level one tab deeper.
class BlockText {
 public:
  explicit BlockText(int level) : level_(level) {}

  void Line(const QString& text) { out_.Line(QString(QString(level_, u'\t') + text)); }
  void Open(const QString& item) {
    Line(u"Item="_s + item);
    Line(u"{"_s);
    ++level_;
  }
  void Close() {
    --level_;
    Line(u"}"_s);
  }
  const QByteArray& Bytes() const { return out_.Bytes(); }

 private:
  LineText out_;
  int level_;
};

QString AudioSlideName(const Settings& settings, int film, int track) {
  const bool forMuxMan = settings.Engine == kEngineMuxMan;
  return AudioTitleKey(film, track) + (forMuxMan ? u".bmp" : u".png");
}

QString DisplayMode(const Settings& settings) {
  if (!settings.DefMenuRatio) return u"4:3"_s;
  return settings.Def169Mode == 0   ? u"Only Letterbox"_s
         : settings.Def169Mode == 1 ? u"P/S and LB"_s
                                    : u"Only Panscan"_s;
}

}  // namespace

int AudioTrackCount(const ProjectTree& tree, int film) {
  return std::clamp(ValToInt(FilmView(tree, film).Tag(film_node::AudioTitles)), 0, kMaxAudioTitles);
}

bool HasOneTitle(const ProjectTree& tree, int film) {
  return FilmView(tree, film).Tag(film_node::AudioLayout) == u"1";
}

QString AudioTrackFile(const Settings& settings, int film, int track) {
  return settings.TempDir + u'\\' + InAudioFolder(AudioTitleKey(film, track) + u".mpg");
}

QString AudioSlideFile(const Settings& settings, int film, int track) {
  return settings.TempDir + u'\\' + AudioSlideName(settings, film, track);
}

void AudioFolderLines(BatchLines& out) {
  const BatchPiece folder = out.Temp(kAudioFolder.toString());
  out.Line("erase " + out.Temp(InAudioFolder(u"*.*"_s)) + " /Q");
  out.Line("rmdir " + folder);
  out.Line("mkdir " + folder);
}

void WriteAudioTitleSet(BatchLines& out, const Project& project, int film) {
  const Settings& settings = project.Settings;
  const BatchPiece options =
      settings.DefMenuRatio ? BatchPiece(" -f 8 -q 1 -b 7000 -a 3 -o ") : " -f 8 -q 1 -b 5000 -a 2 -o ";
  const BatchPiece rate = settings.VideoNormPal ? BatchPiece("25") : "29.97";
  int track = 0;
  for (const AudioTitle& title : ReadAudioTitleSet(project.Tree, film).Titles) {
    const QString key = AudioTitleKey(film, ++track);
    const BatchPiece video = out.Temp(InAudioFolder(key + u".m2v"));
    const BatchPiece joined = out.Temp(InAudioFolder(u't' + key + u".mpg"));
    out.Line(out.Tool(u"png2yuv.exe") + " -n 1 -I p -L 0 -f " + rate + " -j " +
             out.Temp(AudioSlideName(settings, film, track)) + " | " + out.Tool(u"mpeg2enc.exe") + options + video);
    out.Line(out.Tool(u"mplex.exe") + " -M -f 8 -o " + joined + " " + video + " " +
             out.Path(title.File, key + audio_title_node::File.Suffix));
    out.Line("erase " + video);
    out.Line(out.Tool(u"insnav.exe") + " -o " + out.Temp(InAudioFolder(key + u".mpg")) + " " + joined);
    out.Line("erase " + joined);
  }
}

TrackClock::Play TrackClock::TrackTimeCode(const AudioTrackTime& track) {
  if (const std::optional<QString> whole = CompletedTimeCode(track.Duration)) return {*whole, 0};
  const qsizetype point = track.Duration.indexOf(u'.');
  const QString seconds = track.Duration.left(point);
  const double wholeSeconds = std::floor(track.Seconds);
  // The noise of binary fractions must not make a part of a frame of a whole one.
  const double f = std::round(Val(track.Duration.mid(point)) * rate_ * 1e6) / 1e6;
  if (f == 0) return {seconds + u":0", track.Seconds};

  int frames = int(std::floor(f)) + 1;
  carry_ += 1 - (f - std::floor(f));
  if (carry_ > 1) {
    --frames;
    --carry_;
  }
  if (frames >= rate_) {
    const QString next = FormatDateTimecode((wholeSeconds + 1) / kSecondsADay, 3);
    return {next.left(next.indexOf(u'.')) + u":00", wholeSeconds + 1};
  }
  return {seconds + u':' + QString::number(frames), wholeSeconds + frames / rate_};
}

QByteArray WriteAudioSegment(const Project& project, int film, const std::vector<AudioTrackTime>& times) {
  const Settings& settings = project.Settings;
  const double rate = settings.VideoNormPal ? 25 : 29.97;
  const std::vector<AudioTitle> titles = ReadAudioTitleSet(project.Tree, film).Titles;
  const int count = int(std::min(titles.size(), times.size()));
  const QString name = u"Segment_%1"_s.arg(film);
  BlockText out(1);
  out.Open(u"Segment"_s);
  out.Line(u"Name="_s + name);
  out.Line(u"Display Mode="_s + DisplayMode(settings));

  out.Open(u"Video Stream"_s);
  out.Line(u"Coding Mode=Mpeg-2"_s);
  out.Line(settings.VideoNormPal ? u"Standard=PAL"_s : u"Standard=NTSC"_s);
  out.Line(u"CC Field 1=No"_s);
  out.Line(u"CC Field 2=No"_s);
  TrackClock clock(rate);
  std::vector<double> starts;
  double start = 0;
  for (int i = 0; i < count; ++i) {
    const TrackClock::Play play = clock.TrackTimeCode(times[i]);
    starts.push_back(start);
    start = std::round((start + play.Exact) * 1e4) / 1e4;
    out.Open(u"Video Play"_s);
    out.Line(u"File="_s + AudioSlideFile(settings, film, i + 1));
    out.Line(u"Duration="_s + play.TimeCode);
    out.Close();
  }
  out.Close();

  out.Open(u"Audio Stream"_s);
  out.Line(u"Stream Number=1"_s);
  out.Line(u"Language=en"_s);
  out.Line(u"Language Extension=1"_s);
  for (int i = 0; i < count; ++i) {
    out.Open(u"Audio Play"_s);
    out.Line(u"File="_s + titles[i].File);
    out.Close();
  }
  out.Close();

  out.Open(u"Scene List"_s);
  for (int i = 0; i < count; ++i) {
    out.Open(u"Scene"_s);
    out.Line(u"Name="_s + name + u"_scn%1"_s.arg(i + 1));
    out.Line(u"Scene Time="_s + ChapterToSceneTime(FormatDateTimecode(starts[i] / kSecondsADay, 3), rate));
    out.Line(u"Uop=0"_s);
    out.Close();
  }
  out.Close();
  out.Close();
  return out.Bytes();
}

}  // namespace torvane
