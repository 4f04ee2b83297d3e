#include "core/overwrite.h"

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool MayWriteFile(const QString& path, const QString& own, Prompter& prompter) {
  if (!HostFiles::FileExists(path) || HostFiles::IsSameFile(path, own)) return true;
  return prompter.Show({.kind = BoxKind::Question,
                        .buttons = BoxButtons::YesNo,
                        .text = u"There is a file %1 already. Write over it?"_s.arg(HostFiles::ToHost(path)),
                        .preselected = Answer::No}) == Answer::Yes;
}

}  // namespace torvane
