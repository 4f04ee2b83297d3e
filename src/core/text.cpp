#include "core/text.h"

#include <QByteArray>
#include <QList>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "core/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kCropLimit = 9999;

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

/// Parses digits with at most one "."; beyond the range of a double the nearest limit.
double ParseDecimal(const QByteArray& digits) {
  double value = 0;
  const char* end = digits.constData() + digits.size();
  const auto [rest, error] = std::from_chars(digits.constData(), end, value, std::chars_format::fixed);
  if (error != std::errc::result_out_of_range) return value;
  const QByteArray whole = digits.split('.').first();
  const bool tooSmall = whole.count('0') == whole.size();
  return tooSmall ? 0 : std::numeric_limits<double>::max();
}

template <class T>
QString ShortestText(T value) {
  if (!std::isfinite(value) || value == 0) return u"0"_s;
  std::array<char, 512> buffer{};
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  return QString::fromLatin1(buffer.data(), end - buffer.data());
}

/// The value of a text that is digits with an optional "-" in front, when it lies within the crop limits.
std::optional<int> CropInteger(QStringView text) {
  const QStringView digits = text.startsWith(u'-') ? text.sliced(1) : text;
  if (digits.isEmpty() || !std::all_of(digits.begin(), digits.end(), IsDigit)) return std::nullopt;
  const int value = ValToInt(text);
  if (std::abs(value) > kCropLimit) return std::nullopt;
  return value;
}

int RedOf(int color) {
  return color & 0xFF;
}
int GreenOf(int color) {
  return (color >> 8) & 0xFF;
}
int BlueOf(int color) {
  return (color >> 16) & 0xFF;
}

}  // namespace

double Val(QStringView text) {
  qsizetype at = 0;
  while (at < text.size() && text[at] == u' ') ++at;
  const bool negative = at < text.size() && text[at] == u'-';
  if (at < text.size() && (text[at] == u'-' || text[at] == u'+')) ++at;

  QByteArray digits;
  bool anyDigit = false;
  bool point = false;
  for (; at < text.size(); ++at) {
    const QChar c = text[at];
    if (c == u'.' && !point) {
      point = true;
    } else if (IsDigit(c)) {
      anyDigit = true;
    } else {
      break;
    }
    digits += char(c.unicode());
  }
  if (!anyDigit) return 0;
  const double value = ParseDecimal(digits);
  return negative && value != 0 ? -value : value;
}

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  if (rest < 0.5 || (rest == 0.5 && std::fmod(below, 2) == 0)) return below;
  return below + 1;
}

int RoundToInt(double value) {
  if (std::isnan(value)) return 0;
  const double rounded = RoundHalfEven(value);
  if (rounded <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
  if (rounded >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
  return int(rounded);
}

int ValToInt(QStringView text) {
  return RoundToInt(Val(text));
}

QString FormatNumberDot(double value) {
  return ShortestText(value);
}

QString FormatNumberDot(float value) {
  return ShortestText(value);
}

double GetField(const QString& list, int k) {
  return k < 1 ? 0 : Val(list.section(u';', k - 1, k - 1));
}

double OutlineField(const QString& list, int k) {
  return GetField(list, k + 1);
}

bool ValidCropValue(QStringView text) {
  const QList<QStringView> fields = text.split(u',');
  if (fields.size() == 1) return CropInteger(text).has_value();
  if (fields.size() != 4) return false;
  for (int i = 0; i < 4; ++i) {
    const std::optional<int> value = CropInteger(fields[i]);
    if (!value || (i < 2 ? *value < 0 : *value > 0)) return false;
  }
  return true;
}

QString YesNoText(bool flag) {
  return GetMessage(flag ? 10 : 11);
}

QString NormalizeLineBreaks(const QString& text) {
  if (text.contains(u"\r\n"_s)) return text;
  QString normalized = text;
  return normalized.replace(u'\n', u"\r\n"_s);
}

QString EscapeLabelText(const QString& text) {
  QString escaped = text;
  return escaped.replace(u'&', u"&&"_s).replace(u" \r\n"_s, u"  \r\n"_s);
}

QString UnescapeLabelText(const QString& text) {
  QString plain = text;
  return plain.replace(u"&&"_s, u"&"_s).replace(u"  \r\n"_s, u" \r\n"_s);
}

bool HasSpecialCharacters(QStringView text) {
  return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 127 || c == u'&'; });
}

bool HasControlCharacters(QStringView text) {
  return std::ranges::any_of(text, [](QChar c) {
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
  });
}

QString StripSpecialChars(const QString& text) {
  QString kept = text;
  return kept.removeIf([](QChar c) { return c.unicode() > 127 || c.unicode() < 32 || c == u'&'; });
}

QString ColorToRGBString(int color) {
  return u"%1,%2,%3"_s.arg(RedOf(color)).arg(GreenOf(color)).arg(BlueOf(color));
}

int RGBStringToColor(QStringView caption) {
  const QList<QStringView> fields = caption.sliced(caption.indexOf(u'=') + 1).split(u',');
  const auto part = [&fields](qsizetype i) { return i < fields.size() ? std::clamp(ValToInt(fields[i]), 0, 255) : 0; };
  return part(0) | part(1) << 8 | part(2) << 16;
}

quint32 MakeARGB(int color, int alpha) {
  const auto byte = [](int value, int shift) { return quint32(value & 0xFF) << shift; };
  return byte(alpha, 24) | byte(RedOf(color), 16) | byte(GreenOf(color), 8) | byte(BlueOf(color), 0);
}

QString RGBStringToHex(QStringView caption) {
  const int color = RGBStringToColor(caption);
  return QString::number(MakeARGB(color, 255) & 0xFFFFFF, 16).toUpper().rightJustified(6, u'0');
}

FileNameParts SplitFileName(const QString& path) {
  const PathParts parts = SplitPath(path);
  return {.name = parts.name, .ext = parts.ext};
}

PathParts SplitPath(const QString& path) {
  const qsizetype slash = path.lastIndexOf(u'\\');
  const QString last = path.sliced(slash + 1);
  const qsizetype dot = last.lastIndexOf(u'.');
  return {.dir = slash < 0 ? QString() : path.first(slash),
          .name = dot < 0 ? last : last.first(dot),
          .ext = dot < 0 ? QString() : last.sliced(dot)};
}

QString GetExtensionUpper(const QString& path) {
  return SplitPath(path).ext.mid(1).toUpper();
}

}  // namespace torvane
