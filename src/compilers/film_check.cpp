#include "compilers/film_check.h"

#include <algorithm>
#include <vector>

#include "core/film_view.h"
#include "core/text.h"
#include "media/media_block.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kMostChapters = 99;

enum class Norm { Unknown, Pal, Ntsc };

Norm NormOf(const FilmView& film) {
  const double rate = Val(film.Fps());
  const int lines = ValToInt(film.Text(film_node::ResV).value_or(QString()));
  if (rate == 25 || (rate == 0 && (lines == 576 || lines == 288))) return Norm::Pal;
  return rate > 0 || lines == 480 || lines == 240 ? Norm::Ntsc : Norm::Unknown;
}

QString NormName(Norm norm) {
  return norm == Norm::Pal ? u"PAL"_s : u"NTSC"_s;
}

QString NameOf(const FilmView& film) {
  return u"%1 (%2)"_s.arg(film.Number()).arg(film.Name());
}

class FilmCheck {
 public:
  explicit FilmCheck(const Project& project) : project_(project) {
    for (int i = 1; i <= project.FilmCount; ++i) {
      const FilmView film(project.Tree, i);
      if (!film.IsAudioTitleSet()) films_.push_back(film);
    }
  }

  QList<Finding> Run() {
    for (const FilmView& film : films_) {
      FindTooManyChapters(film);
      FindClockGoingBack(film);
    }
    // With titlesets each film has one of its own.
    const bool mixesNorms = project_.Settings.NoTitleSets && FindMixedNorms();
    if (!mixesNorms) FindOtherNorm();
    if (project_.Settings.NoTitleSets && !mixesNorms) {
      FindMixed(film_node::ResV,
                u"Films %1 and %2 have different numbers of lines, %3 and %4, but share a titleset: many "
                u"players show one of them distorted. Please switch titlesets on or convert one."_s);
      FindMixed(film_node::Aspect,
                u"Films %1 and %2 have different aspects, %3 and %4, but share a titleset: one of them "
                u"is shown distorted. Please switch titlesets on or convert one."_s);
    }
    return std::move(findings_);
  }

 private:
  void Add(Severity severity, const FilmView& film, Attribute attribute, const QString& text) {
    findings_ << Finding{severity, FilmNodeKey(attribute, film.Number()), text};
  }

  void FindTooManyChapters(const FilmView& film) {
    const qsizetype chapters = film.Chapters().split(u',', Qt::SkipEmptyParts).size();
    if (chapters <= kMostChapters) return;
    Add(Severity::Error, film, film_node::Chapters,
        u"Film %1 has %2 chapters; a title can have %3. Please take some out."_s.arg(
            NameOf(film), QString::number(chapters), QString::number(kMostChapters)));
  }

  void FindClockGoingBack(const FilmView& film) {
    if (film.NeedsMux()) return;
    HostMediaFile file(film.Video());
    if (!ClockGoesBack(file)) return;
    Add(Severity::Warning, film, film_node::Video,
        u"Film %1: the clock of %2 starts again within the file, as where VOB files were joined end to end; chapters "
        u"and "
        u"searching will go wrong. Please join them anew with a tool that makes one clock of them, for example: %3"_s
            .arg(NameOf(film), HostFiles::ToHost(film.Video()),
                 u"ffmpeg -i old.vob -map 0:v -map 0:a -c copy -f dvd new.mpg"_s));
  }

  /// The first two films whose norms differ make the finding.
  bool FindMixedNorms() {
    const FilmView* first = nullptr;
    for (const FilmView& film : films_) {
      if (NormOf(film) == Norm::Unknown) continue;
      if (!first) first = &film;
      if (NormOf(film) == NormOf(*first)) continue;
      Add(Severity::Error, film, film_node::Fps,
          u"Films %1 and %2 are of different norms, %3 and %4, which one titleset cannot hold. Please switch titlesets "
          u"on "
          u"or convert one."_s.arg(NameOf(*first), NameOf(film), NormName(NormOf(*first)), NormName(NormOf(film))));
      return true;
    }
    return false;
  }

  void FindOtherNorm() {
    const Norm norm = project_.Settings.VideoNormPal ? Norm::Pal : Norm::Ntsc;
    for (const FilmView& film : films_) {
      if (NormOf(film) == Norm::Unknown || NormOf(film) == norm) continue;
      Add(Severity::Warning, film, film_node::Fps,
          u"Film %1 is %2, but the project is %3: not every player and television shows both. Please convert the film "
          u"or "
          u"change the norm of the project."_s.arg(NameOf(film), NormName(NormOf(film)), NormName(norm)));
    }
  }

  void FindMixed(Attribute attribute, const QString& text) {
    const FilmView* first = nullptr;
    for (const FilmView& film : films_) {
      const QString value = film.Text(attribute).value_or(QString());
      if (value.isEmpty() || value == u"0") continue;
      if (!first) first = &film;
      const QString other = first->Text(attribute).value_or(QString());
      if (value == other) continue;
      Add(Severity::Warning, film, attribute, text.arg(NameOf(*first), NameOf(film), other, value));
      return;
    }
  }

  const Project& project_;
  std::vector<FilmView> films_;
  QList<Finding> findings_;
};

}  // namespace

QList<Finding> FilmFindings(const Project& project) {
  return FilmCheck(project).Run();
}

bool ClockGoesBack(MediaFile& file) {
  constexpr int kSamples = 60;
  constexpr qsizetype kSampleBytes = 8192;  // some packs of a DVD stream
  const qint64 size = file.Size().value_or(0);
  qint64 former = 0;
  for (int i = 0; i < kSamples && size >= kSampleBytes; ++i) {
    const MediaBlock block(file, (size - kSampleBytes) / (kSamples - 1) * i, kSampleBytes);
    const qsizetype pack = block.Find(StartCode::Pack);
    const qint64 clock = pack == 0 ? 0 : GetSCR(block, pack);
    if (clock == 0) continue;
    if (clock < former) return true;
    former = clock;
  }
  return false;
}

}  // namespace torvane
