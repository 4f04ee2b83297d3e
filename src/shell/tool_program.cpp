#include "shell/tool_program.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/host_files.h"
#include "shell/current_directory.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The named path, also with ".exe" behind it, when a file lies there.
QString ExistingProgram(const QString& dosPath) {
  for (const QString& path : {dosPath, QString(dosPath + u".exe"_s)}) {
    if (HostFiles::FileExists(path)) return QFileInfo(HostFiles::ToHost(path)).absoluteFilePath();
  }
  return {};
}

QString StemOf(const QString& dosPath) {
  QString name = dosPath;
  name.replace(u'/', u'\\');
  name = name.sliced(name.lastIndexOf(u'\\') + 1);
  for (const QString& ending : {u".exe"_s, u".com"_s}) {
    if (name.endsWith(ending, Qt::CaseInsensitive)) name.chop(ending.size());
  }
  return name;
}

bool IsWindowsProgram(const QString& hostPath) {
  QFile file(hostPath);
  return file.open(QIODevice::ReadOnly) && file.read(2) == "MZ";
}

Failure NotInstalled(const ToolEntry& tool) {
  return Failure{u"%1 is not installed; install the Debian package %2"_s.arg(tool.program, tool.package)};
}

/// "" when the program can be run.
QString ReasonMissing(const QString& named) {
  const Result<ToolProgram> found = FindToolProgram(named);
  if (!found) return found.Error();
  const ToolEntry* tool = found->entry;
  const bool needsMore = tool && tool->own && !found->wine && !tool->program.isEmpty();
  return needsMore && QStandardPaths::findExecutable(tool->program).isEmpty() ? NotInstalled(*tool).text : QString();
}

}  // namespace

Result<ToolProgram> FindToolProgram(const QString& named) {
  ToolProgram found{.name = StemOf(named)};
  found.entry = FindTool(found.name);
  if (found.entry) found.name = found.entry->stem;
  const QString existing = ExistingProgram(ResolveDosPath(named));
  if (!existing.isEmpty() && IsWindowsProgram(existing)) {
    if (const QString wine = QStandardPaths::findExecutable(u"wine"_s); !wine.isEmpty()) {
      found.wine = true;
      found.program = wine;
      found.arguments = {u"wine"_s, existing};
      return found;
    }
    if (!found.entry || (found.entry->program.isEmpty() && !found.entry->own)) {
      return Failure{u"%1 is a Windows program; install the Debian package wine to run it"_s.arg(named)};
    }
  }
  if (const ToolEntry* tool = found.entry) {
    if (tool->own) return found;
    if (tool->program.isEmpty()) return Failure{u"%1 is not available on this system"_s.arg(tool->stem)};
    found.program = QStandardPaths::findExecutable(tool->program);
    found.arguments = {tool->program};
    if (!found.program.isEmpty()) return found;
    return NotInstalled(*tool);
  }
  if (existing.isEmpty()) return Failure{u"%1 is neither a command nor a program that exists"_s.arg(named)};
  if (!QFileInfo(existing).isExecutable()) return Failure{u"%1 cannot be run on this system"_s.arg(existing)};
  found.program = existing;
  found.arguments = {existing};
  return found;
}

QStringList MissingPrograms(const QStringList& named) {
  QStringList reasons;
  for (const QString& program : named) reasons << ReasonMissing(program);
  reasons.removeAll(QString());
  reasons.removeDuplicates();
  return reasons;
}

bool HasTool(const QString& dosPath) {
  if (dosPath.endsWith(u".exe", Qt::CaseInsensitive)) return bool(FindToolProgram(dosPath));
  return HostFiles::FileExists(dosPath);
}

}  // namespace torvane
