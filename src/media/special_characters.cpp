#include "media/special_characters.h"

#include "core/engine.h"
#include "core/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

void WarnOfSpecialCharacters(const Settings& settings, Prompter& prompter) {
  QString text = GetMessage(52);
  if (settings.Engine == kEngineMuxMan) text.replace(u"dvdauthor"_s, u"MuxMan"_s);
  prompter.Warn(text);
}

}  // namespace torvane
