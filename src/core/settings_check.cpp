#include "core/settings_check.h"

#include <QRegularExpression>

#include "core/grid_layout.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kHighestByte = 255;
constexpr int kPalHeight = 576;
constexpr qsizetype kSubtitleFields = 9;

bool Matches(const QString& text, const QString& pattern) {
  return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

SettingRange RangeOf(const SettingRow& row) {
  return row.kind == SettingKind::Byte ? SettingRange{0, kHighestByte} : row.range;
}

Status CheckNumber(const SettingRow& row, const QString& text) {
  bool ok = false;
  const int number = text.trimmed().toInt(&ok);
  if (!ok) return Failure{u"%1 takes a whole number, not \"%2\"."_s.arg(row.key, text)};
  const SettingRange range = RangeOf(row);
  if (range.least > range.most) return {};
  if (number >= range.least && number <= range.most && !(range.isEven && number % 2 != 0)) return {};
  const QString limits = range.isEven ? u"%1 takes an even number from %2 to %3, not %4."_s
                                      : u"%1 takes a number from %2 to %3, not %4."_s;
  return Failure{limits.arg(row.key).arg(range.least).arg(range.most).arg(text)};
}

Status CheckDecimal(const SettingRow& row, const QString& text) {
  if (Matches(text.trimmed(), uR"(\d+(\.\d+)?)"_s)) return {};
  return Failure{u"%1 takes a number such as 2.5 that is not negative, not \"%2\"."_s.arg(row.key, text)};
}

Status CheckFlag(const SettingRow& row, const QString& text) {
  const QString number = text.trimmed();
  if (number == u"0" || number == u"1") return {};
  return Failure{u"%1 takes 0 or 1, not \"%2\"."_s.arg(row.key, text)};
}

Status CheckMask(const SettingRow& row, const QString& text) {
  if (text.isEmpty() || Matches(text, uR"([01];\d+([.,]\d+)?;-?\d+;-?\d+;[0-3];[^;]*)"_s)) return {};
  return Failure{u"%1 takes a mask such as 1;100;0;0;1;circle.gif, not \"%2\"."_s.arg(row.key, text)};
}

Status CheckFont(const SettingRow& row, const QString& text) {
  if (text.isEmpty() || Matches(text, uR"([^\\]+\\\d*[1-9]\d*([.,]\d+)?(\\[01]){0,4})"_s)) return {};
  return Failure{u"%1 takes a font such as Arial\\12\\0\\0\\0\\0, not \"%2\"."_s.arg(row.key, text)};
}

Status CheckChoice(const SettingRow& row, const QString& text) {
  const QStringList words = row.choices.toString().split(u' ');
  if (words.contains(text)) return {};
  return Failure{u"%1 takes %2, not \"%3\"."_s.arg(row.key, words.join(u", "), text)};
}

Status CheckForm(const SettingRow& row, const QString& text) {
  switch (row.form) {
    case SettingForm::Any:
      return {};
    case SettingForm::NotEmpty:
      if (!text.isEmpty()) return {};
      return Failure{u"%1 takes a text that is not empty."_s.arg(row.key)};
    case SettingForm::Choice:
      return CheckChoice(row, text);
    case SettingForm::Crop:
      if (ValidCropValue(text)) return {};
      return Failure{u"%1 takes one number such as 20 or four such as 16,8,-16,-8, not \"%2\"."_s.arg(row.key, text)};
    case SettingForm::Effect:
      if (Matches(text, uR"((-?\d+;){4})"_s)) return {};
      return Failure{u"%1 takes four numbers such as 128;5;6;0; and not \"%2\"."_s.arg(row.key, text)};
    case SettingForm::Grid: {
      const QStringList faults = GridLayoutFaults(text, kPalHeight);
      if (faults.isEmpty()) return {};
      return Failure{row.key + u": " + faults.join(u' ')};
    }
    case SettingForm::SubtitleFormat:
      if (text.count(u'/') + 1 == kSubtitleFields) return {};
      return Failure{
          u"%1 takes nine fields such as ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30, not \"%2\"."_s.arg(
              row.key, text)};
    case SettingForm::VolumeName:
      if (Matches(text, u"[A-Z0-9_]{1,30}"_s)) return {};
      return Failure{
          u"%1 takes a name of at most 30 capitals, digits and underscores, not \"%2\"."_s.arg(row.key, text)};
  }
  return {};
}

}  // namespace

Status CheckSettingText(const SettingRow& row, const QString& text) {
  switch (row.kind) {
    case SettingKind::Flag:
    case SettingKind::Switch:
      return CheckFlag(row, text);
    case SettingKind::Number:
    case SettingKind::Magnitude:
    case SettingKind::Byte:
      return row.form == SettingForm::Choice ? CheckChoice(row, text) : CheckNumber(row, text);
    case SettingKind::Decimal:
      return CheckDecimal(row, text);
    case SettingKind::Mask:
      return CheckMask(row, text);
    case SettingKind::Font:
      return CheckFont(row, text);
    case SettingKind::Text:
    case SettingKind::Path:
      return CheckForm(row, text);
  }
  return {};
}

}  // namespace torvane
