#include "designer/color_string.h"

#include <algorithm>

#include "core/default_project.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString ThreeDigits(int value) {
  return QString::number(value).rightJustified(3, u'0');
}

/// The whole part of a stored number as a colour component.
int WholeByte(const QString& number) {
  return static_cast<int>(std::clamp(Val(number), 0.0, 255.0));
}

QString ReadColor(const MenuView& menu, Attribute color, int absentColor, Attribute transparency, int absentOpacity) {
  return MakeColorString(menu.Text(color).value_or(ColorToRGBString(absentColor)),
                         menu.Text(transparency).value_or(TransparencyText(absentOpacity)));
}

}  // namespace

int OpacityOfTransparency(double percent) {
  return std::clamp(RoundToInt(255 * (100 - percent) / 100), 0, 255);
}

QString MakeColorString(const QString& colorCaption, const QString& transparencyCaption) {
  const QStringList components = colorCaption.mid(colorCaption.indexOf(u'=') + 1).split(u',');
  const double percent = Val(QStringView(transparencyCaption).mid(transparencyCaption.indexOf(u'=') + 1));
  QString text;
  for (int i = 0; i < 3; ++i) text += ThreeDigits(WholeByte(components.value(i))) + u'#';
  return text + ThreeDigits(OpacityOfTransparency(percent));
}

HighlightColors ReadHighlightColors(const MenuView& menu, const Settings& settings) {
  using namespace menu_node;
  return {ReadColor(menu, HighLightFillColor, settings.DefHighLightFillColor, HighLightFillTrans,
                    settings.DefHighLightFillTrans),
          ReadColor(menu, HighLightFrameColor, settings.DefHighLightFrameColor, HighLightFrameTrans,
                    settings.DefHighLightFrameTrans),
          ReadColor(menu, ActivatedFillColor, settings.DefSelectedFillColor, ActivatedFillTrans,
                    settings.DefSelectedFillTrans),
          ReadColor(menu, ActivatedFrameColor, settings.DefSelectedFrameColor, ActivatedFrameTrans,
                    settings.DefSelectedFrameTrans)};
}

}  // namespace torvane
