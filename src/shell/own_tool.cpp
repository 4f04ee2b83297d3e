#include "shell/own_tool.h"

#include "platform/generated_file.h"
#include "shell/builtin_commands.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString UnfinishedName(const QString& hostPath) {
  return hostPath + kUnfinishedEnding;
}

int RunOwnTool(const OwnTool& tool, const QString& name, const QStringList& arguments) {
  const Result<QString> done = tool.run(arguments);
  if (!done) {
    PrintText(2, u"ERR:  %1: %2\n"_s.arg(name, done.Error()));
    return 1;
  }
  if (!done->isEmpty()) PrintText(1, u"%1: %2\n"_s.arg(name, *done));
  return 0;
}

}  // namespace torvane
