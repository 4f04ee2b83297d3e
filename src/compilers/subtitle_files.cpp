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

/// The attributes of a subtitle format string of 13 fields separated by "/", a line each without a line break behind
/// the last.
QString Attributes(const QString& format) {
  const QStringList fields = format.split(u'/');
  QStringList lines;
  for (qsizetype i = 0; i < std::min<qsizetype>(fields.size(), kFormatAttributes.size()); ++i) {
    lines << u"        " + kFormatAttributes[i] + u"=\"" + fields[i] + u"\"";
  }
  return lines.join(u"\r\n");
}

}  // namespace

QByteArray WriteTextSubXml(const FilmView& film, int stream, LineValues& values) {
  const QString file = film.Subtitle(stream).value_or(QString());
  const QString formatKey = FilmSubtitleFormatKey(film.Number(), stream);
  LineText out;
  out.Line(u"<subpictures>");
  out.Line(u"   <stream>");
  out.Line(u"     <textsub filename=\"" + values.Path(file, FilmSubtitleKey(film.Number(), stream)) + u"\"");
  out.Line(Attributes(values.Attribute(film.SubtitleFormat(stream), formatKey)));
  out.Line(u"     />");
  out.Line(u"   </stream>");
  out.Line(u"</subpictures>");
  return out.Bytes();
}

}  // namespace torvane
