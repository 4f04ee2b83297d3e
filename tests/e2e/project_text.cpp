#include "project_text.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

/// Matches the attribute in the element of the key; the value is the capture.
QRegularExpression AttributeOf(const QString& key, const QString& attribute) {
  return QRegularExpression(u"<NODE (?=[^<>]*Key=\"%1\")[^<>]*%2=\"([^\"]*)\""_s.arg(key, attribute));
}

/// Puts a value in the place of the capture.
void Replace(QByteArray& file, const QRegularExpression& pattern, const QString& value) {
  QString text = QString::fromUtf8(file);
  const QRegularExpressionMatch match = pattern.match(text);
  ASSERT_TRUE(match.hasMatch()) << pattern.pattern().toStdString();
  text.replace(match.capturedStart(1), match.capturedLength(1), value.toHtmlEscaped());
  file = text.toUtf8();
}

double SecondsOf(const QString& time) {
  const QStringList parts = time.split(u':');
  return parts.size() == 3 ? parts[0].toDouble() * 3600 + parts[1].toDouble() * 60 + parts[2].toDouble() : -1;
}

}  // namespace

QString ProjectText::Attribute(const QString& key, const QString& attribute) const {
  return AttributeOf(key, attribute).match(QString::fromUtf8(text_)).captured(1);
}

void ProjectText::SetAttribute(const QString& key, const QString& attribute, const QString& value) {
  Replace(text_, AttributeOf(key, attribute), value);
}

QStringList ProjectText::Keys() const {
  QStringList keys;
  static const QRegularExpression key(u"<NODE [^<>]*?\\bKey=\"([^\"]*)\""_s);
  for (const QRegularExpressionMatch& match : key.globalMatch(QString::fromUtf8(text_))) keys.append(match.captured(1));
  return keys;
}

QString ProjectText::Value(const QString& key) const {
  return Attribute(key, u"Caption"_s).section(u'=', 1);
}

std::vector<double> ProjectText::ChapterStarts(int film) const {
  std::vector<double> starts;
  for (const QString& time : Value(u"FPCH%1"_s.arg(film)).split(u',')) starts.push_back(SecondsOf(time));
  return starts;
}

double ProjectText::Seconds(int film) const {
  return SecondsOf(Value(u"FPVTime%1"_s.arg(film)));
}

int ProjectText::FilmCount() const {
  int count = 0;
  while (!Value(u"FP%1"_s.arg(count + 1)).isEmpty()) ++count;
  return count;
}

void ProjectText::SetValue(const QString& key, const QString& value) {
  SetAttribute(key, u"Caption"_s, Attribute(key, u"Caption"_s).section(u'=', 0, 0) + u'=' + value);
}

void ProjectText::SetSetting(const QString& attribute, const QString& value) {
  Replace(text_, QRegularExpression(u" %1=\"([^\"]*)\""_s.arg(attribute)), value);
}

void ProjectText::MakeNtsc() {
  SetSetting(u"NORM"_s, u"0"_s);
  for (int film = 1; film <= FilmCount(); ++film) {
    SetValue(u"FPVResV%1"_s.arg(film), u"480"_s);
    SetValue(u"FPVFps%1"_s.arg(film), u"29.97"_s);
  }
  for (const QString& key : Keys()) {
    if (!key.endsWith(u"Top")) continue;
    const QString top = QString::number(Value(key).toInt() * 480 / 576);
    SetValue(key, top);
    SetTag(key, top);
  }
}

}  // namespace torvane::test
