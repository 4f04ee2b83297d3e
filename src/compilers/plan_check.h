#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/finding.h"
#include "core/project.h"

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

/// What the project lists that is not there: without it not even files can be written. Whole sentences that name the
/// place and what to do; all are errors.
QList<Finding> StructureFindings(const Project& project);

/// The limits of the authoring tools, and what dvdauthor and players stumble over: too many titles, titlesets and
/// buttons, sound files of an audio titleset that do not go together, menus of a type that does not fit.
QList<Finding> LimitFindings(const Project& project, PlanUse use);

}  // namespace torvane
