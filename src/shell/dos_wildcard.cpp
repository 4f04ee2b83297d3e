#include "shell/dos_wildcard.h"

#include <algorithm>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// "?" also matches nothing where the name has ended. Linear backtracking to the last "*" only.
bool MatchesPlain(QStringView name, QStringView pattern) {
  qsizetype n = 0;
  qsizetype p = 0;
  qsizetype star = -1;
  qsizetype resume = 0;
  while (n < name.size() || p < pattern.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      star = p++;
      resume = n;
    } else if (p < pattern.size() && n < name.size() &&
               (pattern[p] == u'?' ? name[n] != u'.' : pattern[p].toCaseFolded() == name[n].toCaseFolded())) {
      ++p;
      ++n;
    } else if (p < pattern.size() && pattern[p] == u'?' && (n == name.size() || name[n] == u'.')) {
      ++p;
    } else if (star >= 0 && resume < name.size()) {
      p = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

bool HasWildcard(const QString& name) {
  return name.contains(u'*') || name.contains(u'?');
}

bool MatchesWildcard(const QString& name, const QString& pattern) {
  if (MatchesPlain(name, pattern)) return true;
  if (pattern.endsWith(u".*") && !name.contains(u'.')) return MatchesPlain(name, QStringView(pattern).chopped(2));
  if (pattern.endsWith(u'.') && !name.contains(u'.')) return MatchesPlain(name, QStringView(pattern).chopped(1));
  return false;
}

QStringList FilesOf(const QString& dosPath) {
  QString path = dosPath;
  path.replace(u'/', u'\\');
  const qsizetype slash = std::max<qsizetype>(path.lastIndexOf(u'\\'), HostFiles::HasDrive(path) ? 1 : -1);
  const QString pattern = path.sliced(slash + 1);
  const QString prefix = path.left(slash + 1);
  if (!HasWildcard(pattern)) return HostFiles::FileExists(path) ? QStringList{path} : QStringList();
  QStringList found;
  for (const QString& name : HostFiles::FileNames(prefix.isEmpty() ? u"."_s : prefix)) {
    // A name with a backslash of its own would be read as a path when it is mapped back.
    if (MatchesWildcard(name, pattern) && !name.contains(u'\\')) found << prefix + name;
  }
  return found;
}

}  // namespace torvane
