#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "core/project.h"

namespace torvane {

/// A file that a compiler makes.
struct GeneratedFile {
  QString path;  ///< full DOS path
  QByteArray content;
};

struct VideoBatch {
  QByteArray batch;                         ///< text of `batchrun0.bat`
  std::vector<GeneratedFile> controlFiles;  ///< subtitle control files and palettes that its lines name
};

/// The batch that brings every film into the state that the control file names: multiplexed, with its subtitle
/// streams. Audio titlesets add no lines.
VideoBatch WriteVideoBatch(const Project& project);

}  // namespace torvane
