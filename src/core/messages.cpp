#include "core/messages.h"

#include <QFile>
#include <QHash>
#include <QMap>
#include <atomic>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

std::atomic<int> langIdInForce = kEnglish;

using Catalogue = QMap<int, QString>;

/// Reads a table of lines "number TAB text". Blanks at either end of a text belong to it.
Catalogue ReadCatalogue(const QString& resource) {
  Catalogue catalogue;
  QFile file(resource);
  if (!file.open(QIODevice::ReadOnly))
    qFatal("The message texts %s are missing from the program", qPrintable(resource));
  const QString content = QString::fromUtf8(file.readAll());
  for (const QStringView line : QStringView(content).split(u'\n', Qt::SkipEmptyParts)) {
    const qsizetype tab = line.indexOf(u'\t');
    if (tab > 0) catalogue.insert(line.first(tab).toInt(), line.sliced(tab + 1).toString());
  }
  return catalogue;
}

const Catalogue& CatalogueOf(int langId) {
  if (langId == kGerman) {
    static const Catalogue german = ReadCatalogue(u":/torvane/messages.de.tsv"_s);
    return german;
  }
  static const Catalogue english = ReadCatalogue(u":/torvane/messages.en.tsv"_s);
  return english;
}

}  // namespace

QString GetMessage(int n, std::initializer_list<MessagePair> pairs) {
  QString text = CatalogueOf(langIdInForce).value(n);
  for (const MessagePair& pair : pairs) {
    if (!pair.mark.isEmpty()) text.replace(pair.mark.toString(), pair.value);
  }
  return text;
}

void SetLanguage(int langId) {
  langIdInForce = langId == kGerman ? kGerman : kEnglish;
}

int CurrentLanguage() {
  return langIdInForce;
}

QList<int> MessageNumbers(int langId) {
  return CatalogueOf(langId).keys();
}

}  // namespace torvane
