#include "compilers/video_batch.h"

#include <cmath>

#include "compilers/audio_titleset.h"
#include "compilers/subtitle_files.h"
#include "core/film_view.h"
#include "core/line_text.h"
#include "core/text.h"
#include "media/palette_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// "0.0000", halves up. The 15 digits that a decimal number in a file can carry decide what is a half.
QByteArray ShrinkFactor(double presentMB, double wantedMB) {
  const double scaled = QByteArray::number(presentMB / wantedMB * 10000, 'g', 15).toDouble();
  return QByteArray::number(std::floor(scaled + 0.5) / 10000, 'f', 4);
}

class BatchWriter {
 public:
  explicit BatchWriter(const Project& project) : project_(project), settings_(project.Settings) {}

  VideoBatch Write() {
    out_.Line(u"@echo off");
    out_.Line(u"echo.");
    out_.Line(u"echo (shrink and) mux video and audio files");
    Intro();
    for (int i = 1; i <= project_.FilmCount; ++i) {
      const FilmView film(project_.Tree, i);
      if (film.IsAudioTitleSet()) {
        AudioTitleSet(i);
      } else if (film.NeedsMux()) {
        FilmToMultiplex(film);
      } else {
        FilmAlreadyMultiplexed(film);
      }
    }
    result_.batch = out_.Bytes();
    return std::move(result_);
  }

 private:
  QByteArray Tool(const char* name) const { return QuotedBatchPath(settings_.DvdAuthorPath + u'\\' + QLatin1String(name)); }
  QString Temp(const QString& name) const { return settings_.TempDir + u'\\' + name; }
  QString Stem(const FilmView& film) const { return Temp(film.Name()); }
  QString SubFile(const FilmView& film, int stream) const { return Stem(film) + u"_SUB%1.mpg"_s.arg(stream); }

  void Intro() {
    if (!settings_.UseIntro || settings_.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) return;
    QByteArray line = Tool("mplex.exe") + " -M -f 8 -o " + QuotedBatchPath(Temp(u"intro.mpg"_s)) + ' ' +
                      QuotedBatchPath(settings_.IntroMovie);
    if (!settings_.IntroAudio.isEmpty()) line += ' ' + QuotedBatchPath(settings_.IntroAudio);
    out_.Line(line);
  }

  void AudioTitleSet(int film) {
    if (!hasAudioFolder_) AudioFolderLines(out_, settings_);
    hasAudioFolder_ = true;
    WriteAudioTitleSet(out_, project_, film);
  }

  void FilmToMultiplex(const FilmView& film) {
    const QByteArray multiplexed = QuotedBatchPath(Stem(film) + u".mpg") + ' ';
    const QByteArray shrunk = QuotedBatchPath(Stem(film) + u"_req.mpv");
    QByteArray source = QuotedBatchPath(film.Video());

    // A target of -1 means that nothing is shrunk, and so does any other that no file can have.
    const double wanted = Val(film.Text(film_node::ShrinkTo).value_or(QString()));
    if (wanted > 0) {
      const double present = Val(film.Text(film_node::VideoSize).value_or(QString()));
      out_.Line(Tool("requant.exe") + ' ' + ShrinkFactor(present, wanted) + ' ' + source + ' ' + shrunk);
      out_.Line(u"echo.");
      source = shrunk;
    }
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      if (const std::optional<QString> audio = film.Audio(stream)) source += ' ' + QuotedBatchPath(*audio);
    }
    const std::optional<QString> delay = film.Text(film_node::AudioDelay);
    const QByteArray output = delay ? " -M -f 8 -O " + BatchText(*delay) + "ms -o " : QByteArray(" -M -f 8 -o ");
    out_.Line(Tool("mplex.exe") + output + multiplexed + source);
    if (wanted > 0) {
      out_.Line("attrib -r " + shrunk);
      out_.Line("erase " + shrunk);
      out_.Line(u"echo.");
    }
    Palette(film);
    QByteArray input = multiplexed;
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      if (film.Subtitle(stream)) Subtitle(film, stream, stream - 1, input, InputFate::Erased);
      input = QuotedBatchPath(SubFile(film, stream)) + ' ';
    }
  }

  void FilmAlreadyMultiplexed(const FilmView& film) {
    Palette(film);
    const int base = ValToInt(film.Text(film_node::AddSubStream).value_or(QString()));
    QByteArray input = QuotedBatchPath(film.Video()) + ' ';
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      // The first input is the user's own file.
      const InputFate fate = stream == 1 ? InputFate::Kept : InputFate::Erased;
      if (film.Subtitle(stream)) Subtitle(film, stream, base + stream - 1, input, fate);
      input = QuotedBatchPath(SubFile(film, stream)) + ' ';
    }
  }

  void Palette(const FilmView& film) {
    if (const std::optional<QString> colors = film.Text(film_node::SubColors)) {
      result_.palettes.push_back({Stem(film) + u".pal", PaletteFileText(*colors)});
    }
  }

  enum class InputFate { Kept, Erased };

  /// Adds a subtitle stream with spumux; `input` is quoted, with a blank behind.
  void Subtitle(const FilmView& film, int stream, int number, const QByteArray& input, InputFate fate) {
    const QString file = *film.Subtitle(stream);
    const QString control = Temp(u"Spu%1Sub%2.xml"_s.arg(stream).arg(film.Number()));
    const bool hasPalette = film.Text(film_node::SubColors).has_value();
    const bool isBitmaps = file.endsWith(u"sup", Qt::CaseInsensitive);
    if (isBitmaps) {
      WriteSupConversion(film, file, control, hasPalette);
    } else {
      result_.controlFiles.push_back({control, WriteTextSubXml(file, SubFormatAttributes(film.SubtitleFormat(stream)))});
    }
    QByteArray line = Tool("spumux.exe");
    if (!isBitmaps && hasPalette) line += " -ma";
    if (settings_.ShortDVDALog) line += " -w";
    line += " -s" + QByteArray::number(number) + ' ' + QuotedBatchPath(control) + " <" + input + "> " +
            QuotedBatchPath(SubFile(film, stream)) + ' ';
    out_.Line(line);
    if (fate == InputFate::Erased) out_.Line("erase " + input);
    out_.Line(u"echo.");
  }

  void WriteSupConversion(const FilmView& film, const QString& file, const QString& control, bool hasPalette) {
    const QByteArray sup = QuotedBatchPath(Temp(u"TempSub.sup"_s));
    out_.Line("erase " + QuotedBatchPath(Temp(u"TempSub.d\\*.*"_s)) + " /Q");
    out_.Line("rmdir " + QuotedBatchPath(Temp(u"TempSub.d"_s)));
    out_.Line("erase " + sup);
    out_.Line("copy " + QuotedBatchPath(file) + ' ' + sup);
    QByteArray convert = Tool("sup2png.exe") + ' ' + sup;
    if (hasPalette) convert += ' ' + QuotedBatchPath(Stem(film) + u".pal");
    out_.Line(convert);
    out_.Line("copy " + QuotedBatchPath(Temp(u"TempSub.d\\spumux.xml"_s)) + ' ' + QuotedBatchPath(control));
  }

  const Project& project_;
  const Settings& settings_;
  LineText out_;
  bool hasAudioFolder_ = false;
  VideoBatch result_;
};

}  // namespace

VideoBatch WriteVideoBatch(const Project& project) { return BatchWriter(project).Write(); }

}  // namespace torvane
