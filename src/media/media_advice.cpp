#include "media/media_advice.h"

#include <QRegularExpression>

#include "core/engine.h"
#include "core/settings.h"
#include "core/text.h"
#include "media/video_labels.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kDvdRate = 48000;
constexpr int kFastWaveRate = 96000;
constexpr int kDvdWidth = 720;  // the widest picture

/// A word of a command line of this machine's shell.
QString Word(const QString& text) {
  static const QRegularExpression kPlain(u"^[\\w./:\\\\@%+=,-]+$"_s);
  if (kPlain.match(text).hasMatch()) return text;
#ifdef Q_OS_WIN
  return u'"' + text + u'"';
#else
  return u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
#endif
}

/// The commands that make of a file what a disc takes. What they write lies beside the file and never has its name.
class Conversion {
 public:
  Conversion(const QString& hostPath, const Settings& settings)
      : path_(hostPath),
        pal_(settings.VideoNormPal),
        streams_(settings.Engine == kEngineMuxMan ? Streams::Elementary : Streams::Multiplexed) {}

  /// Picture and first sound. Other shapes than 16:9 get black borders. Not every engine reads program streams.
  QString Film() const {
    const QString size = pal_ ? u"1024:576"_s : u"854:480"_s;
    return Both(
        u"-vf \"scale=iw*sar:ih,scale=%1:force_original_aspect_ratio=decrease,pad=%1:-1:-1\" -target %2 -aspect 16:9"_s
            .arg(size, pal_ ? u"pal-dvd"_s : u"ntsc-dvd"_s));
  }

  /// The same of a picture that fits as it is.
  QString Demultiplexed() const { return Both(u"-c:v copy"_s); }

  QString Sound() const { return u"ffmpeg -i %1 -map 0:a:0 %2"_s.arg(Source(), Ac3()); }
  QString Untagged() const { return u"ffmpeg -i %1 -map 0:a:0 -c copy -f mp2 %2"_s.arg(Source(), Target(u"mp2"_s)); }
  QString Subtitle() const { return u"ffmpeg -i %1 -map 0:s:0 %2"_s.arg(Source(), Target(u"srt"_s)); }
  QString Picture() const { return u"ffmpeg -i %1 -frames:v 1 %2"_s.arg(Source(), Target(u"png"_s)); }

 private:
  enum class Streams { Multiplexed, Elementary };

  QString Source() const { return Word(path_); }
  QString Both(const QString& picture) const {
    if (streams_ == Streams::Multiplexed) {
      return u"ffmpeg -i %1 -map 0:v:0 -map \"0:a:0?\" %2 -c:a ac3 -b:a 448k -ar 48000 -f dvd %3"_s.arg(
          Source(), picture, Target(u"mpg"_s));
    }
    return u"ffmpeg -i %1 -map 0:v:0 %2 -f mpeg2video %3 && %4"_s.arg(Source(), picture, Target(u"m2v"_s), Sound());
  }

  QString Ac3() const { return u"-c:a ac3 -b:a 448k -ar 48000 -f ac3 "_s + Target(u"ac3"_s); }

  QString Target(const QString& ending) const {
    const qsizetype slash = path_.lastIndexOf(u'/');
    const qsizetype dot = path_.lastIndexOf(u'.');
    return Word(path_.first(dot > slash ? dot : path_.size()) + u"-dvd." + ending);
  }

  QString path_;
  bool pal_;
  Streams streams_;
};

class FaultFinder {
 public:
  FaultFinder(const QString& dosPath, const MediaKind& kind, const Settings& settings)
      : path_(HostFiles::ToHost(dosPath)), kind_(kind), settings_(settings), conversion_(path_, settings) {}

  std::optional<Finding> Run(MediaUse use) const {
    if (kind_.type == MediaType::Unreadable) {
      return Error(u"%1 cannot be read. See that it is there and that you may read it."_s.arg(path_));
    }
    if (kind_.type == MediaType::Empty) return Error(u"%1 is empty."_s.arg(path_));
    switch (use) {
      case MediaUse::Film:
        return OfFilm();
      case MediaUse::Sound:
        return OfSound();
      case MediaUse::Subtitle:
        return OfSubtitle();
      case MediaUse::Picture:
        return OfPicture();
    }
    return std::nullopt;
  }

 private:
  static std::optional<Finding> Error(const QString& text) {
    return Finding{.severity = Severity::Error, .text = text};
  }
  static std::optional<Finding> Warning(const QString& text) {
    return Finding{.severity = Severity::Warning, .text = text};
  }

