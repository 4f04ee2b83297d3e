#pragma once

#include <QByteArray>
#include <QString>

#include "core/project.h"
#include "core/prompter.h"
#include "platform/result.h"

namespace torvane {

/// The project as the text of a ".tvn" file: XML without declaration, CR LF between elements, two blanks of indent a
/// level, UTF-8. Fails with the node's key when a text holds a character that no XML file can carry.
Result<QByteArray> ProjectFileText(const Project& project);

/// Writes the project to its `ProjectFile`. On failure it shows message 157, the file stands as it was before and the
/// project stays unsaved.
bool SaveProject(Project& project, Prompter& prompter);

/// Writes the project to another file, which then is its `ProjectFile`. Where a file stands there already, unless the
/// project was loaded from it, the user is asked first. When nothing is written the project keeps the file it had.
bool SaveProjectAs(Project& project, const QString& path, Prompter& prompter);

/// Replaces the project by that of a file, with the checks of version and form, and the search for files that moved.
/// What fails is shown; the project is then left as it was. Files that are missing are listed in one box (message
/// 154), and the project opens all the same.
bool LoadProject(Project& project, const QString& path, Prompter& prompter);

/// Appends ".tvn" unless the name ends in it, in any case.
QString WithProjectExtension(const QString& path);

}  // namespace torvane
