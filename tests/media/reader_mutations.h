#pragma once

#include <QStringList>
#include <QTemporaryDir>
#include <random>

#include "core/text.h"
#include "media/audio_analysis.h"
#include "media/chapters.h"
#include "media/palette.h"
#include "media/palette_check.h"
#include "media/palette_file.h"
#include "media/subtitle_format.h"
#include "media/video_analysis.h"
#include "media/video_head.h"
#include "mpeg_pieces.h"
#include "platform/host_files.h"
#include "support/recording_prompter.h"

namespace torvane::test {

using namespace Qt::Literals::StringLiterals;

/// Random and damaged input for every reader of media files. What a reader must keep whatever it is given, is checked.
class ReaderMutations {
 public:
  explicit ReaderMutations(quint64 seed) : random_(seed) {}

  /// Gives one damaged input to each reader. Returns what was broken, "" for nothing.
  QString Round() { return Video() + Audio() + Chapters() + Palette() + Format() + Files(); }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  template <class List>
  auto OneOf(const List& list) {
    return *(std::begin(list) + Below(int(std::size(list))));
  }

  QByteArray RandomBytes(int size) {
    QByteArray bytes(size, '\0');
    for (char& byte : bytes) byte = char(Below(256));
    return bytes;
  }

  QByteArray Mutated(QByteArray bytes, const QList<QByteArray>& pieces) {
    for (int change = Below(8); change > 0; --change) {
      const int at = Below(int(bytes.size()) + 1);
      const int kind = Below(6);
      if (kind == 0) bytes.truncate(at);
      if (kind == 1) bytes.insert(at, OneOf(pieces));
      if (kind == 2) bytes.insert(at, RandomBytes(Below(20)));
      if (kind == 3) bytes.remove(at, Below(30));
      if (kind > 3 && at < bytes.size()) bytes[at] = char(Below(256));
    }
    return bytes;
  }

  QList<QByteArray> MpegPieces() {
    return {Pack(Below(1 << 30)),
            Mpeg1Pack(),
            Navigation(),
            VideoPacket(),
            SequenceExtension(),
            Sequence(Below(4096), Below(4096), Below(16), Below(16)),
            Gop(Below(32), Below(64), Below(64), Below(64), Below(2) == 0),
            Pictures(Below(40)),
            Code(Below(256)),
            QByteArray("\0\0\1", 3),
            RandomBytes(Below(60))};
  }

  QString Video() {
    static constexpr qint64 kSizes[] = {0, 50, 3000, 99999, 100000, 100001, 250000, 2000000, 2500000, 12000000};
    SparseFile file(OneOf(kSizes));
    const qint64 size = *file.Size();
    const QList<QByteArray> pieces = MpegPieces();
    for (int i = Below(12); i > 0 && size > 0; --i) {
      QByteArray bytes;
      for (int k = Below(8); k > 0; --k) bytes += Mutated(OneOf(pieces), pieces);
      const qint64 anywhere = qint64(double(Below(1 << 30)) / (1 << 30) * double(size));
      const qint64 places[] = {0, Below(3000), anywhere, std::max<qint64>(0, size - 1 - Below(5000)),
                               99990 - Below(200)};
      file.Put(OneOf(places), bytes);
    }
    RecordingPrompter prompter;
    MpegInfo info;
    static const QString kPaths[] = {u"a.vob"_s, u"a.MPG"_s, u"m2v"_s, QString()};
    AnalyseVideoFile(OneOf(kPaths), file, info, prompter);
    if (file.bytesRead > 7050000) return u"too much was read; "_s;
    if (prompter.boxes.size() > 3) return u"too many messages; "_s;
    if (info.MpegVersion != u"1" && info.MpegVersion != u"2") return u"no MPEG version; "_s;
    const VideoProbe probe = ProbeVideoFile(file);
    return probe.ScrUsable && !probe.Found ? u"a clock without a stream; "_s : QString();
  }

  QString Audio() {
    const QList<QByteArray> heads{
        Bytes({0xFF, 0xFD, 0xA4, 0}), Bytes({0x0B, 0x77, 0, 0, 30}), "RIFF____WAVEfmt ____\1_\2_________________", {}};
    SparseFile file(Mutated(OneOf(heads) + RandomBytes(Below(60)), heads));
    static const QString kPaths[] = {u"a.wav"_s, u"a.ac3"_s, u"a.dts"_s, u"a.mp2"_s, u"a"_s};
    AudioInfo info{.Bitrate = -1};
    const bool known = AnalyseAudioFile(OneOf(kPaths), file, info);
    const bool sound = !known ? info.Bitrate == -1 : info.Bitrate >= 0 && info.AudioSeconds >= 0;
    return sound ? QString() : u"an audio record without sense; "_s;
  }

  QByteArray ChapterText() {
    static const QByteArray kPieces[] = {
        "00:01:02.12", "1:30", "1500",         "00:00:01:24",          ".", ":", ",", "\r\n",
        "\n",          "\r",   "23:59:59.999", "99999999999999999999", "0", "x"};
    QByteArray text;
    for (int i = Below(20); i > 0; --i) text += OneOf(kPieces);
    return Mutated(text, {"1:2", "\n"});
  }

