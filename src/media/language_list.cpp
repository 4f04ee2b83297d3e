#include "media/language_list.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kTagSize = 2;
constexpr qsizetype kTagStep = 3;  ///< a tag and its ","

// clang-format off
constexpr std::array<QStringView, 137> kLanguages{
    u"not specified", u"EN (ENGLISH)", u"DE (GERMAN)", u"FR (FRENCH)", u"ES (SPANISH)", u"AB (ABKHAZIAN)",
    u"OM (AFAN (OROMO))", u"AA (AFAR)", u"AF (AFRIKAANS)", u"SQ (ALBANIAN)", u"AM (AMHARIC)", u"AR (ARABIC)",
    u"HY (ARMENIAN)", u"AS (ASSAMESE)", u"AY (AYMARA)", u"AZ (AZERBAIJANI)", u"BA (BASHKIR)", u"EU (BASQUE)",
    u"BN (BENGALI;BANGLA)", u"DZ (BHUTANI)", u"BH (BIHARI)", u"BI (BISLAMA)", u"BR (BRETON)", u"BG (BULGARIAN)",
    u"MY (BURMESE)", u"BE (BYELORUSSIAN)", u"KM (CAMBODIAN)", u"CA (CATALAN)", u"ZH (CHINESE)", u"CO (CORSICAN)",
    u"HR (CROATIAN)", u"CS (CZECH)", u"DA (DANISH)", u"NL (DUTCH)", u"EO (ESPERANTO)", u"ET (ESTONIAN)",
    u"FO (FAROESE)", u"FJ (FIJI)", u"FI (FINNISH)", u"FY (FRISIAN)", u"GL (GALICIAN)", u"KA (GEORGIAN)",
    u"EL (GREEK)", u"KL (GREENLANDIC)", u"GN (GUARANI)", u"GU (GUJARATI)", u"HA (HAUSA)", u"IW (HEBREW)",
    u"HI (HINDI)", u"HU (HUNGARIAN)", u"IS (ICELANDIC)", u"IN (INDONESIAN)", u"IA (INTERLINGUA)", u"IE (INTERLINGUE)",
    u"IK (INUPIAK)", u"GA (IRISH)", u"IT (ITALIAN)", u"JA (JAPANESE)", u"JV (JAVANESE)", u"KN (KANNADA)",
    u"KS (KASHMIRI)", u"KK (KAZAKH)", u"RW (KINYARWANDA)", u"KY (KIRGHIZ)", u"RN (KURUNDI)", u"KO (KOREAN)",
    u"KU (KURDISH)", u"LO (LAOTHIAN)", u"LA (LATIN)", u"LV (LATVIAN;LETTISH)", u"LN (LINGALA)", u"LT (LITHUANIAN)",
    u"MK (MACEDONIAN)", u"MG (MALAGASY)", u"MS (MALAY)", u"ML (MALAYALAM)", u"MT (MALTESE)", u"MI (MAORI)",
    u"MR (MARATHI)", u"MO (MOLDAVIAN)", u"MN (MONGOLIAN)", u"NA (NAURU)", u"NE (NEPALI)", u"NO (NORWEGIAN)",
    u"OC (OCCITAN)", u"OR (ORIYA)", u"PS (PASHTO;PUSHTO)", u"FA (PERSIAN (farsi))", u"PL (POLISH)",
    u"PT (PORTUGUESE)", u"PA (PUNJABI)", u"QU (QUECHUA)", u"RM (RHAETO-ROMANCE)", u"RO (ROMANIAN)", u"RU (RUSSIAN)",
    u"SM (SAMOAN)", u"SG (SANGHO)", u"SA (SANSKRIT)", u"GAELIC (SCOTS)", u"SR (SERBIAN)", u"SH (SERBO-CROATIAN)",
    u"ST (SESOTHO)", u"TN (SETSWANA)", u"SN (SHONA)", u"SD (SINDHI)", u"SI (SINGHALESE)", u"SS (SISWATI)",
    u"SK (SLOVAK)", u"SL (SLOVENIAN)", u"SO (SOMALI)", u"SU (SUNDANESE)", u"SW (SWAHILI)", u"SV (SWEDISH)",
    u"TL (TAGALOG)", u"TG (TAJIK)", u"TA (TAMIL)", u"TT (TATAR)", u"TE (TELUGU)", u"TH (THAI)", u"BO (TIBETAN)",
    u"TI (TIGRINYA)", u"TO (TONGA)", u"TS (TSONGA)", u"TR (TURKISH)", u"TK (TURKMEN)", u"TW (TWI)", u"UK (UKRAINIAN)",
    u"UR (URDU)", u"UZ (UZBEK)", u"VI (VIETNAMESE)", u"VO (VOLAPUK)", u"CY (WELSH)", u"WO (WOLOF)", u"XH (XHOSA)",
    u"JI (YIDDISH)", u"YO (YORUBA)", u"ZU (ZULU)"};
// clang-format on

int LanguageAt(const QString& tags, qsizetype stream) {
  return LanguageOfTag(QStringView(tags).mid(stream * kTagStep, kTagSize));
}

}  // namespace

std::span<const QStringView> LanguageList() {
  return kLanguages;
}

int LanguageOfTag(QStringView tag) {
  if (tag.size() != kTagSize) return 0;
  const auto fits = [tag](QStringView entry) { return entry.startsWith(tag); };
  const auto found = std::find_if(kLanguages.begin() + 1, kLanguages.end(), fits);
  return found == kLanguages.end() ? 0 : int(found - kLanguages.begin());
}

QString LanguageTag(int language) {
  if (language <= 0 || language >= int(kLanguages.size())) return QString(kTagSize, u' ');
  return kLanguages[size_t(language)].first(kTagSize).toString();
}

FilmLanguages ParseLanguageTags(const QString& tags) {
  FilmLanguages languages;
  for (int i = 0; i < kFilmStreams; ++i) {
    languages.Audio[i] = LanguageAt(tags, i);
    languages.Subtitle[i] = LanguageAt(tags, kFilmStreams + i);
  }
  return languages;
}

QString FormatLanguageTags(const FilmLanguages& languages) {
  if (languages == FilmLanguages()) return {};
  QStringList tags;
  for (const auto& streams : {languages.Audio, languages.Subtitle}) {
    for (const int language : streams) tags << LanguageTag(language);
  }
  return tags.join(u',');
}

}  // namespace torvane
