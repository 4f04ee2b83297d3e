#include "cli/commands.h"

#include <algorithm>
#include <optional>

#include "cli/cli_prompter.h"
#include "cli/console_view.h"
#include "cli/edit_commands.h"
#include "cli/media_commands.h"
#include "cli/project_info.h"
#include "cli/recover_command.h"
#include "cli/settings_commands.h"
#include "cli/tree_text.h"
#include "compilers/button_check.h"
#include "compilers/disc_checks.h"
#include "compilers/disc_keeper.h"
#include "compilers/menu_files.h"
#include "compilers/pipeline.h"
#include "compilers/run_place.h"
#include "core/default_project.h"
#include "core/program.h"
#include "core/project_file.h"
#include "core/project_settings.h"
#include "core/settings_defaults.h"
#include "core/settings_project.h"
#include "platform/host_files.h"
#include "run/batch_run.h"
#include "run/console_capture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// One command at work: the settings in force and how the user is told.
class Session {
 public:
  Session(const CommandLine& line, const Settings& settings, GivenSettings given, Prompter& prompter)
      : line_(line), prompter_(prompter), project_(settings, std::move(given)) {}

  int Run() {
    if (line_.command == u"new") return New();
    if (line_.command == u"run") return RunGiven();
    const bool ofSettings = line_.command == u"settings";
    const QString& file = line_.arguments[ofSettings ? 1 : 0];
    if (!LoadProject(project_, HostFiles::FromUser(file), prompter_)) return kExitFailed;
    if (ofSettings) return RunProjectSettingsCommand(line_, project_, prompter_);
    if (IsEditCommand()) return EditProject();
    if (line_.command == u"tree") return Tree();
    if (line_.command == u"info") return Info();
    if (line_.command == u"save") return Save(line_.arguments.back());
    if (line_.command == u"compile") return Compile();
    if (line_.command == u"build") return Build();
    if (line_.command == u"check") return Check();
    return Compose();
  }

 private:
  int New() {
    AddDefaultProject(project_);
    return Save(line_.arguments.front());
  }

  int Save(const QString& name) {
    const QString path = WithProjectExtension(HostFiles::FromUser(name));
    return SaveProjectAs(project_, path, prompter_) ? kExitDone : kExitFailed;
  }

  int Tree() {
    PrintOut(TreeText(project_.Tree));
    return kExitDone;
  }

  int Info() {
    PrintOut(ProjectInfo(project_));
    return kExitDone;
  }

  bool IsEditCommand() const {
    const auto commands = EditCommands();
    return std::any_of(commands.begin(), commands.end(),
                       [this](const CommandHelp& command) { return command.name == line_.command; });
  }

  int EditProject() {
    if (!RunEditCommand(line_, project_, prompter_)) return kExitFailed;
    return Save(line_.output.isEmpty() ? line_.arguments.front() : line_.output);
  }

  int Compile() {
    const std::optional<FolderLock> place = TakeRunPlace(project_.Settings, prompter_);
    CreateDvdPipeline pipeline(project_, prompter_);
    if (!place || !IsReady(pipeline.PrepareCreateBatch())) return kExitFailed;
    const std::optional<RunPlan> plan = pipeline.BuildProject(BatchUse::WriteOnly);
    if (!plan) return kExitFailed;
    PrintOut(plan->BatchList.join(u'\n') + u'\n');
    return kExitDone;
  }

  int Build() {
    const std::optional<FolderLock> place = TakeRunPlace(project_.Settings, prompter_);
    CreateDvdPipeline pipeline(project_, prompter_);
    if (!place || !IsReady(pipeline.PrepareCreateDvd())) return kExitFailed;
    const std::optional<RunPlan> plan = pipeline.BuildProject(BatchUse::Run);
    if (!plan) return kExitFailed;
    DiscKeeper keeper(project_.Settings, plan->Titlesets);
    if (const Status begun = keeper.Begin(plan->Former); !begun) {
      prompter_.Fail(u"The former disc cannot be set aside: %1"_s.arg(begun.Error()));
      return kExitFailed;
    }
    return RunBatches(*plan, &keeper);
  }

  int Check() {
    const std::optional<FolderLock> place = TakeRunPlace(project_.Settings, prompter_);
    if (!place) return kExitFailed;
    const std::optional<RunPlan> plan = CreateDvdPipeline(project_, prompter_).BuildSyntaxCheck();
    return plan ? RunBatches(*plan, nullptr) : kExitFailed;
  }

  int RunGiven() {
    const std::optional<FolderLock> place = TakeRunPlace(project_.Settings, prompter_);
    const std::optional<RunPlan> plan =
        place ? PlanGivenBatches(line_.arguments, project_.Settings, prompter_) : std::nullopt;
    if (!plan) return kExitFailed;
    DiscKeeper keeper(project_.Settings, std::nullopt);
    return RunBatches(*plan, &keeper);
  }

  int Compose();

  bool IsReady(Readiness readiness) {
    if (readiness == Readiness::NothingToDo) {
      PrintError(u"torvane-cli: the main menu has no button, so there is nothing to make\n"_s);
    }
    return readiness == Readiness::Ready;
  }