  QString Chapters() {
    RecordingPrompter prompter({Below(2) == 0 ? Answer::Yes : Answer::No});
    static constexpr float kRates[] = {0, 23.976F, 25, 29.97F, 60};
    const QString list = ParseChapterList(ChapterText(), OneOf(kRates), prompter);
    const QStringList chapters = list.split(u',');
    if (!chapters.first().startsWith(u"00:00:00")) return u"the first chapter is not zero; "_s;
    for (const QString& chapter : chapters) {
      if (chapter.size() != 8 && chapter.size() != 12) return QString(u"an odd chapter: " + chapter + u"; ");
    }
    return std::is_sorted(chapters.begin(), chapters.end()) ? QString() : u"chapters are not sorted; "_s;
  }

  QString Palette() {
    QByteArray ifo(Below(9000), '\0');
    ifo.replace(0, 12, "DVDVIDEO-VTS");
    if (ifo.size() > 208) ifo[207] = char(Below(5));
    const QByteArray lines = QByteArray("123456\r\n").repeated(14 + Below(4));
    const QByteArray sst = "# Palette entries:\r\n" + QByteArray("RGB(  1, 22,255)\r\n").repeated(Below(20));
    static const QString kPaths[] = {u"a.ifo"_s, u"a.pal"_s, u"a.rgb"_s, u"a.sst"_s};
    const QByteArray contents[] = {ifo, lines, QByteArray(lines).replace("\r", ""), sst};
    const Result<QString> palette = ParsePalette(OneOf(kPaths), Mutated(OneOf(contents), {"RGB(", "\n", "\r"}));
    if (!palette) return {};
    QString list = *palette;
    if (PaletteColors(list).size() != kPaletteSize) return u"not sixteen colours; "_s;
    RecordingPrompter prompter({Answer::Yes});
    if (!CheckPaletteRoundTrip(list, prompter)) return u"Yes was taken for Cancel; "_s;
    RecordingPrompter again;
    CheckPaletteRoundTrip(list, again);
    return again.boxes.empty() ? QString() : u"a replaced colour is not stable; "_s;
  }

  QString Format() {
    const QString text =
        QString::fromLatin1(Mutated("ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30/25/25/720/576", {"/", "9"}));
    const SubFormat format(text);
    for (int field = 0; field < kSubFields; ++field) SubFieldError(format, SubField(field), 576);
    return SubFormat(format.Text()) == format ? QString() : u"a format that is not its own text; "_s;
  }

  /// The readers that open their files themselves, in a share of the rounds because files take their time.
  QString Files() { return Below(10) == 0 ? VideoHead() + Subtitle() : QString(); }

  QString VideoHead() {
    const QList<QByteArray> pieces = MpegPieces();
    QByteArray stream;
    for (int i = Below(4); i > 0; --i) {
      for (int k = Below(12); k > 0; --k) stream += Mutated(OneOf(pieces), pieces);
      stream += QByteArray(Below(2) == 0 ? Below(150000) : 0, char(Below(2)));
    }
    const QString source = dosDir_ + u"\\in.mpg"_s;
    const QString head = dosDir_ + u"\\out.mpg"_s;
    static constexpr int kFrames[] = {-1, 0, 1, 15, 40, 1 << 30};
    if (!HostFiles::WriteAtomically(source, stream) || !HostFiles::WriteAtomically(head, "former")) {
      return u"no place for files; "_s;
    }
    const bool copied(CopyVideoHead(OneOf(kFrames), source, head));
    const Result<QByteArray> content = HostFiles::Read(head);
    if (!content) return u"a head is gone; "_s;
    if (!copied) return *content == "former" ? QString() : u"a failed copy left something; "_s;
    return stream.startsWith(*content) ? QString() : u"a head that is none of its video; "_s;
  }

  QString Subtitle() {
    const QByteArray heads[] = {"SP",
                                "1\r\n00:00:01,000 --> 00:00:02,000\r\nx",
                                QByteArray("\xFF\xFE"
                                           "1\0\n\0",
                                           6),
                                {}};
    const QByteArray content = Mutated(OneOf(heads) + RandomBytes(Below(20)), {"SP", QByteArray(2, '\0')});
    static const QString kNames[] = {u"\\a.sup"_s, u"\\a.SUP"_s, u"\\a.srt"_s, u"\\sup"_s};
    const QString path = dosDir_ + OneOf(kNames);
    if (!HostFiles::WriteAtomically(path, content)) return u"no place for files; "_s;
    const bool isPicture = path.endsWith(u".sup"_s, Qt::CaseInsensitive);
    bool fits = isPicture && content.size() >= 2 && content[0] == 'S' && content[1] == 'P';
    if (!isPicture) {
      fits = true;
      for (int i = 0; i + 1 < std::min<int>(11, int(content.size())); ++i)
        fits = fits && (content[i] || content[i + 1]);
    }
    return CheckSubtitleFile(path) == fits ? QString() : u"a wrong word on a subtitle file; "_s;
  }

  QTemporaryDir dir_;
  QString dosDir_ = HostFiles::ToDos(dir_.path());
  std::mt19937_64 random_;
};

}  // namespace torvane::test
