#include "media/subtitle_format.h"

#include <QStringList>
#include <algorithm>
#include <optional>

#include "core/messages.h"
#include "core/text.h"
#include "media/media_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kLeastPixels = 3;
constexpr double kMostWidth = 1024;
constexpr double kLeastFontSize = 6;
constexpr double kMostFontSize = 100;
constexpr qsizetype kSubtitleHead = 11;

QString PixelError(const QString& text, double most) {
  const double value = Val(text);
  if (value < kLeastPixels) return GetMessage(520, {{u"|1", FormatNumberDot(kLeastPixels - 1)}});
  if (value > most) return GetMessage(521, {{u"|1", FormatNumberDot(most)}});
  return {};
}

QString FontSizeError(const QString& text) {
  const double value = Val(text);
  if (value < kLeastFontSize) return GetMessage(522);
  if (value > kMostFontSize) return GetMessage(523);
  return {};
}

}  // namespace

SubFormat::SubFormat(const QString& text) {
  const QStringList parts = text.split(u'/');
  std::copy_n(parts.begin(), std::min<qsizetype>(parts.size(), kSubFields), fields_.begin());
}

QString SubFormat::Text() const {
  return Joined(kSubFields);
}

QString SubFormat::DefaultText() const {
  return Joined(kStoredSubFields);
}

QString SubFormat::Joined(int count) const {
  return QStringList(fields_.begin(), fields_.begin() + count).join(u'/');
}

QString NewSubFormat(const QString& stored, float fps, int ResV) {
  const QString rate = FormatNumberDot(fps);
  return stored + u'/' + rate + u'/' + rate + u"/720/" + QString::number(ResV);
}

QString SubFieldError(const SubFormat& format, SubField field, int videoHeight) {
  switch (field) {
    case SubField::LeftMargin:
    case SubField::RightMargin:
      return PixelError(format[field], Val(format[SubField::Width]));
    case SubField::TopMargin:
    case SubField::BottomMargin:
    case SubField::Height:
      return PixelError(format[field], videoHeight);
    case SubField::Width:
      return PixelError(format[field], kMostWidth);
    case SubField::FontSize:
      return FontSizeError(format[field]);
    default:
      return {};
  }
}

bool CheckSubtitleFile(const QString& path) {
  HostMediaFile file(path);
  const std::optional<QByteArray> head = file.Read(0, kSubtitleHead);
  if (!head) return false;
  if (GetExtensionUpper(path) == u"SUP") return head->startsWith("SP");
  return !head->contains(QByteArray(2, '\0'));
}

}  // namespace torvane
