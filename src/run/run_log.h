#pragma once

#include <QString>

#include "platform/result.h"

namespace torvane {

/// The log file of one run, {Out}\TorvaneAuthor.log. UTF-8.
///
/// At the start room for a megabyte is set aside for it, where the file system can do that, so that a run which
/// fills the disk can still tell why it failed.
class RunLog {
 public:
  /// `file` is a DOS path.
  explicit RunLog(QString file);

  /// Makes the file anew with one line.
  Status Start(const QString& line) const;

  /// Adds a line. A failure is left to Finish, which writes everything.
  void AddLine(const QString& line) const;

  /// Replaces all of it. When the disk is full, as much of the text as there is room for stands in the file.
  Status Finish(const QString& text) const;

  const QString& File() const { return file_; }

 private:
  QString file_;
};

}  // namespace torvane
