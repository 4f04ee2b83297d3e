#pragma once

#include <QString>
#include <QStringView>

namespace torvane {

// Numbers. A damaged number never fails: it reads as far as it is one, or as 0.

/// The number at the start of a text: leading blanks, an optional sign, digits and at most one "."; the first other
/// character ends it. 0 without digits. The decimal point is "." whatever the locale.
double Val(QStringView text);

/// To the nearest integer, halves to even.
double RoundHalfEven(double value);

/// The same as an int; beyond 32 bits the nearest limit, 0 for what is no number.
int RoundToInt(double value);

/// `Val` as an int, rounded and limited as RoundToInt does.
int ValToInt(QStringView text);

/// The shortest decimal text that reads back as the same number, with "." as decimal point and never an exponent.
/// A float gives the text of the float: 0.1F is "0.1".
QString FormatNumberDot(double value);
QString FormatNumberDot(float value);

/// The k-th number of a list such as "128;5;6;0;", k counting from 1; 0 where there is none.
double GetField(const QString& list, int k);

/// The same with k counting from 0.
double OutlineField(const QString& list, int k);

/// True for one integer from -9999 to 9999, or for four of them separated by "," of which the first two are not below
/// and the last two not above 0. Nothing else may stand in the text: no blank, no leading "+".
bool ValidCropValue(QStringView text);

// Text

/// "Yes" or "No" in the language of the messages.
QString YesNoText(bool flag);

/// Makes every line feed a CR LF in a text that holds no CR LF at all; any other text comes back unchanged.
QString NormalizeLineBreaks(const QString& text);

/// Prepares a text for a label: "&" becomes "&&" and a blank in front of a line break (CR LF) becomes two.
QString EscapeLabelText(const QString& text);

/// The reverse of EscapeLabelText.
QString UnescapeLabelText(const QString& text);

/// True when a character is beyond ASCII or is "&": text that the authoring tools may not take in a path.
bool HasSpecialCharacters(QStringView text);

/// True when a text holds what ends a line or controls a terminal, anywhere in Unicode.
bool HasControlCharacters(QStringView text);

/// The text without the characters that HasSpecialCharacters minds, and without control characters.
QString StripSpecialChars(const QString& text);

// Colours. A packed colour is R + G * 256 + B * 65536.

/// "r,g,b" in decimal.
QString ColorToRGBString(int color);

/// The packed colour of the three numbers behind the first "=" of a caption (of the whole text without one),
/// separated by ","; each is limited to 0 to 255, a missing one is 0.
int RGBStringToColor(QStringView caption);

/// A packed colour with an opacity (0 to 255): alpha in the high byte, then red, green, blue.
quint32 MakeARGB(int color, int alpha);

/// Of a caption "X=r,g,b" six capital hex digits in the order r, g, b.
QString RGBStringToHex(QStringView caption);

// DOS paths, taken apart as text.

struct FileNameParts {
  QString name;  ///< up to the last ".", without directory; all of it when there is no "."
  QString ext;   ///< from the last "." on
  bool operator==(const FileNameParts&) const = default;
};

/// The last component of a path. A "." in a directory's name ends nothing.
FileNameParts SplitFileName(const QString& path);

struct PathParts {
  QString dir;  ///< up to the last "\", without it
  QString name;
  QString ext;
  bool operator==(const PathParts&) const = default;
};

PathParts SplitPath(const QString& path);

/// The characters behind the last "." of the last component in upper case; "" without one.
QString GetExtensionUpper(const QString& path);

}  // namespace torvane
