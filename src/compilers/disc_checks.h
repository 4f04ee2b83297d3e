#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "compilers/former_disc.h"
#include "core/finding.h"
#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

// What Create DVD makes sure of before anything is written. Each check answers false when the user, or the state of
// this machine, stops the command; it has then told why.

/// The intro video exists, when one is used.
bool CheckIntro(const Project& project, Prompter& prompter);

/// Menus that loop without anything that moves make highlights behave strangely: asks whether to go on.
bool CheckLoopingMenus(const Project& project, Prompter& prompter);

/// Asks before an old disc is replaced. Nothing is asked when the folder holds no file.
bool AgreesToReplaceDisc(const Project& project, Prompter& prompter);

/// Asks before an ISO image of the same name is overwritten.
bool AgreesToReplaceImage(const Project& project, Prompter& prompter);

/// Says that the former disc stays where it is, when there is one.
void TellOfFormerDisc(const Project& project, Prompter& prompter);

/// Asks to go on for each drive that has not enough free space beside the former disc and image, and offers to delete
/// these first where that helps. Answers with what is to become of them; nothing when the user stops.
std::optional<FormerFate> CheckFreeSpace(const Project& project, Prompter& prompter);

/// Sources of the project that lie where the run erases temporary files by wildcard, or in the folder of the old disc:
/// such a run is refused.
QList<Finding> SourceSafetyFindings(const Project& project);

/// Tells the findings in one box; true when there are none.
bool RefusesNothing(const QStringList& findings, Prompter& prompter);
bool RefusesNothing(const QList<Finding>& findings, Prompter& prompter);

/// "{Out}\DVD\VIDEO_TS"
QString VideoTsDir(const Settings& settings);

/// "{ISOPath}\{ISO_Name}.ISO"; without an ISO path in the output directory.
QString IsoFile(const Settings& settings);

/// All files that the project names, and the project file itself: full DOS paths, each once.
QStringList ProjectFiles(const Project& project);

}  // namespace torvane
