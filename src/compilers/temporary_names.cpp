#include "compilers/temporary_names.h"

#include <QHash>
#include <QSet>

#include "compilers/audio_titleset.h"
#include "compilers/disc_checks.h"
#include "core/film_view.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

void FindSameNames(const Project& project, QStringList& findings) {
  QHash<QString, int> filmOfName;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView film(project.Tree, i);
    if (film.IsAudioTitleSet()) continue;
    const QString name = film.Name().toLower();
    if (const int other = filmOfName.value(name)) {
      findings << u"Films %1 and %2 have the same name, \"%3\": the one would overwrite the other. Please rename one."_s
                      .arg(other)
                      .arg(i)
                      .arg(film.Name());
    }
    filmOfName.insert(name, i);
  }
}

/// Files that the compilers and the video batch write for a film.
QStringList TemporaryFiles(const Project& project, int number) {
  const Settings& settings = project.Settings;
  const FilmView film(project.Tree, number);
  QStringList files;
  if (film.IsAudioTitleSet()) {
    const int tracks = AudioTrackCount(project.Tree, number);
    for (int track = 1; track <= tracks; ++track) files << AudioSlideFile(settings, number, track);
    return files;
  }
  for (const QString& ending : {u".mpg"_s, u"_SUB1.mpg"_s, u"_SUB2.mpg"_s, u"_SUB3.mpg"_s, u"_req.mpv"_s}) {
    files << settings.TempDir + u'\\' + film.Name() + ending;
  }
  return files;
}

void FindOverwrittenSources(const Project& project, QStringList& findings) {
  QSet<QString> sources;
  for (const QString& path : ProjectFiles(project)) sources.insert(path.toLower());
  for (int i = 1; i <= project.FilmCount; ++i) {
    for (const QString& file : TemporaryFiles(project, i)) {
      if (!sources.contains(file.toLower())) continue;
      findings << u"The file %1 is a source of the project and would be overwritten when film %2 is prepared. Please move "
                  u"it out of the temporary directory."_s.arg(file)
                      .arg(i);
    }
  }
}

/// The video batch empties two folders, whether the rest is cleaned up or not.
void FindEmptiedSources(const Project& project, QStringList& findings) {
  for (const QString& folder : {u"\\TempAudioMpg"_s, u"\\TempSub.d"_s}) {
    for (const QString& file : CheckSourcesOutsideTemp(ProjectFiles(project), project.Settings.TempDir + folder)) {
      findings << u"The file %1 is a source of the project and lies in a folder that is emptied when films are prepared. "
                  u"Please move it elsewhere."_s.arg(file);
    }
  }
}

}  // namespace

QStringList TemporaryNameFindings(const Project& project) {
  QStringList findings;
  FindSameNames(project, findings);
  FindOverwrittenSources(project, findings);
  FindEmptiedSources(project, findings);
  return findings;
}

bool CheckTemporaryNames(const Project& project, Prompter& prompter) {
  return RefusesNothing(TemporaryNameFindings(project), prompter);
}

}  // namespace torvane
