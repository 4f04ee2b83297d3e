#pragma once

#include <QString>

#include "core/settings.h"
#include "platform/result.h"

namespace torvane {

enum class HelpPage { Index, Faq, Readme };

/// Directory of the help pages in the language of the settings: "help\" or "hilfe\" below AppPath. Ends with "\".
QString HelpDir(const Settings& settings);

/// DOS path of a help page; fails with message 715 when it is not there.
Result<QString> FindHelpPage(const Settings& settings, HelpPage page);

}  // namespace torvane
