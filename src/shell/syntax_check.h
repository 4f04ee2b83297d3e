#pragma once

#include <QMap>
#include <QString>

#include "platform/result.h"
#include "shell/control_file.h"

namespace torvane {

/// Makes a control file fit for a check of its commands alone: every film, there or not, becomes a stand-in of a few
/// frames that is made in `folder`, with as many chapters as the film has; the disc goes to `folder` as well; a palette
/// that does not exist is left out. The check so takes no longer for long films, needs none of them, and touches no
/// disc that lies in the output directory.
///
/// `videoFormat` is "PAL" or "NTSC". Fails when the stand-ins cannot be made, with the reason.
Status UseStandIns(ControlFile& author, const QString& videoFormat, const QString& folder);

/// A control file that holds nothing but the commands of another, each in a menu of its own. dvdauthor reads it to the
/// end, or to the first command that it cannot parse, before it judges any jump: what one titleset jumps to keeps no
/// fault of a later one from being found.
ControlFile CommandsAlone(const ControlFile& author, const QString& folder);

/// True when dvdauthor cannot parse a command of this file. `environment` is what its run will have.
bool HasParseError(const ControlFile& commands, const QString& dvdauthor, const QMap<QString, QString>& environment,
                   const QString& folder);

}  // namespace torvane
