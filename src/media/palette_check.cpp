#include "media/palette_check.h"

#include "core/messages.h"
#include "media/palette.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The three bytes from the low one on, two hex digits each.
QString HexText(int color) {
  QString text;
  for (const int shift : {0, 8, 16}) {
    text += QString::number((color >> shift) & 0xFF, 16).rightJustified(2, u'0').toUpper();
  }
  return text;
}

bool Changes(int color) {
  return color != 0 && !IsStablePaletteColor(color);
}

}  // namespace

bool CheckPaletteRoundTrip(QString& list, Prompter& prompter) {
  const QString lineBreak = u"\r\n"_s;
  QList<int> colors = PaletteColors(list);
  QString changed;
  for (qsizetype i = 0; i < colors.size(); ++i) {
    if (!Changes(colors[i])) continue;
    const int back = RgbToPalette(PaletteToRgb(colors[i]));
    changed += u"Color" + QString::number(i) + u": OrigPaletteValue=" + HexText(colors[i]) + u"; RGB->YCrCbValue:" +
               HexText(back) + lineBreak;
  }
  if (changed.isEmpty()) return true;

  const Answer answer = prompter.Show({.kind = BoxKind::Warning,
                                       .buttons = BoxButtons::YesNoCancel,
                                       .text = GetMessage(446) + lineBreak + changed + lineBreak +
                                               GetMessage(447, {{u"|1", lineBreak}, {u"|2", lineBreak}}) + lineBreak +
                                               lineBreak + GetMessage(448),
                                       .preselected = Answer::Yes});
  if (answer == Answer::Yes) {
    for (int& color : colors) {
      const int rgb = PaletteToRgb(color);
      if (Changes(color)) color = StablePaletteColor(color, rgb, RgbToPalette(rgb));
    }
    list = PaletteList(colors);
  }
  return answer == Answer::Yes || answer == Answer::No;
}

}  // namespace torvane
