#include "run/batch_outputs.h"

#include <QHash>
#include <vector>

#include "platform/dos_code_page.h"
#include "platform/real_place.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// A text in quotation marks and what stands in front of it, from the one before on.
struct Quoted {
  QByteArray before;
  QString text;
};

std::vector<Quoted> QuotedTexts(const QByteArray& line) {
  std::vector<Quoted> texts;
  const QList<QByteArray> pieces = line.split('"');
  for (qsizetype i = 1; i < pieces.size(); i += 2) {
    texts.push_back({pieces[i - 1].trimmed(), FromDosCodePage(QByteArray(pieces[i]).replace("%%", "%"))});
  }
  return texts;
}

bool BeginsWithAnyOf(const QByteArray& line, std::initializer_list<const char*> words) {
  for (const char* word : words) {
    if (line.startsWith(word)) return true;
  }
  return false;
}

bool IsProgram(const Quoted& quoted) {
  return quoted.text.endsWith(u".exe", Qt::CaseInsensitive) && (quoted.before.isEmpty() || quoted.before.endsWith('|'));
}

QList<QByteArray> CommandLines(const QByteArray& batch) {
  QList<QByteArray> lines;
  for (const QByteArray& raw : batch.split('\n')) {
    const QByteArray line = raw.trimmed();
    if (!BeginsWithAnyOf(line, {"REM", "echo", "@"})) lines << line;
  }
  return lines;
}

/// The paths that a line writes or erases.
QStringList WrittenPaths(const QByteArray& line) {
  const std::vector<Quoted> texts = QuotedTexts(line);
  QStringList paths;
  if (texts.empty()) return paths;
  const bool allOfThem = BeginsWithAnyOf(line, {"erase ", "rmdir ", "mkdir ", "attrib "});
  const bool lastOfThem =
      line.startsWith("copy ") || texts.front().text.endsWith(u"\\requant.exe", Qt::CaseInsensitive);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const QByteArray& before = texts[i].before;
    if (allOfThem || (lastOfThem && i + 1 == texts.size()) || before.endsWith("-o") || before.endsWith('>')) {
      paths << texts[i].text;
    }
  }
  return paths;
}

/// Tells which paths lie in one directory, up to one folder deep, whatever way they are written.
class Inside {
 public:
  explicit Inside(const QString& dir) : place_(PlaceOf(dir)) {}

  /// The names below the directory, with "/" between them; "" for what lies elsewhere.
  QString NamesBelow(const QString& path) {
    const qsizetype name = path.lastIndexOf(u'\\');
    if (name < 0) return {};
    const QString folder = path.left(name);
    if (Is(folder)) return path.sliced(name + 1);
    const qsizetype parent = folder.lastIndexOf(u'\\');
    if (parent < 0 || !Is(folder.left(parent))) return {};
    return folder.sliced(parent + 1) + u'/' + path.sliced(name + 1);
  }

 private:
  bool Is(const QString& folder) {
    const auto known = known_.constFind(folder);
    if (known != known_.constEnd()) return *known;
    return *known_.insert(folder, PlaceOf(folder) == place_);
  }

  RealPlace place_;
  QHash<QString, bool> known_;
};

void AddOnce(QStringList& list, const QString& text) {
  if (!list.contains(text)) list << text;
}

}  // namespace

BatchOutputs OutputsInTemp(const QByteArray& batch, const QString& tempDir) {
  BatchOutputs outputs;
  Inside temp(tempDir);
  for (const QByteArray& line : CommandLines(batch)) {
    for (const QString& path : WrittenPaths(line)) {
      const QString names = temp.NamesBelow(path);
      if (names.isEmpty()) continue;
      AddOnce(names.contains(u'*') || names.contains(u'?') ? outputs.masks : outputs.names, names);
    }
  }
  return outputs;
}

QStringList ProgramsOf(const QByteArray& batch) {
  QStringList programs;
  for (const QByteArray& line : CommandLines(batch)) {
    for (const Quoted& quoted : QuotedTexts(line)) {
      if (IsProgram(quoted)) AddOnce(programs, quoted.text);
    }
  }
  return programs;
}

}  // namespace torvane
