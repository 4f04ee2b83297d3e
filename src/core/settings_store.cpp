#include "core/settings_store.h"

#include <QMap>
#include <QStandardPaths>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QStringView kHeading = u"# Settings of Torvane, written by the program: KEY=VALUE\n";

QString UserStoreDir() {
  return HostFiles::ToDos(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/TorvaneGUI"_s);
}

QString Escaped(QString value) {
  return value.replace(u'%', u"%25"_s).replace(u'\r', u"%0D"_s).replace(u'\n', u"%0A"_s);
}

QString Unescaped(QString value) {
  return value.replace(u"%0D"_s, u"\r"_s).replace(u"%0A"_s, u"\n"_s).replace(u"%25"_s, u"%"_s);
}

}  // namespace

SettingsStore::SettingsStore(const QString& dir)
    : dir_(dir.isEmpty() ? UserStoreDir() : HostFiles::FromUser(dir)), path_(dir_ + u"\\Startup.conf"_s) {}

Result<SettingTexts> SettingsStore::Read() const {
  SettingTexts texts;
  if (!HostFiles::FileExists(path_)) return texts;
  const Result<QByteArray> content = HostFiles::Read(path_);
  if (!content) return Failure{content.Error()};
  for (QString line : QString::fromUtf8(*content).split(u'\n')) {
    if (line.endsWith(u'\r')) line.chop(1);
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 1 || line.startsWith(u'#')) continue;
    texts.insert(line.first(equals), Unescaped(line.sliced(equals + 1)));
  }
  return texts;
}

Status SettingsStore::Write(const SettingTexts& changes) const {
  const Result<SettingTexts> stored = Read();
  if (!stored) return Failure{stored.Error()};
  QMap<QString, QString> sorted;
  for (const SettingTexts& texts : {*stored, changes}) {
    for (auto text = texts.constBegin(); text != texts.constEnd(); ++text) sorted.insert(text.key(), text.value());
  }
  QString content = kHeading.toString();
  for (auto text = sorted.constBegin(); text != sorted.constEnd(); ++text) {
    content += text.key() + u'=' + Escaped(text.value()) + u'\n';
  }
  HostFiles::MakeDir(dir_);
  return HostFiles::WriteAtomically(path_, content.toUtf8());
}

}  // namespace torvane
