#pragma once

#include <QString>
#include <QStringList>

#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// The main menu and its submenus, in the order in which they are compiled.
QStringList MainMenuKeys(const Project& project);

/// The root menus of all titlesets, then their submenus.
QStringList TitlesetMenuKeys(const Project& project);

/// The menus that the disc gets: none without menus, those of titlesets only where films have one each.
QStringList DiscMenuKeys(const Project& project);

/// What the plan is for.
enum class PlanUse {
  Run,         ///< a disc is made of it
  WriteOnly,   ///< its files are written and nothing is run
  SyntaxCheck  ///< the control file is read, whether the films and sound files exist or not
};

/// What keeps a project from becoming a disc although each part of it is sound: menus that are not there, limits of the
/// authoring tools, sound files that cannot be read. Whole sentences that name the place and what to do.
QStringList PlanFindings(const Project& project, PlanUse use = PlanUse::Run);

/// Tells all of them in one box; true when there are none. With PlanUse::WriteOnly a limit or a sound file is a warning:
/// the files can be written all the same.
bool CheckPlan(const Project& project, Prompter& prompter, PlanUse use);

}  // namespace torvane
