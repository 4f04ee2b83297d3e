#pragma once

#include <QByteArray>
#include <QString>

namespace torvane {

/// Control file with which spumux adds a text subtitle to a film. `format` is the subtitle format string of 13 fields
/// separated by "/"; missing fields write no line.
QByteArray WriteTextSubXml(const QString& subtitleFile, const QString& format);

}  // namespace torvane
