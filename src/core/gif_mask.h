#pragma once

#include <QString>

namespace torvane {

/// The default mask of a kind of menu element, as a setting holds it: a picture that shapes the highlight.
struct GifMaskRecord {
  bool Enabled = false;
  QString File;          ///< name of the picture without directory; "" for none
  double RelSize = 100;  ///< size in percent of the element's size
  int XOffset = 0;       ///< pixels, 16 bits
  int YOffset = 0;       ///< pixels, 16 bits
  int Highlight = 0;     ///< 0 none, 1 the visible part, 2 the invisible part, 3 highlight only
  bool operator==(const GifMaskRecord&) const = default;
};

/// Path of a mask picture: in the directory "GifMask" below `appPath`, or else in `ownGifMaskDir`; "" where neither
/// has it.
QString FindGifMask(const QString& file, const QString& appPath, const QString& ownGifMaskDir);

/// Reads the string form "enabled;RelSize;XOffset;YOffset;Highlight;File". A "," in a number counts as ".". A file
/// that `FindGifMask` does not find leaves the record without file and not enabled. An empty text is the default
/// record.
GifMaskRecord ParseMaskString(const QString& text, const QString& appPath, const QString& ownGifMaskDir);

/// The string form; that of the default record is "0;100;0;0;0;".
QString FormatMaskString(const GifMaskRecord& mask);

}  // namespace torvane
