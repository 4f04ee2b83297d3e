#include "core/keys.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool IsNumber(QStringView text) {
  for (const QChar c : text) {
    if (c < u'0' || c > u'9') return false;
  }
  return !text.isEmpty();
}

bool IsNumbered(QStringView menu, QStringView prefix) {
  return menu.startsWith(prefix) && IsNumber(menu.sliced(prefix.size()));
}

QString Numbered(QStringView prefix, int number) { return prefix.toString() + QString::number(number); }

}  // namespace

QString MainMenuKey() { return u"MM"_s; }
QString MainSubMenuKey(int slot) { return Numbered(u"MM", slot); }
QString TitleSetMenuKey(int number) { return Numbered(u"TS", number); }
QString SubMenuKey(int slot) { return Numbered(u"SM", slot); }

bool IsMainMenuFamily(QStringView menu) { return menu == u"MM" || IsMainSubMenu(menu); }
bool IsMainSubMenu(QStringView menu) { return IsNumbered(menu, u"MM"); }
bool IsTitleSetMenu(QStringView menu) { return IsNumbered(menu, u"TS"); }
bool IsSubMenu(QStringView menu) { return IsNumbered(menu, u"SM"); }
bool IsAdditionalMenu(QStringView menu) { return IsMainSubMenu(menu) || IsSubMenu(menu); }

QString MenuNodeKey(const QString& menu, Attribute attribute) { return menu + attribute.Suffix; }

QString ButtonKey(const QString& menu, int number) { return menu + u'B' + QString::number(number); }
QString ButtonPropertiesKey(const QString& menu, int number) { return menu + u"BP" + QString::number(number); }
QString LabelKey(const QString& menu, int index) { return menu + u'L' + QString::number(index); }
QString LabelPropertiesKey(const QString& menu, int index) { return menu + u"LP" + QString::number(index); }
QString ImageKey(const QString& menu, int number) { return menu + u'I' + QString::number(number); }
QString AnimationKey(const QString& menu, int number) { return menu + u"S%1"_s.arg(number, 2, 10, QChar(u'0')); }
QString SubMenuLinkKey(const QString& menu, int number) { return menu + u'M' + QString::number(number); }

QString ElementNodeKey(const QString& element, Attribute attribute) { return element + attribute.Suffix; }

int ElementNumber(QStringView key, QStringView groupKey) {
  if (!key.startsWith(groupKey)) return -1;
  const QStringView number = key.sliced(groupKey.size());
  return number.size() <= 2 && IsNumber(number) ? number.toInt() : -1;
}

QString FilmNodeKey(Attribute attribute, int film) { return Numbered(attribute.Suffix, film); }
QString FilmKey(int film) { return Numbered(u"F", film); }
QString FilmAudioKey(int film, int stream) { return u"FP%1A%2"_s.arg(stream).arg(film); }
QString FilmSubtitleKey(int film, int stream) { return u"FP%1S%2"_s.arg(stream).arg(film); }
QString FilmSubtitleFormatKey(int film, int stream) { return u"FP%1SF%2"_s.arg(stream).arg(film); }
QString FilmAudioLabel(int stream) { return u"Audio%1="_s.arg(stream); }
QString FilmSubtitleLabel(int stream) { return u"SubTitel%1="_s.arg(stream); }
QString FilmSubtitleFormatLabel(int stream) { return u"SubFormatStr%1="_s.arg(stream); }
QString AudioTitleKey(int film, int title) { return u"FPA%1#%2"_s.arg(film).arg(title, 2, 10, QChar(u'0')); }
QString AudioTitleLabel(int title) { return u"Title%1="_s.arg(title, 2, 10, QChar(u'0')); }
QString PlayListsKey(int film) { return u"FP%1P"_s.arg(film); }
QString PlayListKey(int film, int number) { return u"FP%1P%2"_s.arg(film).arg(number); }
QString PlayListTag(int film, int number) {
  return u"%1 %2"_s.arg(film, 2, 10, QChar(u'0')).arg(number, 2, 10, QChar(u'0'));
}

}  // namespace torvane
