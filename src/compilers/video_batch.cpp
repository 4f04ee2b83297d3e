#include "compilers/video_batch.h"

#include <cmath>

#include "compilers/audio_titleset.h"
#include "compilers/subtitle_files.h"
#include "core/film_view.h"
#include "core/text.h"
#include "media/palette_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Halves up to four decimals. The 15 digits that a decimal number in a file can carry decide what is a half.
double ShrinkFactor(double presentMB, double wantedMB) {
  const double scaled = QByteArray::number(presentMB / wantedMB * 10000, 'g', 15).toDouble();
  return std::floor(scaled + 0.5) / 10000;
}

class BatchWriter {
 public:
  BatchWriter(const Project& project, LineValues& values)
      : project_(project), settings_(project.Settings), values_(values), out_(values) {}

  VideoBatch Write() {
    out_.Line("@echo off");
    out_.Line("echo.");
    out_.Line("echo (shrink and) mux video and audio files");
    if (settings_.UseIntro) Intro();
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
  void Intro() {
    if (settings_.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) return;
    const BatchPiece line = out_.Tool(u"mplex.exe") + " -M -f 8 -o " + out_.Temp(kIntroName.toString()) + " " +
                            out_.Path(settings_.IntroMovie, kIntroFileKey.toString());
    const bool hasAudio = !settings_.IntroAudio.isEmpty();
    out_.Line(hasAudio ? line + " " + out_.Path(settings_.IntroAudio, kIntroAudioKey.toString()) : line);
  }

  static QString NameKey(const FilmView& film) { return FilmNodeKey(film_node::Name, film.Number()); }
  BatchPiece Own(const FilmView& film, QStringView ending) { return out_.Temp(film.Name(), ending, NameKey(film)); }
  BatchPiece SubFile(const FilmView& film, int stream) { return Own(film, u"_SUB%1.mpg"_s.arg(stream)); }
  BatchPiece Video(const FilmView& film) {
    return out_.Path(film.Video(), FilmNodeKey(film_node::Video, film.Number()));
  }

  void AudioTitleSet(int film) {
    if (!hasAudioFolder_) AudioFolderLines(out_);
    hasAudioFolder_ = true;
    WriteAudioTitleSet(out_, project_, film);
  }

  void FilmToMultiplex(const FilmView& film) {
    const BatchPiece multiplexed = Own(film, u".mpg") + " ";
    BatchPiece source = Video(film);

    // A target of -1 means that nothing is shrunk, and so does any other that no file can have.
    const double wanted = Val(film.Text(film_node::ShrinkTo).value_or(QString()));
    if (wanted > 0) {
      const double present = Val(film.Text(film_node::VideoSize).value_or(QString()));
      const BatchPiece shrunk = Own(film, kShrunk);
      out_.Line(out_.Tool(u"requant.exe") + " " + BatchLines::Decimal(ShrinkFactor(present, wanted), 4) + " " + source +
                " " + shrunk);
      out_.Line("echo.");
      source = shrunk;
    }
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      const std::optional<QString> audio = film.Audio(stream);
      if (audio) source = source + " " + out_.Path(*audio, FilmAudioKey(film.Number(), stream));
    }
    out_.Line(out_.Tool(u"mplex.exe") + " -M -f 8" + Delay(film) + " -o " + multiplexed + source);
    if (wanted > 0) {
      const BatchPiece shrunk = Own(film, kShrunk);
      out_.Line("attrib -r " + shrunk);
      out_.Line("erase " + shrunk);
      out_.Line("echo.");
    }
    Palette(film);
    BatchPiece input = multiplexed;
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      if (film.Subtitle(stream)) Subtitle(film, stream, stream - 1, input, InputFate::Erased);
      input = InputOfNext(film, stream);
    }
  }

  BatchPiece Delay(const FilmView& film) {
    const std::optional<QString> delay = film.Text(film_node::AudioDelay);
    if (!delay) return "";
    return " -O " + out_.WholeNumber(*delay, FilmNodeKey(film_node::AudioDelay, film.Number())) + "ms";
  }

  void FilmAlreadyMultiplexed(const FilmView& film) {
    Palette(film);
    const int base = ValToInt(film.Text(film_node::AddSubStream).value_or(QString()));
    BatchPiece input = Video(film) + " ";
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      // The first input is the user's own file.
      const InputFate fate = stream == 1 ? InputFate::Kept : InputFate::Erased;
      if (film.Subtitle(stream)) Subtitle(film, stream, base + stream - 1, input, fate);
      input = InputOfNext(film, stream);
    }
  }

  /// The film with the streams up to this one, where a further one is to be added.
  BatchPiece InputOfNext(const FilmView& film, int stream) {
    return stream < film.SubtitleCount() ? SubFile(film, stream) + " " : "";
  }

  void Palette(const FilmView& film) {
    if (const std::optional<QString> colors = film.Text(film_node::SubColors)) {
      result_.palettes.push_back({values_.Temp(film.Name(), kPalette, NameKey(film)), PaletteFileText(*colors)});
    }
  }

  enum class InputFate { Kept, Erased };

  /// Adds a subtitle stream with spumux; `input` is quoted, with a blank behind.
  void Subtitle(const FilmView& film, int stream, int number, const BatchPiece& input, InputFate fate) {
    const QString controlName = u"Spu%1Sub%2.xml"_s.arg(stream).arg(film.Number());
    const BatchPiece control = out_.Temp(controlName);
    const bool hasPalette = film.Text(film_node::SubColors).has_value();
    const bool isBitmaps = film.Subtitle(stream)->endsWith(u"sup", Qt::CaseInsensitive);
    if (isBitmaps) {
      WriteSupConversion(film, stream, control, hasPalette);
    } else {
      result_.controlFiles.push_back({values_.Temp(controlName), WriteTextSubXml(film, stream, values_)});
    }
    BatchPiece line = out_.Tool(u"spumux.exe");
    if (!isBitmaps && hasPalette) line = line + " -ma";
    if (settings_.ShortDVDALog) line = line + " -w";
    out_.Line(line + " -s" + BatchPiece(number) + " " + control + " <" + input + "> " + SubFile(film, stream) + " ");
    if (fate == InputFate::Erased) out_.Line("erase " + input);
    out_.Line("echo.");
  }

  void WriteSupConversion(const FilmView& film, int stream, const BatchPiece& control, bool hasPalette) {
    const BatchPiece sup = out_.Temp(u"TempSub.sup"_s);
    out_.Line("erase " + out_.Temp(u"TempSub.d\\*.*"_s) + " /Q");
    out_.Line("rmdir " + out_.Temp(u"TempSub.d"_s));
    out_.Line("erase " + sup);
    out_.Line("copy " + out_.Path(*film.Subtitle(stream), FilmSubtitleKey(film.Number(), stream)) + " " + sup);
    const BatchPiece convert = out_.Tool(u"sup2png.exe") + " " + sup;
    out_.Line(hasPalette ? convert + " " + Own(film, kPalette) : convert);
    out_.Line("copy " + out_.Temp(u"TempSub.d\\spumux.xml"_s) + " " + control);
  }

  static constexpr QStringView kShrunk = u"_req.mpv";
  static constexpr QStringView kPalette = u".pal";

  const Project& project_;
  const Settings& settings_;
  LineValues& values_;
  BatchLines out_;
  bool hasAudioFolder_ = false;
  VideoBatch result_;
};

}  // namespace

VideoBatch WriteVideoBatch(const Project& project, LineValues& values) {
  return BatchWriter(project, values).Write();
}

}  // namespace torvane
