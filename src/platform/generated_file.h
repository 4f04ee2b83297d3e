#pragma once

#include <QByteArray>
#include <QString>

#include "platform/result.h"

namespace torvane {

/// Behind the name of a file that is not whole yet.
inline constexpr QStringView kUnfinishedEnding = u".part";

/// Writes a file that a run can make again: to "NAME.part" beside it, then renamed over it, so that it is there whole
/// or as it was. Links in the place of either are replaced, never written through. Unlike HostFiles::WriteAtomically it
/// does not wait for the disk, which for the few dozen files of a run takes longer than drawing them; what the power
/// cut takes, the next run writes. On failure nothing else is left and errno holds the system's reason.
Status WriteGeneratedFile(const QString& dosPath, const QByteArray& content);

/// Writes all bytes to an open file; false with errno when not.
bool WriteAllTo(int file, const QByteArray& content);

}  // namespace torvane
