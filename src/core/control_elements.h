#pragma once

#include <QString>
#include <QStringView>

namespace torvane {

/// True for the name, in small letters, of an element of the control files of dvdauthor and spumux.
bool IsControlElement(const QString& name);

/// Where a command of the player's language would begin a tag or a comment if it stood unescaped in a control file; -1
/// for one that stays within its element. A "<" that compares is followed by none of the element names.
qsizetype TagInCommand(QStringView command);

}  // namespace torvane
