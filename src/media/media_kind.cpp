#include "media/media_kind.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>
#include <optional>

#include "media/sound_kind.h"
#include "media/video_sampler.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kHead = 65536;

struct Signature {
  qsizetype at;
  QByteArray bytes;
  MediaType type;
  QString name;
};

/// What a file of a kind begins with. Sound and MPEG have rules of their own.
std::optional<MediaKind> BySignature(QByteArrayView head) {
  using enum MediaType;
  static const Signature kSignatures[] = {
      {0, "\x1A\x45\xDF\xA3", OtherVideo, u"a Matroska or WebM file"_s},
      {4, "ftypqt  ", OtherVideo, u"a QuickTime file"_s},
      {4, "ftypM4A ", OtherSound, u"an M4A sound file"_s},
      {4, "ftyp", OtherVideo, u"an MP4 file"_s},
      {4, "moov", OtherVideo, u"a QuickTime file"_s},
      {4, "mdat", OtherVideo, u"a QuickTime file"_s},
      {4, "wide", OtherVideo, u"a QuickTime file"_s},
      {8, "AVI ", OtherVideo, u"an AVI file"_s},
      {0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11", OtherVideo, u"a Windows Media file"_s},
      {0, "FLV\x01", OtherVideo, u"a Flash video"_s},
      {0, ".RMF", OtherVideo, u"a RealMedia file"_s},
      {0, "YUV4MPEG2 ", OtherVideo, u"bare video (YUV4MPEG)"_s},
      {0, QByteArray("DVDVIDEO-V"), OtherVideo, u"an IFO file of a disc"_s},
      {0, QByteArray("\x89PNG\r\n\x1A\n"), Picture, u"a PNG picture"_s},
      {0, "\xFF\xD8\xFF", Picture, u"a JPEG picture"_s},
      {0, "GIF8", Picture, u"a GIF picture"_s},
      {0, "BM", Picture, u"a BMP picture"_s},
      {0, QByteArray("II*\0", 4), Picture, u"a TIFF picture"_s},
      {0, QByteArray("MM\0*", 4), Picture, u"a TIFF picture"_s},
      {8, "WEBPVP8", Picture, u"a WebP picture"_s},
      {0, "PG", OtherSubtitle, u"a Blu-ray subtitle (PGS)"_s},
      {0, "SP", DvdSup, u"a SUP subtitle"_s},
  };
  for (const Signature& known : kSignatures) {
    if (head.size() < known.at || !head.sliced(known.at).startsWith(known.bytes)) continue;
    // Two letters alone begin many a text.
    if (known.bytes.size() == 2 && !head.first(std::min<qsizetype>(head.size(), 512)).contains('\0') &&
        head.size() > 2) {
      continue;
    }
    return MediaKind{.type = known.type, .name = known.name};
  }
  return std::nullopt;
}

/// A sync byte every 188 bytes, or every 192 in recordings with time stamps. ISO/IEC 13818-1, 2.4.3.2.
bool IsTransportStream(QByteArrayView head) {
  constexpr int kPackets = 5;
  for (const qsizetype packet : {qsizetype(188), qsizetype(192), qsizetype(204)}) {
    for (qsizetype first = 0; first < packet && first + packet * (kPackets - 1) < head.size(); ++first) {
      bool all = true;
      for (int i = 0; all && i < kPackets; ++i) all = head[first + i * packet] == 'G';
      if (all) return true;
    }
  }
  return false;
}

/// The codes of all start codes, in order.
QList<quint8> StartCodes(QByteArrayView head) {
  const QByteArrayView startCode("\0\0\1", 3);
  QList<quint8> codes;
  for (qsizetype at = head.indexOf(startCode); at >= 0 && at + 3 < head.size(); at = head.indexOf(startCode, at + 3)) {
    codes << quint8(head[at + 3]);
  }
  return codes;
}

/// The name of a video stream that begins with a start code and is not MPEG-1 or MPEG-2; "" for none.
QString OtherStartCode(QByteArrayView head) {
  constexpr qsizetype kMostZeros = 8;
  const qsizetype at = head.indexOf(QByteArrayView("\0\0\1", 3));
  if (at < 0 || at > kMostZeros || at + 5 > head.size()) return {};
  const QList<quint8> codes = StartCodes(head);
  const quint8 first = codes.first();
  const bool isMpeg4 = first == 0xB0 || (first <= 0x1F && codes.value(1) >= 0x20 && codes.value(1) <= 0x2F &&
                                         head.sliced(at + 4).startsWith(QByteArrayView("\0\0\1", 3)));
  if (isMpeg4) return u"MPEG-4 video"_s;
  if (first == 0x0F) return u"VC-1 video"_s;
  // The first bit of a NAL unit is 0, and a parameter set stands in front of the first picture: ITU-T H.264, 7.4.1.2.1,
  // and H.265, 7.4.2.4.
  if (std::ranges::any_of(codes, [](quint8 code) { return code >= 0x80; })) return {};
  const auto unit = [](quint8 code) { return code & 0x1F; };
  const bool mayBegin = unit(first) == 7 || unit(first) == 9 || unit(first) == 6;
  if (mayBegin && std::ranges::any_of(codes, [&](quint8 code) { return unit(code) == 7; })) return u"H.264 video"_s;
  const bool isHevc = (first == 0x40 || first == 0x42 || first == 0x46) && head[at + 4] == 1;
  return isHevc ? u"H.265 (HEVC) video"_s : QString();
}

bool IsUtf16(QByteArrayView head) {
  const bool little = head.startsWith("\xFF\xFE");
  if (!little && !head.startsWith("\xFE\xFF")) return false;
  QStringDecoder decoder(little ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
  const QString text = decoder.decode(head.first(head.size() & ~qsizetype(1)));
  return !decoder.hasError() && text.contains(u'\n') && !text.contains(QChar::Null);
}

/// Text of any character set: no control characters but those of lines.
bool IsText(QByteArrayView head) {
  if (IsUtf16(head)) return true;
  return !head.isEmpty() && std::ranges::none_of(head, [](char c) {
    const auto byte = quint8(c);
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r' && byte != '\f' && byte != 0x1A && byte != 0x1B;
  });
}

MediaKind TextKind(QByteArrayView head) {
  if (head.trimmed().startsWith("<svg") || head.contains("<svg ")) {
    return {.type = MediaType::Picture, .name = u"an SVG picture"_s};
  }
  if (head.startsWith("/* XPM */")) return {.type = MediaType::Picture, .name = u"an XPM picture"_s};
  return {.type = MediaType::Text, .name = u"a text"_s};
}

/// MPEG video wherever its analysis finds it.
MediaKind MpegKind(MediaFile& file) {
  const VideoSamples video = SampleVideo(file, PackHeaderAt::Anywhere);
  if (!video.found && !video.isMultiplexed) return {.name = u"a file of no known kind"_s};
  MediaKind kind{.type = MediaType::MpegVideo, .name = u"bare MPEG video"_s};
  if (video.isMultiplexed) kind = {.type = MediaType::ProgramStream, .name = u"an MPEG program stream"_s};
  if (!video.found) kind.name = u"an MPEG program stream without MPEG video"_s;
  kind.width = video.ResH;
  kind.height = video.ResV;
  return kind;
}

std::optional<MediaKind> BehindTag(MediaFile& file, QByteArrayView head) {
  const qint64 tag = LeadingTagSize(head);
  if (tag == 0) return std::nullopt;
  const QByteArray behind = file.Read(tag, kHead).value_or(QByteArray());
  std::optional<MediaKind> kind = IdentifySound(behind);
  if (!kind) return MediaKind{.type = MediaType::OtherSound, .name = u"sound behind a tag"_s};
  kind->leadingTag = true;
  return kind;
}

}  // namespace

bool IsDiscSound(const MediaKind& kind) {
  return kind.type == MediaType::Ac3 || kind.type == MediaType::MpegLayer2 || kind.type == MediaType::Dts ||
         kind.type == MediaType::Wave;
}

MediaKind IdentifyMedia(MediaFile& file) {
  const std::optional<QByteArray> read = file.Size() ? file.Read(0, kHead) : std::nullopt;
  if (!read) return {.type = MediaType::Unreadable, .name = u"a file that cannot be read"_s};
  const QByteArrayView head = *read;
  if (head.isEmpty()) return {.type = MediaType::Empty, .name = u"an empty file"_s};
  if (const auto tagged = BehindTag(file, head)) return *tagged;
  if (const auto known = BySignature(head)) return *known;
  if (IsTransportStream(head)) {
    const VideoSamples video = SampleVideo(file, PackHeaderAt::Anywhere);
    return {.type = MediaType::TransportStream,
            .name = u"an MPEG transport stream"_s,
            .width = video.ResH,
            .height = video.ResV};
  }
  if (const QString name = OtherStartCode(head); !name.isEmpty()) {
    return {.type = MediaType::OtherVideo, .name = name};
  }
  if (IsText(head.first(std::min<qsizetype>(head.size(), 4096)))) return TextKind(head);
  if (const auto sound = IdentifySound(head)) return *sound;
  return MpegKind(file);
}

MediaKind IdentifyMedia(const QString& dosPath) {
  HostMediaFile file(dosPath);
  return IdentifyMedia(file);
}

}  // namespace torvane
