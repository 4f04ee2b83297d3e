#include "shell/font_name.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <array>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The families of Windows by the names of their files, which are cut to eight letters.
QString FamilyOf(const QString& stem) {
  static const QHash<QString, QString> kFamilies{{u"arial"_s, u"Arial"_s},
                                                 {u"ariblk"_s, u"Arial Black"_s},
                                                 {u"arialn"_s, u"Arial Narrow"_s},
                                                 {u"times"_s, u"Times New Roman"_s},
                                                 {u"cour"_s, u"Courier New"_s},
                                                 {u"verdana"_s, u"Verdana"_s},
                                                 {u"tahoma"_s, u"Tahoma"_s},
                                                 {u"georgia"_s, u"Georgia"_s},
                                                 {u"trebuc"_s, u"Trebuchet MS"_s},
                                                 {u"comic"_s, u"Comic Sans MS"_s},
                                                 {u"calibri"_s, u"Calibri"_s},
                                                 {u"cambria"_s, u"Cambria"_s},
                                                 {u"consola"_s, u"Consolas"_s},
                                                 {u"lucon"_s, u"Lucida Console"_s},
                                                 {u"pala"_s, u"Palatino Linotype"_s},
                                                 {u"micross"_s, u"Microsoft Sans Serif"_s}};
  return kFamilies.value(stem);
}

QString PatternOf(const QString& stem) {
  struct Style {
    QString ending;
    QString pattern;
  };
  static const std::array kStyles{
      Style{u""_s, u""_s},         Style{u"bd"_s, u":bold"_s},        Style{u"b"_s, u":bold"_s},
      Style{u"i"_s, u":italic"_s}, Style{u"bi"_s, u":bold:italic"_s}, Style{u"z"_s, u":bold:italic"_s}};
  const QString lower = stem.toLower();
  for (const Style& style : kStyles) {
    if (!lower.endsWith(style.ending)) continue;
    const QString family = FamilyOf(lower.chopped(style.ending.size()));
    if (!family.isEmpty()) return family + style.pattern;
  }
  return stem;
}

/// The font file of this machine that has the name, without regard to case.
QString InstalledFile(const QString& name) {
  for (const QString& folder : QStringList{QDir::homePath() + u"/.local/share/fonts"_s, QDir::homePath() + u"/.fonts"_s,
                                           u"/usr/local/share/fonts"_s, u"/usr/share/fonts"_s}) {
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
      const QString path = files.next();
      if (files.fileName().compare(name, Qt::CaseInsensitive) == 0) return path;
    }
  }
  return {};
}

}  // namespace

QString NativeFontName(const QString& name) {
  const QFileInfo file(QString(name).replace(u'\\', u'/'));
  if (file.suffix().compare(u"ttf", Qt::CaseInsensitive) != 0 &&
      file.suffix().compare(u"otf", Qt::CaseInsensitive) != 0) {
    return name;
  }
  if (HostFiles::HasDrive(name) && HostFiles::FileExists(name))
    return QFileInfo(HostFiles::ToHost(name)).absoluteFilePath();
  const QString own = QDir::homePath() + u"/.spumux/"_s + file.fileName();
  if (QFileInfo::exists(own)) return own;
  const QString windows = u"C:\\Windows\\Fonts\\"_s + file.fileName();
  if (HostFiles::FileExists(windows)) return HostFiles::ToHost(windows);
  const QString installed = InstalledFile(file.fileName());
  return installed.isEmpty() ? PatternOf(file.completeBaseName()) : installed;
}

}  // namespace torvane
