#pragma once

#include <QByteArray>

#include "compilers/author_pieces.h"
#include "core/project.h"

namespace torvane {

/// Text of `Author.xml`, the control file of dvdauthor, with all films in one titleset. UTF-8, lines end in CR LF;
/// text from the project stands in it as it is, without XML escaping.
QByteArray WriteAuthorXmlSingle(const Project& project, AuthorMode mode, LineValues& values);

/// The same with a titleset for each film and audio titleset, each with a root menu of its own. Titles start each other
/// through general registers and PGCs of the VMGM domain, since one titleset cannot jump into another.
QByteArray WriteAuthorXmlTitlesets(const Project& project, AuthorMode mode, LineValues& values);

/// What the writing of the control file adds to the run's log with `KeepLogFile`: project, output and films.
QString AuthorLogText(const Project& project);

}  // namespace torvane
