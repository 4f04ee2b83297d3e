#include "compilers/project_findings.h"

#include "compilers/button_check.h"
#include "compilers/command_check.h"
#include "compilers/disc_checks.h"
#include "compilers/film_check.h"
#include "compilers/source_check.h"
#include "compilers/temporary_names.h"
#include "compilers/written_values.h"
#include "core/engine.h"
#include "core/menu_view.h"
#include "core/resource_paths.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// What this version makes no disc of.
QList<Finding> UnsupportedFindings(const Project& project) {
  const Settings& settings = project.Settings;
  QList<Finding> findings;
  if (settings.Engine != kEngineDvdauthor) {
    findings << Finding{Severity::Error,
                        {},
                        u"Projects for MuxMan cannot be authored yet. Please choose dvdauthor as authoring engine."_s};
  }
  if (settings.NeroBurn) {
    findings << Finding{
        Severity::Error, {}, u"Discs cannot be burnt yet. Please switch burning off and create an ISO image."_s};
  }
  for (const QString& key : DiscMenuKeys(project)) {
    const MenuView menu(project.Tree, key);
    if (!menu.IsAnimated(settings)) continue;
    findings << Finding{Severity::Error, key,
                        u"Menu %1 (%2) is animated; such menus cannot be authored yet. Please take its animations or "
                        u"transition away."_s.arg(menu.Name(), key)};
  }
  return findings;
}

/// Files that the project names and no run needs.
QList<Finding> IdleFileFindings(const Project& project) {
  QSet<QString> needed;
  for (const ProjectSource& source : DiscSources(project)) needed.insert(source.path);
  QList<Finding> findings;
  for (const QString& path : ResourcePaths(project)) {
    if (needed.contains(path) || HostFiles::FileExists(path)) continue;
    findings << Finding{
        Severity::Warning,
        {},
        u"The file %1, which the project names but the disc does not need, is missing."_s.arg(HostFiles::ToHost(path))};
  }
  return findings;
}

QList<Finding> AsWarnings(QList<Finding> findings) {
  for (Finding& finding : findings) finding.severity = Severity::Warning;
  return findings;
}

}  // namespace

QList<Finding> ProjectFindings(const Project& project, PlanUse use) {
  const QList<Finding> necessary = UnsupportedFindings(project) + StructureFindings(project);
  const QList<Finding> refused = TryWriters(project).Refused;
  QList<Finding> commands = refused.isEmpty() && necessary.isEmpty() ? CommandFindings(project) : QList<Finding>();
  QList<Finding> forTools = LimitFindings(project, use);
  if (use == PlanUse::SyntaxCheck) return necessary + forTools + refused + AsWarnings(commands);

  forTools += SourceFindings(project) + FilmFindings(project) + TemporaryNameFindings(project);
  if (use == PlanUse::WriteOnly) {
    forTools = AsWarnings(forTools);
    commands = AsWarnings(commands);
  } else {
    forTools += SourceSafetyFindings(project);  // batches that are only written delete nothing
  }
  return necessary + forTools + IdleFileFindings(project) + refused + ButtonFindings(project) + commands;
}

bool TellFindings(const QList<Finding>& findings, Prompter& prompter) {
  QStringList errors;
  QStringList warnings;
  for (const Finding& finding : findings) (finding.severity == Severity::Error ? errors : warnings) << finding.text;
  if (!errors.isEmpty()) {
    prompter.Fail(errors.join(u"\r\n"));
  } else if (!warnings.isEmpty()) {
    prompter.Warn(warnings.join(u"\r\n"));
  }
  return errors.isEmpty();
}

}  // namespace torvane
