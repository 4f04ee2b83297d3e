#include "core/resource_paths.h"

#include "core/dos_path.h"
#include "core/path_nodes.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QStringList InDirectories(const QStringList& directories, const QString& name) {
  QStringList candidates;
  for (const QString& directory : directories) {
    if (!directory.isEmpty()) candidates << directory + name;
  }
  return candidates;
}

/// Where a file that is gone may lie now. `name` is its name with a leading backslash.
QStringList Candidates(const ProjectNode& node, PathKind kind, const Settings& settings, const QString& projectDir,
                       const QString& name) {
  switch (kind) {
    case PathKind::Mask: {
      const QString file = u'\\' + node.Caption().mid(node.Caption().indexOf(u'=') + 1);
      return InDirectories({settings.AppPath + u"\\GifMask", settings.OwnGifMaskDir}, file) +
             InDirectories({projectDir}, name);
    }
    case PathKind::Background:
      if (name.endsWith(u"default.jpg", Qt::CaseInsensitive)) return {settings.AppPath + u"\\default.jpg"};
      return InDirectories({settings.OutDir, settings.OwnDir, projectDir}, name);
    case PathKind::Picture:
      if (name.endsWith(u"avisynthpic.gif", Qt::CaseInsensitive)) return {settings.AppPath + u"\\avisynthpic.gif"};
      return InDirectories({settings.OutDir, settings.OwnDir, projectDir}, name);
    case PathKind::Animation:
      return InDirectories({settings.OutDir, settings.InDir, settings.OwnDir, projectDir}, name);
    case PathKind::Video:
    case PathKind::Subtitle:
      return InDirectories({settings.InDir, projectDir}, name);
    case PathKind::Sound:
      return InDirectories({settings.InDir, settings.OwnAudioDir, projectDir}, name);
    case PathKind::Other:
      break;
  }
  return {};
}

void SetPath(ProjectTree& tree, const QString& key, const PathPlace& place, const QString& path) {
  if (place.inTag) {
    tree.SetTag(key, path);
  } else {
    tree.SetCaption(key, place.label + path);
  }
}

/// Calls `use` with each node that holds a path, the place and the path.
template <class Use>
void ForEachPath(const ProjectTree& tree, Use use) {
  for (const ProjectNode* node = tree.FirstRoot(); node; node = tree.NextInOrder(node)) {
    const PathPlace* place = PathPlaceOf(*node);
    if (!place) continue;
    if (const QString path = PathIn(*node, *place); !path.isEmpty()) use(*node, *place, path);
  }
}

}  // namespace

void NormalizeResourcePaths(ProjectTree& tree, const QString& projectDir) {
  ForEachPath(tree, [&](const ProjectNode& node, const PathPlace& place, const QString& path) {
    const QString dosPath = DosPathOf(path, projectDir);
    if (dosPath != path) SetPath(tree, node.Key(), place, dosPath);
  });
}

QStringList FixResourcePaths(Project& project, const QString& projectDir) {
  QStringList missing;
  ForEachPath(project.Tree, [&](const ProjectNode& node, const PathPlace& place, const QString& path) {
    if (HostFiles::FileExists(path)) return;
    const QString name = path.mid(std::max<qsizetype>(path.lastIndexOf(u'\\'), 0));
    for (const QString& candidate : Candidates(node, place.kind, project.Settings, projectDir, name)) {
      if (!HostFiles::FileExists(candidate)) continue;
      SetPath(project.Tree, node.Key(), place, candidate);
      return;
    }
    if (!missing.contains(path)) missing << path;
  });
  return missing;
}

QStringList ResourcePaths(const Project& project) {
  QStringList paths;
  ForEachPath(project.Tree, [&paths](const ProjectNode&, const PathPlace&, const QString& path) { paths << path; });
  paths.removeDuplicates();
  return paths;
}

}  // namespace torvane
