#pragma once

#include <QList>

#include "compilers/plan_check.h"
#include "core/finding.h"
#include "core/project.h"
#include "core/prompter.h"

namespace torvane {

/// Everything that can be known of a project before a disc is made of it, in the order in which the user should look at
/// it: what cannot be authored at all, menus that are not there, limits, sources, films, names and texts, buttons,
/// commands.
///
/// With PlanUse::Run an error refuses. With PlanUse::WriteOnly files that the machine lacks and limits of the tools are
/// warnings, as the batches may run elsewhere. PlanUse::SyntaxCheck looks at what the control file needs,
/// and leaves commands that cannot be parsed to the check itself: it only names their places.
QList<Finding> ProjectFindings(const Project& project, PlanUse use);

/// Tells the errors in one box and answers false; without an error the warnings in one box, and true.
bool TellFindings(const QList<Finding>& findings, Prompter& prompter);

}  // namespace torvane
