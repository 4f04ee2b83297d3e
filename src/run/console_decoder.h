#pragma once

#include <QByteArray>
#include <QString>

namespace torvane {

/// Turns console output, which arrives in pieces cut anywhere, into text.
///
/// The tools print UTF-8, and the DOS code page where they repeat a path of a batch line; FromDosCodePage tells the
/// two apart. The text of all pieces together is the same wherever the cuts are.
class ConsoleDecoder {
 public:
  /// Text of the next piece. Up to three bytes at its end wait for the next one, if they may begin a character.
  QString Decode(QByteArrayView bytes);

  /// Text of what still waits, when nothing more will come.
  QString Flush();

 private:
  QByteArray held_;
};

}  // namespace torvane
