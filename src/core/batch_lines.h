#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>

#include "core/line_text.h"
#include "core/line_values.h"

namespace torvane {

/// A piece of a line of a batch: text that stands in the program itself, or a value that BatchLines let through. There
/// is no other way to make one.
class BatchPiece {
 public:
  template <std::size_t N>
  BatchPiece(const char (&literal)[N]) : bytes_(literal, N - 1) {}  // NOLINT(google-explicit-constructor)
  explicit BatchPiece(int number) : bytes_(QByteArray::number(number)) {}

  friend BatchPiece operator+(BatchPiece left, const BatchPiece& right) {
    left.bytes_ += right.bytes_;
    return left;
  }

 private:
  friend class BatchLines;
  explicit BatchPiece(QByteArray bytes) : bytes_(std::move(bytes)) {}

  QByteArray bytes_;
};

/// Collects the lines of a batch. Values go through `LineValues`; a "%" in them is doubled, since the command processor
/// takes a single one for the start of a variable's name. The German letters of a path are in the DOS code page.
class BatchLines {
 public:
  explicit BatchLines(LineValues& values) : values_(values) {}

  void Line(const BatchPiece& line) { out_.Line(line.bytes_); }
  const QByteArray& Bytes() const { return out_.Bytes(); }

  // What stands in double quotes:
  BatchPiece Tool(QStringView program) { return Path(values_.InForce().DvdAuthorPath + u'\\' + program); }
  BatchPiece Path(const QString& path, const QString& key = {}) { return Quoted(values_.Path(path, key)); }
  BatchPiece Temp(const QString& name) { return Quoted(values_.Temp(name)); }
  BatchPiece Temp(const QString& filmName, QStringView ending, const QString& key) {
    return Quoted(values_.Temp(filmName, ending, key));
  }
  BatchPiece Name(const QString& name, const QString& key = {});

  // What does not:
  BatchPiece Word(const QString& word, const QString& key = {});
  BatchPiece WholeNumber(const QString& number, const QString& key);
  /// A number with a decimal point, as the program has formed it.
  static BatchPiece Decimal(double number, int places);
  /// A message of the program.
  static BatchPiece Message(int number);

 private:
  static BatchPiece Quoted(const QString& path);

  LineValues& values_;
  LineText out_;
};

}  // namespace torvane
