#pragma once

#include <QByteArray>
#include <QString>

namespace torvane {

/// The attributes of a text subtitle, a line each without a line break behind the last. `format` is the subtitle format
/// string of 13 fields separated by "/"; missing fields give no line.
QString SubFormatAttributes(const QString& format);

/// Control file with which spumux adds a text subtitle to a film.
QByteArray WriteTextSubXml(const QString& subtitleFile, const QString& attributes);

}  // namespace torvane
