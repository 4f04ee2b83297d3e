#pragma once

#include <QString>

#include "core/prompter.h"

namespace torvane {

/// Whether a menu can show the picture of a file (DOS path); a file that is missing or holds no picture is told.
bool CheckPicture(const QString& path, Prompter& prompter);

}  // namespace torvane
