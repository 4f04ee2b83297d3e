#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "core/finding.h"
#include "core/project.h"
#include "media/media_advice.h"

namespace torvane {

/// A file that the disc is made of.
struct ProjectSource {
  std::optional<MediaUse> use = {};  ///< nothing for the videos of animated menus, which may be of many kinds
  QString key;                       ///< of the node that names it; "" for the intro, which the settings name
  QString place;                     ///< where it belongs, for the user: "Film 1 (Holiday), sound 2"
  QString path;                      ///< DOS path, never empty
  bool operator==(const ProjectSource&) const = default;
};

/// All files that a run reads, in the order of the tree: those of films, of audio titlesets, of the menus that the disc
/// gets, of the intro. What the project names without need (the menus of a disc without menus, sound beside a film that
/// is multiplexed already) is not among them.
QList<ProjectSource> DiscSources(const Project& project);

/// What stands against them: missing, no file, not to be read, empty, or not of the kind that is needed there. Every
/// picture is read whole, each once. What no right disc can come of is an error.
QList<Finding> SourceFindings(const Project& project);

}  // namespace torvane
