#include "core/resource_paths.h"

#include <array>
#include <optional>
#include <vector>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// What one rule found out about a node: where its file may lie now and how it is written back.
struct Search {
  QStringList candidates;
  QString label;            ///< in front of the path in the caption
  bool writesTag = false;   ///< the path goes into the tag, bare
};

QStringList InDirectories(const QStringList& directories, const QString& name) {
  QStringList candidates;
  for (const QString& directory : directories) {
    if (!directory.isEmpty()) candidates << directory + name;
  }
  return candidates;
}

/// The first rule that fits the node decides. `name` is the file's name with its leading backslash.
std::optional<Search> FindRule(const ProjectNode& node, const Settings& settings, const QString& projectDir,
                               const QString& name) {
  const QString& key = node.Key();
  const QString& caption = node.Caption();
  if (key.endsWith(u"Gif")) {
    const QString file = u'\\' + caption.mid(caption.indexOf(u'=') + 1);
    return Search{InDirectories({settings.AppPath + u"\\GifMask", settings.OwnGifMaskDir}, file) +
                      InDirectories({projectDir}, name),
                  {}, true};
  }
  if (key.endsWith(u"BGPath")) {
    if (caption.endsWith(u"default.jpg", Qt::CaseInsensitive)) {
      return Search{{settings.AppPath + u"\\default.jpg"}, u"Image="_s};
    }
    return Search{InDirectories({settings.OutDir, settings.OwnDir, projectDir}, name), u"Image="_s};
  }
  if (caption.startsWith(u"Image=")) {
    if (key.endsWith(u"Image") && caption.endsWith(u"avisynthpic.gif", Qt::CaseInsensitive)) {
      return Search{{settings.AppPath + u"\\avisynthpic.gif"}, u"Image="_s};
    }
    return Search{InDirectories({settings.OutDir, settings.OwnDir, projectDir}, name), u"Image="_s};
  }
  struct LabelRule {
    QStringView label;
    QStringList directories;
  };
  const std::array<LabelRule, 9> rules{{
      {u"Ani=", {settings.OutDir, settings.InDir, settings.OwnDir, projectDir}},
      {u"Video=", {settings.InDir, projectDir}},
      {u"Audio=", {settings.InDir, settings.OwnAudioDir, projectDir}},
      {u"Audio1=", {settings.InDir, settings.OwnAudioDir, projectDir}},
      {u"Audio2=", {settings.InDir, settings.OwnAudioDir, projectDir}},
      {u"Audio3=", {settings.InDir, settings.OwnAudioDir, projectDir}},
      {u"SubTitel1=", {settings.InDir, projectDir}},
      {u"SubTitel2=", {settings.InDir, projectDir}},
      {u"SubTitel3=", {settings.InDir, projectDir}},
  }};
  for (const LabelRule& rule : rules) {
    if (caption.startsWith(rule.label)) return Search{InDirectories(rule.directories, name), rule.label.toString()};
  }
  return std::nullopt;
}

/// The path in a tag or caption: from the drive letter on; "" when there is none.
QString PathIn(const QString& text) {
  const qsizetype drive = text.indexOf(u":\\");
  return drive < 0 ? QString() : text.mid(std::max<qsizetype>(drive - 1, 0));
}

class Fixer {
 public:
  Fixer(Project& project, QString projectDir) : project_(project), projectDir_(std::move(projectDir)) {}

  /// `text` is the node's tag or caption.
  void Fix(const QString& key, const QString& text) {
    const QString path = PathIn(text);
    if (path.isEmpty() || HostFiles::FileExists(path)) return;

    const ProjectNode& node = *project_.Tree.Find(key);
    const QString name = path.mid(path.lastIndexOf(u'\\'));
    const std::optional<Search> search = FindRule(node, project_.Settings, projectDir_, name);
    for (const QString& candidate : search ? search->candidates : QStringList()) {
      if (!HostFiles::FileExists(candidate)) continue;
      if (search->writesTag) {
        project_.Tree.SetTag(key, candidate);
      } else {
        project_.Tree.SetCaption(key, search->label + candidate);
      }
      return;
    }
    if (!missing_.contains(path)) missing_ << path;
  }

  const QStringList& Missing() const { return missing_; }

 private:
  Project& project_;
  QString projectDir_;
  QStringList missing_;
};

}  // namespace

QStringList FixResourcePaths(Project& project, const QString& projectDir) {
  Fixer fixer(project, projectDir);
  for (const ProjectNode* node = project.Tree.NextInOrder(nullptr); node; node = project.Tree.NextInOrder(node)) {
    fixer.Fix(node->Key(), node->Tag());
    fixer.Fix(node->Key(), node->Caption());
  }
  return fixer.Missing();
}

QStringList ResourcePaths(const Project& project) {
  QStringList paths;
  for (const ProjectNode* node = project.Tree.NextInOrder(nullptr); node; node = project.Tree.NextInOrder(node)) {
    paths << PathIn(node->Tag()) << PathIn(node->Caption());
  }
  paths.removeAll(QString());
  paths.removeDuplicates();
  return paths;
}

}  // namespace torvane
