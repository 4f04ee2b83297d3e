#pragma once

#include <QByteArray>
#include <QString>

namespace torvane {

/// The DOS code page that console tools see in a batch file, as far as generated batches use it: the seven letters
/// ä ö ü Ä Ö Ü ß are the single bytes 132 148 129 142 153 154 225; every other character stands in UTF-8.
QByteArray ToDosCodePage(const QString& text);

/// Reads such text back. Bytes that make no valid UTF-8 sequence are taken for the seven letters, and so are three
/// bytes that could be either "ß" with two umlauts or one character beyond U+1000: a file name with German letters
/// is by far the likelier. Any other stray byte becomes U+FFFD.
QString FromDosCodePage(const QByteArray& bytes);

}  // namespace torvane
