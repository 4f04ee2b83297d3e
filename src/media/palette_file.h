#pragma once

#include <QByteArray>
#include <QString>

#include "platform/result.h"

namespace torvane {

/// A subtitle palette from a file, as 16 packed colours (see palette.h) with "," between them. The ending tells the
/// kind: ".ifo" of a titleset, ".pal" (the colour's own bytes), ".rgb" or ".sst" (RGB colours). Fails with message 467
/// for a file that does not fit.
Result<QString> ReadPaletteFile(const QString& path);

/// The same of a file's content; `path` tells the kind.
Result<QString> ParsePalette(const QString& path, const QByteArray& content);

/// A list of packed colours as the text of a ".pal" file: a line of six hex digits each, the low byte of the colour
/// first.
QByteArray PaletteFileText(const QString& colors);

}  // namespace torvane
