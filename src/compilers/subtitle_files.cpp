#include "compilers/subtitle_files.h"

#include <QStringList>
#include <array>

#include "core/line_text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::array<QStringView, 13> kFormatAttributes{
    u"characterset",  u"fontsize",   u"font",          u"horizontal-alignment", u"vertical-alignment",
    u"left-margin",   u"right-margin", u"top-margin",  u"bottom-margin",        u"movie-fps",
    u"subtitle-fps",  u"movie-width", u"movie-height"};

}  // namespace

QByteArray WriteTextSubXml(const QString& subtitleFile, const QString& format) {
  LineText out;
  out.Line(u"<subpictures>");
  out.Line(u"   <stream>");
  out.Line(QString(u"     <textsub filename=\"" + subtitleFile + u"\""));
  const QStringList fields = format.split(u'/');
  for (qsizetype i = 0; i < std::min<qsizetype>(fields.size(), kFormatAttributes.size()); ++i) {
    out.Line(QString(u"        " + kFormatAttributes[i] + u"=\"" + fields[i] + u"\""));
  }
  out.Line(u"     />");
  out.Line(u"   </stream>");
  out.Line(u"</subpictures>");
  return out.Bytes();
}

}  // namespace torvane
