#pragma once

#include <QString>
#include <QStringView>

namespace torvane {

/// True for a full DOS path of a file or directory that may stand in quotes in a generated file: it begins with a drive
/// and a backslash, holds no quote, no control character and no slash, and ends in neither a backslash, which would
/// take the closing quote away, nor in "|", which the authoring tools take for the mark of a command to run.
bool IsDosPath(QStringView path);

/// The DOS path that a text of a project file means. A host path begins at drive Z, a path without drive at that of
/// `baseDir`, a relative one in `baseDir`, which is a full DOS path without a closing backslash; "." and ".." are taken
/// out. A text that is a DOS path already, and one that can be none (a share of another computer, a text with a quote
/// or a line break), comes back as it is.
QString DosPathOf(const QString& text, const QString& baseDir);

}  // namespace torvane
