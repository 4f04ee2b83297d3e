#include "core/font_string.h"

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

FontRecord ParseFontString(const QString& text) {
  FontRecord font;
  const auto field = [&text](qsizetype n) { return text.section(u'\\', n, n); };
  const auto flag = [&field](qsizetype n) { return Val(field(n)) != 0; };
  if (const QString name = field(0); !name.isEmpty()) font.Name = name;
  if (const double size = Val(field(1).replace(u',', u'.')); size > 0) font.Size = size;
  font.Bold = flag(2);
  font.Italic = flag(3);
  font.Strikethrough = flag(4);
  font.Underline = flag(5);
  return font;
}

QString FormatFontString(const FontRecord& font) {
  return font.Name + u"\\%1\\%2\\%3\\%4\\%5"_s.arg(FormatNumberDot(font.Size))
                         .arg(int(font.Bold))
                         .arg(int(font.Italic))
                         .arg(int(font.Strikethrough))
                         .arg(int(font.Underline));
}

}  // namespace torvane
