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

/// The line of a text in which a word was found, which may begin with the end of the line before.
QString LineOf(const QString& text, qsizetype hit) {
  const auto isLineEnd = [](QChar c) { return c == u'\n' || c == u'\r'; };
  while (hit < text.size() && isLineEnd(text[hit])) ++hit;
  qsizetype from = hit;
  while (from > 0 && !isLineEnd(text[from - 1])) --from;
  qsizetype end = hit;
  while (end < text.size() && !isLineEnd(text[end])) ++end;
  return text.sliced(from, end - from);
}

RunMark ShowLine(Transcript& transcript, const QString& line) {
  transcript.Add(u"\r\n%1\r\n"_s.arg(line));
  return {transcript.Shown().size() - line.size() - 2, line.size()};
}

}  // namespace

std::vector<RunMark> MarkComplaints(const QString& text, qsizetype from) {
  std::vector<RunMark> marks;
  for (qsizetype hit = text.indexOf(u"*ERROR", from); hit >= 0; hit = text.indexOf(u"*ERROR", hit + 1)) {
    marks.push_back(MarkToLineEnd(text, hit));
  }
  return marks;
}

LogScan::LogScan(int engine, QString runMode, const QString& tempDir)
    : engine_(engine), runMode_(std::move(runMode)), stackdumpFile_(tempDir + u"\\spumux.exe.stackdump"_s) {}

std::vector<RunMark> LogScan::ScanConsoleOutput(Transcript& transcript) {
  std::vector<RunMark> marks;
  const QString& text = transcript.Shown();
  const QString came = transcript.ToJudge();
  const QStringList words = ErrorWords(engine_, runMode_);
  for (qsizetype row = 0; row < words.size(); ++row) {
    const qsizetype hitAsItCame = words[row].isEmpty() ? -1 : came.indexOf(words[row]);
    if (hitAsItCame < 0) continue;
    const qsizetype hit = text.indexOf(words[row], std::max<qsizetype>(checkedUpTo_, 1) - 1);
    if (hit < 0) {
      marks.push_back(ShowLine(transcript, LineOf(came, hitAsItCame)));
    } else {
      marks.push_back(row == kStackdumpRow ? MarkStackdump(text, hit) : MarkToLineEnd(text, hit));
    }
  }
  if (HostFiles::FileExists(stackdumpFile_)) {
    const QString line = u"*ERROR spumux crashed (stackdump)\r\n"_s;
    transcript.Add(line);
    marks.push_back({text.size() - line.size(), line.size()});
  }
  checkedUpTo_ = text.size();
  transcript.Judged();
  return marks;
}

bool LogScan::FindsError(const Transcript& transcript) const {
  const QStringList words = ErrorWords(engine_, runMode_);
  return HostFiles::FileExists(stackdumpFile_) || std::ranges::any_of(words, [&](const QString& word) {
           return !word.isEmpty() && transcript.ToJudge().contains(word);
         });
}

}  // namespace torvane
