#pragma once

#include <QString>

namespace torvane {

/// A font as settings and nodes hold it.
struct FontRecord {
  QString Name = QStringLiteral("Arial");
  double Size = 12;  ///< points at 96 dots an inch, above 0
  bool Bold = false;
  bool Italic = false;
  bool Strikethrough = false;
  bool Underline = false;
  bool operator==(const FontRecord&) const = default;
};

/// Reads "name\size\bold\italic\strikethrough\underline". Flags are numbers, a "," in the size counts as ".". A name
/// that is empty and a size that is not above 0 take the default, so that every record names a font one can draw with.
FontRecord ParseFontString(const QString& text);

/// The string form; that of the default record is "Arial\12\0\0\0\0".
QString FormatFontString(const FontRecord& font);

}  // namespace torvane
