#pragma once

#include <QByteArray>
#include <QString>

namespace torvane {

/// Control file with which spumux adds a text subtitle to a film. `format` is the subtitle format string of 13 fields
/// separated by "/"; missing fields write no line.
QByteArray WriteTextSubXml(const QString& subtitleFile, const QString& format);

/// A palette of 16 packed colours, separated by ",", as the text of a ".pal" file: a line of six hex digits each, the
/// low byte of the colour first.
QByteArray PaletteFileText(const QString& colors);

}  // namespace torvane
