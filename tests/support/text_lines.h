#pragma once

#include <QByteArray>
#include <QList>

namespace torvane::test {

/// A readable text with bare line feeds as the generated file that it stands for.
inline QByteArray WithCrLf(QByteArray text) { return text.replace("\n", "\r\n"); }

/// The lines of a generated file that hold a piece of text, without their CR LF and leading blanks.
inline QList<QByteArray> LinesWith(const QByteArray& file, const QByteArray& piece) {
  QList<QByteArray> lines;
  for (const QByteArray& line : file.split('\n')) {
    if (line.contains(piece)) lines << line.trimmed();
  }
  return lines;
}

}  // namespace torvane::test
