#include "compilers/temporary_names.h"

#include <QHash>
#include <QSet>

#include "compilers/disc_checks.h"
#include "compilers/video_batch.h"
#include "compilers/written_values.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The value of a film's name node.
QString NameIn(const Project& project, const QString& key) {
  const ProjectNode* node = project.Tree.Find(key);
  return node ? node->Value(film_node::Name.Label.size()) : QString();
}

/// Number of the film whose name a node holds.
QStringView FilmOf(QStringView key) {
  return key.sliced(film_node::Name.Suffix.size());
}

void FindClashes(const Project& project, const QList<TempFile>& files, QList<Finding>& findings) {
  QSet<QString> own{kIntroName.toString()};  // whether there is an intro today or not
  QHash<QString, QString> nodeOfFile;
  for (const TempFile& file : files) {
    if (file.key.isEmpty()) own.insert(file.name.toLower());
  }
  QSet<QString> told;
  const auto tell = [&](const QString& key, const QString& text) {
    if (!told.contains(key)) findings << Finding{.key = key, .text = text};
    told.insert(key);
  };
  for (const TempFile& file : files) {
    if (file.key.isEmpty()) continue;
    const QString name = NameIn(project, file.key);
    const QString other = nodeOfFile.value(file.name.toLower(), file.key);
    nodeOfFile.insert(file.name.toLower(), other);
    if (own.contains(file.name.toLower())) {
      tell(file.key,
           u"Film %1 is named \"%2\", and its temporary file %3 would be one that the program makes for itself. "
           u"Please give it another name with edit-title --name."_s.arg(FilmOf(file.key), name, file.name));
    } else if (other != file.key && name.compare(NameIn(project, other), Qt::CaseInsensitive) == 0) {
      tell(file.key,
           u"Films %1 and %2 have the same name, \"%3\": the one would overwrite the other. Please rename one."_s.arg(
               FilmOf(other), FilmOf(file.key), name));
    } else if (other != file.key) {
      tell(file.key, u"Films %1 and %2 would both have the temporary file %3. Please rename one."_s.arg(
                         FilmOf(other), FilmOf(file.key), file.name));
    }
  }
}

void FindOverwrittenSources(const Project& project, const QList<TempFile>& files, QList<Finding>& findings) {
  const SourceGuard sources(ProjectFiles(project));
  QSet<QString> told;
  for (const TempFile& file : files) {
    const QString path = project.Settings.TempDir + u'\\' + file.name;
    if (told.contains(path.toLower()) || !sources.Protects(path)) continue;
    told.insert(path.toLower());
    findings << Finding{.key = file.key,
                        .text =
                            u"The file %1 is a source of the project and would be overwritten by a temporary file of "
                            u"that name. Please move it out of the temporary directory."_s.arg(path)};
  }
}

/// The video batch empties two folders, whether the rest is cleaned up or not.
void FindEmptiedSources(const Project& project, QList<Finding>& findings) {
  for (const QString& folder : {u"\\TempAudioMpg"_s, u"\\TempSub.d"_s}) {
    for (const QString& file : CheckSourcesOutsideTemp(ProjectFiles(project), project.Settings.TempDir + folder)) {
      findings << Finding{.text =
                              u"The file %1 is a source of the project and lies in a folder that is emptied when "
                              u"films are prepared. Please move it elsewhere."_s.arg(file)};
    }
  }
}

}  // namespace

QList<Finding> TemporaryNameFindings(const Project& project) {
  const QList<TempFile> files = TryWriters(project).TempFiles;
  QList<Finding> findings;
  FindClashes(project, files, findings);
  FindOverwrittenSources(project, files, findings);
  FindEmptiedSources(project, findings);
  return findings;
}

}  // namespace torvane
