#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace torvane {

/// Collects the lines of a generated file; each gets its CR LF here.
class LineText {
 public:
  void Line(const QByteArray& bytes) { bytes_ += bytes + "\r\n"; }
  void Line(const char* bytes) { Line(QByteArray(bytes)); }
  void Line(QStringView text) { Line(text.toUtf8()); }
  void Line(const QString& text) { Line(text.toUtf8()); }

  const QByteArray& Bytes() const { return bytes_; }

 private:
  QByteArray bytes_;
};

}  // namespace torvane
