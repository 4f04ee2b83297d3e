#pragma once

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

}  // namespace torvane
