#pragma once

#include <QList>
#include <QString>

#include "core/finding.h"
#include "core/menu_view.h"
#include "core/project.h"

namespace torvane {

/// A button as the user is told of it: its name in the explorer, its text, its key.
QString ButtonName(const ButtonView& button);

/// Message 155 with the menu's name, and behind it each button that leaves the frame or comes too near to another, with
/// its area and what to do. Nothing for a menu that keeps the rules.
QList<Finding> ButtonRuleFindings(const MenuView& menu, const Settings& settings);

/// The same as one text, a line each.
QString ButtonRulesText(const MenuView& menu, const Settings& settings);

/// What is to be said of the buttons of all menus that the disc gets: the rules of their areas (errors), buttons that
/// do nothing and more buttons than the menu's form allows (warnings).
QList<Finding> ButtonFindings(const Project& project);

}  // namespace torvane
