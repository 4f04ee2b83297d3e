#include "media/palette_file.h"

#include <QList>
#include <algorithm>
#include <optional>

#include "core/line_text.h"
#include "core/messages.h"
#include "core/text.h"
#include "media/palette.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using Colors = std::optional<QList<int>>;

constexpr qsizetype kMostIfoBytes = 1048576;
constexpr qsizetype kSectorSize = 2048;
constexpr qsizetype kPgcPalette = 164;  ///< offset of the palette in a program chain
constexpr qsizetype kUnixEntry = 7;     ///< six hex digits and a line feed

/// The three bytes at `at`, the first one lowest; nothing when they lie outside.
std::optional<int> ThreeBytes(const QByteArray& file, qsizetype at) {
  if (at < 0 || at + 3 > file.size()) return std::nullopt;
  return quint8(file[at]) + quint8(file[at + 1]) * 256 + quint8(file[at + 2]) * 65536;
}

/// Three bytes, big endian.
std::optional<qsizetype> Offset(const QByteArray& file, qsizetype at) {
  const std::optional<int> bytes = ThreeBytes(file, at);
  if (!bytes) return std::nullopt;
  return (*bytes & 0xFF) * 65536 + (*bytes & 0xFF00) + (*bytes >> 16);
}

/// The palette of the first program chain of a titleset.
Colors ReadIfo(const QByteArray& file) {
  if (file.size() > kMostIfoBytes || !file.startsWith("DVDVIDEO-VTS")) return std::nullopt;
  const std::optional<qsizetype> sector = Offset(file, 205);
  if (!sector) return std::nullopt;
  const qsizetype table = *sector * kSectorSize;
  const std::optional<qsizetype> chain = Offset(file, table + 13);
  if (!chain) return std::nullopt;
  QList<int> colors;
  for (int i = 0; i < kPaletteSize; ++i) {
    const std::optional<int> color = ThreeBytes(file, table + *chain + kPgcPalette + 4 * i + 1);
    if (!color) return std::nullopt;
    colors << *color;
  }
  return colors;
}

/// Six hex digits as three bytes, the first one lowest.
std::optional<int> HexColor(const QByteArray& digits) {
  const bool isHex = digits.size() == 6 && std::all_of(digits.begin(), digits.end(), [](char c) {
                       return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
                     });
  if (!isHex) return std::nullopt;
  return ThreeBytes(QByteArray::fromHex(digits), 0);
}

/// Lines end with CR LF or CR; a file with bare line feeds is one line.
QList<QByteArray> DosLines(QByteArray file) {
  return file.replace("\r\n", "\r").split('\r');
}

Colors ReadHexLines(const QByteArray& file) {
  QList<QByteArray> entries;
  const QList<QByteArray> lines = DosLines(file);
  const QByteArray& first = lines.first();
  if (first.size() >= kPaletteSize * kUnixEntry && first.contains('\n')) {
    for (int i = 0; i < kPaletteSize; ++i) entries << first.mid(i * kUnixEntry, 6);
  } else {
    for (const QByteArray& line : lines) {
      if (line.size() > 5) entries << line.first(6);
    }
  }
  if (entries.size() != kPaletteSize) return std::nullopt;
  QList<int> colors;
  for (const QByteArray& entry : entries) {
    const std::optional<int> color = HexColor(entry);
    if (!color) return std::nullopt;
    colors << *color;
  }
  return colors;
}

/// The number at a place of a line, as a byte.
int ByteAt(const QString& line, qsizetype at) {
  return std::clamp(ValToInt(QStringView(line).mid(at)), 0, 255);
}

Colors ReadSst(const QByteArray& file) {
  QString text = QString::fromLatin1(file);
  const QStringList lines = text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
  qsizetype next = 0;
  while (next < lines.size() && !lines[next].contains(u"# Palette entries:")) ++next;
  if (next == lines.size()) return std::nullopt;
  QList<int> colors;
  for (int i = 0; i < kPaletteSize; ++i) {
    const QString line = lines.value(++next);
    const qsizetype at = line.indexOf(u"RGB(");
    colors << (at < 0 ? RgbToPalette(0)
                      : RgbToPalette(ByteAt(line, at + 4), ByteAt(line, at + 8), ByteAt(line, at + 12)));
  }
  return colors;
}

Colors ReadColors(const QString& extension, const QByteArray& file) {
  if (extension == u"IFO") return ReadIfo(file);
  if (extension == u"PAL") return ReadHexLines(file);
  if (extension == u"SST") return ReadSst(file);
  if (extension != u"RGB") return std::nullopt;
  Colors colors = ReadHexLines(file);
  if (colors) {
    for (int& color : *colors) color = RgbToPalette(color);
  }
  return colors;
}

}  // namespace

Result<QString> ReadPaletteFile(const QString& path) {
  const bool isIfo = GetExtensionUpper(path) == u"IFO";
  if (isIfo && HostFiles::FileSizeOf(path).value_or(0) > kMostIfoBytes) return Failure{GetMessage(467)};
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return Failure{content.Error()};
  return ParsePalette(path, *content);
}

Result<QString> ParsePalette(const QString& path, const QByteArray& content) {
  const Colors colors = ReadColors(GetExtensionUpper(path), content);
  if (!colors) return Failure{GetMessage(467)};
  return PaletteList(*colors);
}

QByteArray PaletteFileText(const QString& colors) {
  LineText out;
  for (const QString& color : colors.split(u',')) {
    const auto packed = static_cast<unsigned>(ValToInt(color));
    QByteArray line;
    for (const int shift : {0, 8, 16}) {
      line += QByteArray::number((packed >> shift) & 0xFF, 16).rightJustified(2, '0').toUpper();
    }
    out.Line(line);
  }
  return out.Bytes();
}

}  // namespace torvane