  int RunBatches(const RunPlan& plan, DiscKeeper* keeper) {
    const Settings& settings = project_.Settings;
    RunRequest request{.BatchList = plan.BatchList,
                       .RunMode = plan.RunMode,
                       .Engine = settings.Engine,
                       .TempDir = settings.TempDir,
                       .OutDir = settings.OutDir,
                       .AutoDelete = plan.AutoDelete,
                       .KeepLogFile = settings.KeepLogFile,
                       .TVNLogFile = settings.TVNLogFile,
                       .LogText = plan.LogText,
                       .UseImgBurn = settings.UseImgBurn,
                       .keeper = keeper,
                       .protectedFiles = ProjectFiles(project_) << IsoFile(settings)};
    ConsoleCapture console(ConsoleCapture::DefaultConsoleProgram(), settings.ToolPatience);
    ConsoleView view;
    BatchRun run(std::move(request), console, view);
    view.Follow(run);
    const bool finished = run.RunToEnd() == RunOutcome::Finished;
    for (const QString& sentence : keeper && !finished ? keeper->Summary() : QStringList()) prompter_.Inform(sentence);
    return finished ? kExitDone : kExitFailed;
  }

  const CommandLine& line_;
  Prompter& prompter_;
  Project project_;
};

int Session::Compose() {
  const QString& key = line_.arguments.back();
  const QString dir = HostFiles::FromUser(line_.output);
  project_.Settings.TempDir = dir;  // the control file names its pictures where they are written
  const MenuView menu(project_.Tree, key);
  const auto mode = static_cast<ComposeMode>(line_.mode);
  const Result<ComposedMenu> composed = ComposeMenu(menu, project_.Settings, mode);
  if (!composed) {
    prompter_.Fail(composed.Error());
    return kExitFailed;
  }
  for (const QString& error : composed->Errors) prompter_.Warn(error);
  if (!HostFiles::MakeDir(dir)) {
    prompter_.Fail(u"The directory cannot be made: "_s + dir);
    return kExitFailed;
  }
  LineValues values(project_.Settings);
  const HighlightFiles highlights =
      mode == ComposeMode::Compile ? WriteHighlightFiles(menu, *composed, values) : HighlightFiles{};
  if (!RefusesNothing(values.Refused(), prompter_)) return kExitFailed;
  const Status written = WriteMenuFiles(*composed, highlights, dir);
  if (!written) prompter_.Fail(written.Error());
  if (!composed->ButtonsValid) prompter_.Fail(ButtonRulesText(menu, project_.Settings));
  return written && composed->ButtonsValid ? kExitDone : kExitFailed;
}

/// The settings given for this run: those of the file, then those of the command line.
Result<QList<SettingOverride>> Overrides(const CommandLine& line) {
  QList<SettingOverride> overrides;
  if (!line.settingsFile.isEmpty()) {
    const Result<QByteArray> file = HostFiles::Read(HostFiles::FromUser(line.settingsFile));
    if (!file) return Failure{file.Error()};
    const Result<QList<SettingOverride>> settings = ParseSettingsFile(*file, line.settingsFile);
    if (!settings) return Failure{settings.Error()};
    overrides = *settings;
  }
  overrides += line.overrides;
  if (line.language != 0) overrides << SettingOverride{u"LangID"_s, QString::number(line.language)};
  return overrides;
}

/// Says nothing: for work that is done a second time.
class SilentPrompter : public Prompter {
 public:
  Answer Show(const Box& box) override { return box.preselected; }
};

/// The settings given for this run that projects carry, and what would be in force without them.
GivenSettings Given(const StartOptions& start) {
  GivenSettings given = GivenForProjects(start.overrides);
  if (given.texts.isEmpty()) return given;
  StartOptions without = start;
  without.overrides.removeIf([&given](const SettingOverride& each) { return given.texts.contains(each.key); });
  SilentPrompter silent;
  given.without = LoadSettings(without, silent);
  return given;
}

int FailUsage(const QString& reason) {
  PrintError(u"torvane-cli: "_s + reason + u"\nTry: torvane-cli --help\n"_s);
  return kExitUsage;
}

}  // namespace

int RunCommand(const CommandLine& line) {
  const Result<QList<SettingOverride>> overrides = Overrides(line);
  if (!overrides) return FailUsage(overrides.Error());
  CliPrompter prompter(line.answers);
  const bool ofProject = line.command == u"settings" && line.arguments.front() == u"project";
  if (line.command == u"settings" && !ofProject) return RunSettingsCommand(line, prompter);
  const StartOptions start{.profileDir = line.profileDir, .overrides = *overrides, .appPath = ProgramDir()};
  const Settings settings = LoadSettings(start, prompter);
  if (line.command == u"preset") return RunPresetCommand(line, settings, prompter);
  if (line.command == u"recover") return RunRecoverCommand(line, settings, prompter);
  if (IsMediaCommand(line.command)) return RunMediaCommand(line, prompter);
  return Session(line, settings, Given(start), prompter).Run();
}

int RunCli(const QStringList& arguments) {
  const Result<CommandLine> line = ParseCommandLine(arguments);
  if (!line) return FailUsage(line.Error());
  if (line->wantsHelp) {
    PrintOut(HelpText(line->command));
    return kExitDone;
  }
  if (line->wantsVersion) {
    PrintOut(u"torvane-cli "_s + ProgramVersion + u'\n');
    return kExitDone;
  }
  return RunCommand(*line);
}

}  // namespace torvane
