#pragma once

#include <QList>

#include "core/project.h"
#include "core/prompter.h"
#include "core/settings_overrides.h"
#include "platform/result.h"

namespace torvane {

/// The overrides that projects carry as well; the user's settings without them are still to be filled in.
GivenSettings GivenForProjects(const QList<SettingOverride>& overrides);

/// Puts the settings given for this run over those that were read from the project.
void TakeGivenSettings(Project& project);

/// The settings as a save of the project holds them: its own where a given one stands in their place.
Settings CarriedSettings(const Project& project);

/// Fails for a setting that no project carries.
Status CheckProjectSetting(const QString& key);

/// Changes settings that the project carries, as one edit, with what follows from them: the room of the Back button in
/// NTSC, what a project without menus implies, the nodes of the intro, the defaults of a main menu without elements.
/// The values have the form of their settings, paths are DOS paths. Fails for a setting that no project carries, for a
/// norm that does not fit the menus there are, for a mode that they need (animated menus, advanced mode), and for
/// settings that do not go together (messages 267, 268, 269 and 271); the project is then as it was.
Status SetProjectSettings(Project& project, const QList<SettingOverride>& changes);

}  // namespace torvane
