#include "designer/spu_xml.h"

#include "core/line_text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// When the buttons appear.
QString Start(const MenuView& menu, LineValues& values) {
  const QString atOnce = u"00:00:00.0"_s;
  if (!menu.IsAnimated(values.InForce())) return atOnce;
  const QString delay = menu.Text(menu_node::BackgroundDelay).value_or(atOnce);
  return values.Attribute(delay, MenuNodeKey(menu.Key(), menu_node::BackgroundDelay));
}

QString ButtonLine(const QString& key, const Edges& edges, const QString& links) {
  const auto attribute = [](QStringView name, int value) {
    return QString(u' ' + name + u"=\"" + QString::number(value) + u'"');
  };
  return u"   <button name=\"" + key + u'"' + attribute(u"x0", edges.Left) + attribute(u"y0", edges.Top) +
         attribute(u"x1", edges.Right) + attribute(u"y1", edges.Bottom) + links + u"/>";
}

}  // namespace

QByteArray SpuXmlText(const MenuView& menu, std::span<const ButtonRectangle> rectangles, SpuFile file,
                      LineValues& values) {
  const bool letterbox = file == SpuFile::Letterbox;
  const auto picture = [&](QStringView name) { return values.Temp(menu.Key() + name); };
  const std::optional<ButtonView> autoButton = menu.AutoActionButton();

  LineText out;
  out.Line(u"<subpictures>");
  out.Line(u"  <stream>");
  out.Line(u"    <spu start=\"" + Start(menu, values) + u'"');
  out.Line(u"         highlight=\"" + picture(letterbox ? u"HighL.png" : u"High.png") + u'"');
  out.Line(u"         select=\"" + picture(letterbox ? u"ActL.png" : u"Act.png") + u'"');
  out.Line(u"         force=\"yes\"");
  out.Line(u"         autoorder=\"rows\">");
  for (const ButtonRectangle& rectangle : rectangles) {
    const bool linked = autoButton && autoButton->Key() == rectangle.Key;
    out.Line(ButtonLine(
        rectangle.Key, letterbox ? rectangle.Letterbox : rectangle.Written,
        linked ? u"  left=\"Actionleft\" right=\"Actionright\" up=\"Actionup\" down=\"Actiondown\""_s : QString()));
  }
  if (autoButton) {
    for (const QStringView action : {u"Actionleft", u"Actionright", u"Actionup", u"Actiondown"}) {
      out.Line(u"     <action name=\"" + action + u"\"/>");
    }
  }
  out.Line(u"    </spu>");
  out.Line(u"  </stream>");
  out.Line(u"</subpictures>");
  return out.Bytes();
}

}  // namespace torvane
