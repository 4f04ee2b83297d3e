#pragma once

#include <optional>

#include "core/prompter.h"
#include "core/settings.h"
#include "platform/folder_lock.h"

namespace torvane {

/// Readies the directories of a run and takes them for this process until the answer is destroyed: those that are
/// missing are made where their parent is there, a former disc that a killed run left aside is put back, and no other
/// run may work in `OutDir` or `TempDir` meanwhile. Nothing, once the user was told why, when a directory cannot be
/// had.
std::optional<FolderLock> TakeRunPlace(const Settings& settings, Prompter& prompter);

/// Puts back the disc and image that a killed run has left aside in `OutDir`, and says so. False when that fails, which
/// it has told. To be called with `OutDir` taken.
bool RecoverFormerDisc(const Settings& settings, Prompter& prompter);

}  // namespace torvane
