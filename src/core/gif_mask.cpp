#include "core/gif_mask.h"

#include <algorithm>

#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kNumberFields = 5;

int To16Bit(double value) {
  return std::clamp(RoundToInt(value), -32768, 32767);
}

}  // namespace

QString FindGifMask(const QString& file, const QString& appPath, const QString& ownGifMaskDir) {
  if (file.isEmpty()) return {};
  for (const QString& path : {QString(appPath + u"\\GifMask\\" + file), QString(ownGifMaskDir + u'\\' + file)}) {
    if (HostFiles::FileExists(path)) return path;
  }
  return {};
}

GifMaskRecord ParseMaskString(const QString& text, const QString& appPath, const QString& ownGifMaskDir) {
  GifMaskRecord mask;
  if (text.isEmpty()) return mask;
  const auto number = [&text](qsizetype field) { return Val(text.section(u';', field, field).replace(u',', u'.')); };
  mask.Enabled = number(0) != 0;
  mask.RelSize = number(1);
  mask.XOffset = To16Bit(number(2));
  mask.YOffset = To16Bit(number(3));
  mask.Highlight = To16Bit(number(4));
  mask.File = text.section(u';', kNumberFields);
  if (!mask.File.isEmpty() && FindGifMask(mask.File, appPath, ownGifMaskDir).isEmpty()) {
    mask.File.clear();
    mask.Enabled = false;
  }
  return mask;
}

QString FormatMaskString(const GifMaskRecord& mask) {
  return u"%1;%2;%3;%4;%5;"_s.arg(mask.Enabled ? 1 : 0)
             .arg(FormatNumberDot(mask.RelSize))
             .arg(mask.XOffset)
             .arg(mask.YOffset)
             .arg(mask.Highlight) +
         mask.File;
}

}  // namespace torvane
