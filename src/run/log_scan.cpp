#include "run/log_scan.h"

#include <QStringList>
#include <algorithm>
#include <utility>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Length of the line that tells of a crashed dvdauthor, with its LF.
constexpr qsizetype kStackdumpLineLength = 67;

/// What is looked for, in order. The rows from the third on count in a real run only; "" is not looked for.
QStringList ErrorWords(int engine, const QString& runMode) {
  QStringList words{runMode == u"1" ? u"ERR:  Parse error"_s : u"*ERROR"_s,
                    engine == 0 ? u"Error in parsing XML"_s : u"\nRejected"_s};
  if (runMode != u"0") return words;
  if (engine == 0) {
    return words << u"\nERR:"_s << u"\rERR:"_s << u"\nassertion"_s << QString() << QString()
                 << u"open_stackdumpfile: Dumping stack trace to dvdauthor.exe.stackdump\n"_s;
  }
  return words << u"\nAudio type not recognized"_s << u"\rERR:"_s << u": Syntax error"_s
               << u"\nMultiplex operation failed"_s << u"\nReference to non-existant scene"_s << u"Syntax error:"_s;
}

constexpr qsizetype kStackdumpRow = 7;

/// From the hit up to the next CR LF, or LF where none comes, or CR where none comes, or the end. A line end that is
/// itself part of the word found does not count.
RunMark MarkToLineEnd(const QString& text, qsizetype hit) {
  for (const QString& lineEnd : {u"\r\n"_s, u"\n"_s, u"\r"_s}) {
    const qsizetype end = text.indexOf(lineEnd, hit + 1);
    if (end >= 0) return {hit, end - hit};
  }
  return {hit, text.size() - hit};
}

RunMark MarkStackdump(const QString& text, qsizetype hit) {
  qsizetype from = hit;
  while (from > 0 && text[from - 1] != u'\n' && text[from - 1] != u'\r') --from;
  return {from, std::min(hit + kStackdumpLineLength, text.size()) - from};
}

}  // namespace

LogScan::LogScan(int engine, QString runMode, const QString& tempDir)
    : engine_(engine), runMode_(std::move(runMode)), stackdumpFile_(tempDir + u"\\spumux.exe.stackdump"_s) {}

std::vector<RunMark> LogScan::ScanConsoleOutput(Transcript& transcript) {
  std::vector<RunMark> marks;
  const QString& text = transcript.Shown();
  const QStringList words = ErrorWords(engine_, runMode_);
  for (qsizetype row = 0; row < words.size(); ++row) {
    if (words[row].isEmpty()) continue;
    const qsizetype hit = text.indexOf(words[row], std::max<qsizetype>(checkedUpTo_, 1) - 1);
    if (hit < 0) continue;
    marks.push_back(row == kStackdumpRow ? MarkStackdump(text, hit) : MarkToLineEnd(text, hit));
  }
  if (HostFiles::FileExists(stackdumpFile_)) {
    const QString line = u"*ERROR spumux crashed (stackdump)\r\n"_s;
    transcript.Add(line);
    marks.push_back({text.size() - line.size(), line.size()});
  }
  checkedUpTo_ = text.size();
  return marks;
}

}  // namespace torvane
