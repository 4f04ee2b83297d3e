#pragma once

#include <QString>
#include <vector>

#include "run/transcript.h"

namespace torvane {

/// A range of the shown text that is to be seen in red: position from 0, and length, in characters.
struct RunMark {
  qsizetype from = 0;
  qsizetype length = 0;
  bool operator==(const RunMark&) const = default;
};

/// Marks of all lines of a text from a position on, in which the console itself complains ("*ERROR").
std::vector<RunMark> MarkComplaints(const QString& text, qsizetype from);

/// Looks for the error words of the outside tools in the growing text of a run.
class LogScan {
 public:
  /// `engine` 0 is dvdauthor, 1 is MuxMan. `runMode` "0" is a real run, in which all words count; with "1", a syntax
  /// check, only a parse error does among what dvdauthor prints. `tempDir` is a DOS path.
  LogScan(int engine, QString runMode, const QString& tempDir);

  /// Marks of the first hit of each error word in what came since the last call; empty when there is none.
  /// The last character of the text looked at before is looked at again, so that a word behind a line end is found
  /// when that line end came earlier. A line that was not shown, since it looked like a repeat, is added to the text.
  /// A `spumux.exe.stackdump` in the temporary directory is an error as well, and adds a line at each call.
  std::vector<RunMark> ScanConsoleOutput(Transcript& transcript);

  /// Whether the next scan will find anything. Changes nothing.
  bool FindsError(const Transcript& transcript) const;

  /// Position, from 1, up to which the text was looked at.
  qsizetype CheckedUpTo() const { return checkedUpTo_; }

  /// DOS path of the file that a crashed spumux leaves.
  const QString& StackdumpFile() const { return stackdumpFile_; }

 private:
  int engine_;
  QString runMode_;
  QString stackdumpFile_;
  qsizetype checkedUpTo_ = 1;
};

}  // namespace torvane
