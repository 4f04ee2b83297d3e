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

/// Whether sound files count: a syntax check needs none.
enum class SoundFiles { Read, Ignored };

/// What keeps a project from becoming a disc although each part of it is sound: limits of the authoring tools, menus
/// that are not there, sound files that cannot be read. Whole sentences that name the place and what to do.
QStringList PlanFindings(const Project& project, SoundFiles sound = SoundFiles::Read);

/// Tells all of them in one box; true when there are none.
bool CheckPlan(const Project& project, Prompter& prompter, SoundFiles sound = SoundFiles::Read);

}  // namespace torvane