  std::optional<Finding> OfFilm() const {
    const bool isStream = kind_.type == MediaType::ProgramStream || kind_.type == MediaType::TransportStream;
    const bool fits = kind_.width > 0 && kind_.width <= kDvdWidth;
    if (!(kind_.type == MediaType::MpegVideo || kind_.type == MediaType::ProgramStream) || kind_.width == 0) {
      const QString command = isStream && fits ? conversion_.Demultiplexed() : conversion_.Film();
      return Error(
          u"%1 is %2; the film of a disc is MPEG-2 video, bare or in a program stream. This makes it one: %3"_s.arg(
              path_, kind_.name, command));
    }
    const bool named = IsMultiplexedFile(path_);
    if (kind_.type == MediaType::ProgramStream && !named) {
      return Error(u"%1 is %2, and its name does not say so. Give it the ending .mpg."_s.arg(path_, kind_.name));
    }
    if (kind_.type == MediaType::MpegVideo && named) {
      return Warning(
          u"%1 is %2, and its name says that it is multiplexed. Give it the ending .m2v."_s.arg(path_, kind_.name));
    }
    if (!fits) {
      return Warning(u"%1 has pictures of %2 by %3; those of a disc are at most 720 wide. This makes it fit: %4"_s.arg(
          path_, QString::number(kind_.width), QString::number(kind_.height), conversion_.Film()));
    }
    return std::nullopt;
  }

  std::optional<Finding> OfSound() const {
    if (!IsDiscSound(kind_)) {
      return Error(u"%1 is %2; the sound of a disc is AC3, MPEG layer II, DTS or WAV. This makes it AC3: %3"_s.arg(
          path_, kind_.name, conversion_.Sound()));
    }
    const bool isWave = kind_.type == MediaType::Wave;
    if (kind_.sampleRate != kDvdRate && !(isWave && kind_.sampleRate == kFastWaveRate)) {
      return Error(u"%1 is %2 of %3 Hz; the sound of a disc has 48000 Hz. This makes it fit: %4"_s.arg(
          path_, kind_.name, QString::number(kind_.sampleRate), conversion_.Sound()));
    }
    if (isWave && settings_.Engine == kEngineDvdauthor && (kind_.bits != 16 || kind_.channels > 8)) {
      return Error(
          u"%1 has %2 channels of %3 bits; the WAV sound of a disc has up to 8 channels of 16 bits. This makes "
          u"it AC3: %4"_s.arg(path_, QString::number(kind_.channels), QString::number(kind_.bits),
                              conversion_.Sound()));
    }
    const bool isNamedWave = GetExtensionUpper(path_) == u"WAV";
    if (isWave != isNamedWave) {
      return Error(
          u"%1 is %2, and its name does not say so. Give it the ending %3."_s.arg(path_, kind_.name, Ending()));
    }
    if (kind_.leadingTag) {
      return Error(u"%1 begins with a tag, which multiplexers do not understand. This takes it off: %2"_s.arg(
          path_, kind_.type == MediaType::MpegLayer2 ? conversion_.Untagged() : conversion_.Sound()));
    }
    return std::nullopt;
  }

  QString Ending() const {
    if (kind_.type == MediaType::Wave) return u".wav"_s;
    if (kind_.type == MediaType::Dts) return u".dts"_s;
    return kind_.type == MediaType::Ac3 ? u".ac3"_s : u".mp2"_s;
  }

  std::optional<Finding> OfSubtitle() const {
    if (kind_.type == MediaType::Text || kind_.type == MediaType::DvdSup) return std::nullopt;
    if (kind_.type == MediaType::OtherVideo || kind_.type == MediaType::TransportStream) {
      return Error(u"%1 is %2; subtitles are a text, such as SRT, or a SUP file. This takes its texts out: %3"_s.arg(
          path_, kind_.name, conversion_.Subtitle()));
    }
    return Error(u"%1 is %2; subtitles are a text, such as SRT, or a SUP file of a disc."_s.arg(path_, kind_.name));
  }

  std::optional<Finding> OfPicture() const {
    switch (kind_.type) {
      case MediaType::MpegVideo:
      case MediaType::ProgramStream:
      case MediaType::TransportStream:
      case MediaType::OtherVideo:
        return Error(u"%1 is %2 and no picture. This makes a picture of its beginning: %3"_s.arg(
            path_, kind_.name, conversion_.Picture()));
      case MediaType::Picture:
      case MediaType::Unknown:
        return std::nullopt;
      default:
        return Error(u"%1 is %2 and no picture."_s.arg(path_, kind_.name));
    }
  }

  QString path_;
  const MediaKind& kind_;
  const Settings& settings_;
  Conversion conversion_;
};

}  // namespace

std::optional<Finding> MediaFault(const QString& dosPath, const MediaKind& kind, MediaUse use,
                                  const Settings& settings) {
  return FaultFinder(dosPath, kind, settings).Run(use);
}

std::optional<Finding> MediaFault(const QString& dosPath, MediaUse use, const Settings& settings) {
  return MediaFault(dosPath, IdentifyMedia(dosPath), use, settings);
}

}  // namespace torvane
