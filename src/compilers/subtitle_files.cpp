#include "compilers/subtitle_files.h"

#include <QStringList>
#include <array>

#include "core/line_text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::array<QStringView, 13> kFormatAttributes{
    u"characterset", u"fontsize",     u"font",        u"horizontal-alignment", u"vertical-alignment",
    u"left-margin",  u"right-margin", u"top-margin",  u"bottom-margin",        u"movie-fps",
    u"subtitle-fps", u"movie-width",  u"movie-height"};

}  // namespace

QString SubFormatAttributes(const QString& format) {
  const QStringList fields = format.split(u'/');
  QStringList lines;
  for (qsizetype i = 0; i < std::min<qsizetype>(fields.size(), kFormatAttributes.size()); ++i) {
    lines << u"        " + kFormatAttributes[i] + u"=\"" + fields[i] + u"\"";
  }
  return lines.join(u"\r\n");
}

QByteArray WriteTextSubXml(const QString& subtitleFile, const QString& attributes) {
  LineText out;
  out.Line(u"<subpictures>");
  out.Line(u"   <stream>");
  out.Line(QString(u"     <textsub filename=\"" + subtitleFile + u"\""));
  out.Line(attributes);
  out.Line(u"     />");
  out.Line(u"   </stream>");
  out.Line(u"</subpictures>");
  return out.Bytes();
}

}  // namespace torvane
