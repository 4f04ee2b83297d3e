#pragma once

#include <QList>
#include <QString>

#include "core/prompter.h"
#include "core/settings.h"
#include "core/settings_overrides.h"

namespace torvane {

/// Whether a viewer that is missing is told; only the desktop starts viewers.
enum class ViewerCheck { Skip, Tell };

struct StartOptions {
  QString profileDir;                ///< directory of the store as a user types it; "" for the user's own
  QList<SettingOverride> overrides;  ///< take the place of stored values for this run; a later one wins
  QString appPath;                   ///< directory of the data files, usually ProgramDir()
  ViewerCheck viewerCheck = ViewerCheck::Skip;
};

/// The settings in force at start: the stored ones under the overrides, completed from the machine.
///
/// Makes the output and the temporary directory. A directory that is not there is replaced by its nearest parent that
/// is, or else by one below `appPath`; where an override named it, the user is told. A path in an override may be a
/// host path. An override of TempDir switches TempOutDir off unless that is given too. With TempOutDir, TempDir is
/// "Temp" below OutDir. Where the user may not write to `appPath`, what would be written there goes to the user's data
/// directory. Sets the language of the messages.
Settings LoadSettings(const StartOptions& options, Prompter& prompter);

}  // namespace torvane
