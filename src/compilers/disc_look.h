#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace torvane {

// A look at what the authoring tools have made, whatever they said about it. Each answers with what is wrong, a whole
// sentence each, with the file's name.

/// The folder VIDEO_TS: the disc's own IFO and those of all titlesets with their backups, which are alike, and films
/// that fill the room that their IFO tells. `titlesets` is the number that the project makes; without it the disc's own
/// number counts.
QStringList DiscFaults(const QString& videoTsDir, std::optional<int> titlesets);

/// The image: a whole volume of 2048-byte sectors that has room for all files below `dvdDir`.
QStringList ImageFaults(const QString& image, const QString& dvdDir);

/// Size in bytes of all ordinary files below a directory; links are not followed.
qint64 TreeSize(const QString& dosDir);

}  // namespace torvane
