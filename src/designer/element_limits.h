#pragma once

#include "core/menu_view.h"
#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

/// Most buttons of a menu: 36, on a 16:9 menu 18, or 12 when it is shown in letterbox and pan-scan as well.
int ButtonLimit(const MenuView& menu, const Settings& settings);

// True when the menu may get one more element; otherwise the user is told, and nothing else happens.

bool CheckButtonLimit(const MenuView& menu, const Settings& settings, Prompter& prompter);
bool CheckImageLimit(const MenuView& menu, Prompter& prompter);
bool CheckAnimLimit(const MenuView& menu, Prompter& prompter);
bool CheckLabelLimit(const MenuView& menu, Prompter& prompter);

}  // namespace torvane
