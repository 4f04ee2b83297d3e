#include "shell/batch_script.h"

#include "platform/dos_code_page.h"
#include "platform/host_files.h"
#include "shell/command_parser.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

std::optional<qsizetype> BatchScript::BehindLabel(const QString& label, qsizetype from) const {
  for (qsizetype n = 0; n < lines.size(); ++n) {
    const qsizetype index = (from + n) % lines.size();
    const QString line = lines[index].trimmed();
    if (line.startsWith(u':') && LabelName(line).compare(label, Qt::CaseInsensitive) == 0) return index + 1;
  }
  return std::nullopt;
}

Result<BatchScript> LoadBatchScript(const QString& dosPath) {
  const Result<QByteArray> bytes = HostFiles::Read(dosPath);
  if (!bytes) return Failure{bytes.Error()};
  QString text = FromDosCodePage(*bytes);
  if (text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
  BatchScript script{dosPath, text.split(u'\n')};
  for (QString& line : script.lines) {
    if (line.endsWith(u'\r')) line.chop(1);
  }
  return script;
}

QString LabelName(const QString& text) {
  const QString trimmed = text.trimmed();
  qsizetype begin = trimmed.startsWith(u':') ? 1 : 0;
  while (begin < trimmed.size() && IsDelimiter(trimmed[begin])) ++begin;
  qsizetype end = begin;
  while (end < trimmed.size() && !IsDelimiter(trimmed[end]) && !u":+&|<>"_s.contains(trimmed[end])) ++end;
  return trimmed.sliced(begin, end - begin);
}

}  // namespace torvane
