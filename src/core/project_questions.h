#pragma once

#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// What becomes of the main window that the user wants to close.
enum class Closing { Stays, Closes, SavesAndCloses, SavesUnderNewNameAndCloses };

/// Asks about a changed project when the user wants to be asked (message 156).
Closing AskBeforeClosing(const Project& project, Prompter& prompter);

/// Asks whether another project may take the place of one that holds something (message 114). True without asking
/// when the main menu is empty and there is no film.
bool MayReplaceProject(const Project& project, Prompter& prompter);

}  // namespace torvane
