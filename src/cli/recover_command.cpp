#include "cli/recover_command.h"

#include <QFileInfo>
#include <algorithm>

#include "cli/cli_prompter.h"
#include "cli/commands.h"
#include "compilers/disc_checks.h"
#include "compilers/former_disc.h"
#include "compilers/run_place.h"
#include "core/journal_place.h"
#include "core/left_journal.h"
#include "core/project_file.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// A former disc that a killed run left aside; none as long as a run has the directory, since it is at work with it.
bool HasFormerDisc(const Settings& settings) {
  return HostFiles::DirExists(settings.OutDir) && FormerDisc(settings.OutDir).IsLeft() &&
         FolderLock::Take({settings.OutDir});
}

int PutBackFormerDisc(const Settings& settings, Prompter& prompter) {
  if (!FormerDisc(settings.OutDir).IsLeft()) {
    prompter.Inform(
        u"There is no former disc of a run that was killed in %1."_s.arg(HostFiles::ToHost(settings.OutDir)));
    return kExitDone;
  }
  const Result<FolderLock> lock = FolderLock::Take({settings.OutDir});
  if (!lock) prompter.Fail(lock.Error());
  return lock && RecoverFormerDisc(settings, prompter) ? kExitDone : kExitFailed;
}

void List(const std::vector<LeftJournal>& journals, const Settings& settings, Prompter& prompter) {
  if (HasFormerDisc(settings)) {
    const QString folder = HostFiles::ToHost(FormerDisc(settings.OutDir).Folder());
    PrintOut(u"disc\t%1\t%2\n"_s.arg(QFileInfo(folder).lastModified().toString(Qt::ISODate),
                                     HostFiles::ToHost(VideoTsDir(settings))));
  } else if (journals.empty()) {
    prompter.Inform(u"There is no unsaved work of a program that was killed."_s);
  }
  for (const LeftJournal& journal : journals) {
    if (journal.Head()) {
      PrintOut(u"%1\t%2\t%3\n"_s.arg(journal.Name(), journal.Changed().toString(Qt::ISODate),
                                     HostFiles::ToHost(journal.Head()->ProjectFile)));
    } else {
      prompter.Warn(journal.Name() + u": "_s + journal.Head().Error());
    }
  }
}

bool Save(LeftJournal& journal, const QString& name, const Settings& settings, Prompter& prompter) {
  Project project(settings);
  const Result<JournalReplay> replay = journal.Recover(project);
  if (!replay) {
    prompter.Fail(replay.Error());
    return false;
  }
  project.ProjectNamed = false;  // whatever file there is, it is not the recovered work
  if (!SaveProjectAs(project, WithProjectExtension(HostFiles::FromUser(name)), prompter)) return false;
  if (replay->lostBytes > 0) prompter.Warn(u"The end of the journal is damaged; what was changed last may be missing."_s);
  return true;
}

}  // namespace

Status CheckRecoverArguments(const QStringList& arguments) {
  const QString& action = arguments.front();
  const qsizetype count = arguments.size();
  if (((action == u"list" || action == u"disc") && count == 1) || (action == u"save" && count == 3) ||
      (action == u"discard" && count == 2)) {
    return {};
  }
  return Failure{
      u"The command is: recover list, recover disc, recover save JOURNAL OUT.tvn, or recover discard "
      u"JOURNAL"_s};
}

int RunRecoverCommand(const CommandLine& line, const Settings& settings, Prompter& prompter) {
  std::vector<LeftJournal> journals = TakeLeftJournals(JournalDir(line.profileDir));
  if (line.arguments.front() == u"disc") return PutBackFormerDisc(settings, prompter);
  if (line.arguments.front() == u"list") {
    List(journals, settings, prompter);
    return kExitDone;
  }
  const auto journal = std::ranges::find(journals, line.arguments[1], &LeftJournal::Name);
  if (journal == journals.end()) {
    prompter.Fail(u"There is no journal \"%1\", or the program that writes it still runs."_s.arg(line.arguments[1]));
    return kExitFailed;
  }
  if (line.arguments.front() == u"save" && !Save(*journal, line.arguments[2], settings, prompter)) return kExitFailed;
  if (journal->Discard()) return kExitDone;
  prompter.Fail(u"The journal cannot be deleted: "_s + HostFiles::ToHost(journal->Path()));
  return kExitFailed;
}

}  // namespace torvane
