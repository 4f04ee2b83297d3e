#include "shell/sup2png.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <algorithm>
#include <cstdio>
#include <optional>

#include "media/palette.h"
#include "platform/host_files.h"
#include "shell/loose_xml.h"
#include "shell/png_file.h"
#include "shell/subpicture.h"
#include "shell/title_palette.h"
#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kHeaderSize = 10;

struct Subtitle {
  QString picture;  // file name
  QPoint place;
  qint64 start = 0;  // 90 kHz
  std::optional<qint64> end;
  bool forced = false;
};

QString FolderOf(const QString& supName) {
  const QFileInfo file(supName);
  return QDir(file.path()).filePath(file.completeBaseName() + u".d"_s);
}

QString PictureName(qsizetype number) {
  return u"sub%1.png"_s.arg(number, 5, 10, QChar(u'0'));
}

/// Removes a folder that holds nothing but what this tool writes; what else lies there keeps it.
void RemoveFolder(const QString& folder) {
  if (QFileInfo(folder).isSymLink() || !QFileInfo(folder).isDir()) return;
  for (const QString& name : QDir(folder).entryList({u"sub?????.png"_s, u"spumux.xml"_s}, QDir::Files)) {
    RemoveOrdinaryFile(folder + u'/' + name);
  }
  QDir().rmdir(folder);
}

QString TimeText(qint64 ticks) {
  const qint64 milliseconds = (ticks + 45) / 90;
  const auto part = [](qint64 value, int width) { return u"%1"_s.arg(value, width, 10, QChar(u'0')); };
  return part(milliseconds / 3600000, 2) + u':' + part(milliseconds / 60000 % 60, 2) + u':' +
         part(milliseconds / 1000 % 60, 2) + u'.' + part(milliseconds % 1000, 3);
}

/// 0xRRGGBB for each number of the title's palette.
QList<quint32> StandardColors() {
  QList<quint32> colors{0x000000, 0x101010, 0xFFFFFF, 0x808080};
  for (quint32 i = 4; i < quint32(kPaletteSize); ++i) colors << (i * 15) * 0x010101;
  return colors;
}

Result<QList<quint32>> ReadColors(const QString& paletteName) {
  const Result<QList<int>> palette = ReadTitlePalette(paletteName);
  if (!palette) return Failure{palette.Error()};
  QList<quint32> colors;
  for (const int color : *palette) colors << DrawnColor(color);
  return colors;
}

class Converter {
 public:
  Converter(const QString& supName, const QString& folder, const QList<quint32>& colors)
      : file_(supName), folder_(folder), colors_(colors) {}

  /// Writes the pictures into the folder; the number of subtitles.
  Result<qsizetype> Run(const QString& finalFolder) {
    if (!file_.open(QIODevice::ReadOnly)) return Failure{file_.fileName() + u": "_s + file_.errorString()};
    while (!file_.atEnd()) {
      if (Status taken = TakeRecord(); !taken) return Failure{taken.Error()};
    }
    if (subtitles_.isEmpty()) return Failure{u"%1: holds no subtitles"_s.arg(file_.fileName())};
    std::stable_sort(subtitles_.begin(), subtitles_.end(),
                     [](const Subtitle& a, const Subtitle& b) { return a.start < b.start; });
    if (Status written = Write(u"spumux.xml"_s, ControlFileText(finalFolder)); !written)
      return Failure{written.Error()};
    return subtitles_.size();
  }

 private:
  Failure Broken(const QString& reason) const {
    return {u"%1: subtitle %2, at byte %3, %4"_s.arg(file_.fileName()).arg(records_).arg(recordBegin_).arg(reason)};
  }

