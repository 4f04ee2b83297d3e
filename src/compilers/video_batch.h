#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "core/line_values.h"
#include "core/project.h"

namespace torvane {

/// A file that a compiler makes.
struct GeneratedFile {
  QString path;  ///< full DOS path
  QByteArray content;
};

inline constexpr QStringView kIntroName = u"intro.mpg";  ///< in `TempDir`: the intro once multiplexed

struct VideoBatch {
  QByteArray batch;                         ///< text of `batchrun0.bat`
  std::vector<GeneratedFile> palettes;      ///< of the films' subtitles
  std::vector<GeneratedFile> controlFiles;  ///< subtitle control files that its lines name
};

/// The batch that brings every film into the state that the control file names: multiplexed, with its subtitle
/// streams. A track of an audio titleset becomes a film of its picture.
VideoBatch WriteVideoBatch(const Project& project, LineValues& values);

}  // namespace torvane