  Status TakeRecord() {
    ++records_;
    recordBegin_ = file_.pos();
    const QByteArray header = file_.read(kHeaderSize + 2);
    if (!header.startsWith("SP")) return Broken(u"does not begin with SP"_s);
    if (header.size() < kHeaderSize + 2) return Broken(u"is cut off"_s);
    const qint64 pts = qFromLittleEndian<quint32>(header.constData() + 2);
    const auto size = qFromBigEndian<quint16>(header.constData() + kHeaderSize);
    const QByteArray unit = header.sliced(kHeaderSize) + file_.read(std::max(0, size - 2));
    if (unit.size() < size) return Broken(u"is cut off"_s);
    const Result<SubpictureUnit> read = ReadSubpicture(unit);
    if (!read) return Broken(read.Error());
    if (!read->picture) {
      if (read->end && !subtitles_.isEmpty() && !subtitles_.last().end) subtitles_.last().end = pts + *read->end;
      return {};
    }
    const Subpicture& picture = *read->picture;
    Subtitle subtitle{
        PictureName(subtitles_.size() + 1), picture.area.topLeft(), pts + picture.start, {}, picture.forced};
    if (picture.end) subtitle.end = pts + *picture.end;
    subtitles_ << subtitle;
    return Write(subtitle.picture, PngOf(picture));
  }

  QByteArray PngOf(const Subpicture& picture) const {
    QList<quint32> palette;
    for (size_t value = 0; value < 4; ++value) {
      palette << (quint32(picture.contrast[value] * 17) << 24 | colors_[picture.colors[value]]);
    }
    return PngFile(picture.area.size(), picture.pixels, palette);
  }

  QByteArray ControlFileText(const QString& finalFolder) const {
    QString text = u"<subpictures>\r\n  <stream>\r\n"_s;
    for (qsizetype i = 0; i < subtitles_.size(); ++i) {
      const Subtitle& subtitle = subtitles_[i];
      std::optional<qint64> end = subtitle.end;
      // Two at once cannot be shown.
      if (end && i + 1 < subtitles_.size()) end = std::min(*end, subtitles_[i + 1].start);
      text += u"    <spu start=\""_s + TimeText(subtitle.start) + u'"';
      if (end) text += u" end=\""_s + TimeText(*end) + u'"';
      text += u" image=\""_s + EncodeValue(HostFiles::ToDos(finalFolder + u'/' + subtitle.picture)) + u'"';
      text += u" xoffset=\"%1\" yoffset=\"%2\""_s.arg(subtitle.place.x()).arg(subtitle.place.y());
      text += subtitle.forced ? u" force=\"yes\"/>\r\n"_s : u"/>\r\n"_s;
    }
    return (text + u"  </stream>\r\n</subpictures>\r\n"_s).toUtf8();
  }

  Status Write(const QString& name, const QByteArray& bytes) const {
    QFile file(folder_ + u'/' + name);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush()) return {};
    return Failure{file.fileName() + u": "_s + file.errorString()};
  }

  QFile file_;
  QString folder_;
  const QList<quint32>& colors_;
  QList<Subtitle> subtitles_;
  int records_ = 0;
  qint64 recordBegin_ = 0;
};

Result<QString> Convert(const QString& supName, const QList<quint32>& colors) {
  const QString folder = QFileInfo(FolderOf(supName)).absoluteFilePath();
  const QString unfinished = UnfinishedName(folder);
  RemoveFolder(unfinished);
  if (!QDir().mkdir(unfinished)) return Failure{u"%1: cannot be made"_s.arg(unfinished)};
  const Result<qsizetype> count = Converter(supName, unfinished, colors).Run(folder);
  if (!count) return Failure{count.Error()};
  RemoveFolder(folder);
  if (std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(folder).constData()) != 0) {
    return Failure{u"%1: %2"_s.arg(folder, qt_error_string())};
  }
  return u"%1 subtitles"_s.arg(*count);
}

void Discard(const QStringList& arguments) {
  if (!arguments.isEmpty()) RemoveFolder(UnfinishedName(QFileInfo(FolderOf(arguments[0])).absoluteFilePath()));
}

Result<QString> Run(const QStringList& arguments) {
  if (arguments.isEmpty() || arguments.size() > 2) return Failure{u"usage: sup2png FILE.sup [FILE.pal]"_s};
  Result<QList<quint32>> colors = arguments.size() == 2 ? ReadColors(arguments[1]) : StandardColors();
  if (!colors) return Failure{colors.Error()};
  Result<QString> done = Convert(arguments[0], *colors);
  if (!done) Discard(arguments);
  return done;
}

}  // namespace

const OwnTool kSup2Png{Run, Discard};

}  // namespace torvane
