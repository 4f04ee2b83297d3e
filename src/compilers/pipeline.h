#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "compilers/author_pieces.h"
#include "compilers/batch_plan.h"
#include "compilers/former_disc.h"
#include "compilers/plan_check.h"
#include "compilers/run_batches.h"
#include "compilers/video_batch.h"
#include "core/project.h"
#include "core/prompter.h"
#include "platform/result.h"
#include "run/temp_files.h"
#include "run/tool_check.h"

namespace torvane {

/// What a compiled project hands to the batch runner.
struct RunPlan {
  QStringList BatchList = {};             ///< names relative to TempDir, in order of running
  QString RunMode = QStringLiteral("0");  ///< "1" for the syntax check
  QString LogText = {};                   ///< for `TVNLogFile`
  bool AutoDelete = false;                ///< clean TempDir at the end; off when it holds what is not ours
  FormerFate Former = FormerFate::SetAside;
  std::optional<int> Titlesets = {};  ///< that the disc must have; nothing when no disc is made
  bool operator==(const RunPlan&) const = default;
};

/// Whether a command may go on.
enum class Readiness {
  Ready,
  NothingToDo,  ///< the main menu has no button; the commands then do nothing and show nothing
  Refused       ///< the user or a check said no, and has told why
};

/// The sequence behind Create DVD, Create Batch and Syntax Check: checks the project, lets each compiler write its
/// files into `TempDir` and lists the batches to run. Nothing is run and the project is not changed.
///
/// What fails is told through the prompter; files written up to then stay, as each run writes them anew. A former disc
/// and image are left where they are: the run itself sets them aside when all that can be known beforehand is known.
class CreateDvdPipeline {
 public:
  /// Answers with what is missing of the programs that batches name.
  using ToolCheck = std::function<QStringList(const QStringList&)>;

  CreateDvdPipeline(const Project& project, Prompter& prompter, ToolCheck toolCheck = MissingTools)
      : project_(project), prompter_(prompter), toolCheck_(std::move(toolCheck)), files_(project.Settings.TempDir) {}

  /// All checks of Create DVD that need no file to be made; they may ask the user.
  Readiness PrepareCreateDvd();
  /// The shorter list of Create Batch.
  Readiness PrepareCreateBatch();

  /// Writes all files of a run; nothing when that failed. With BatchUse::WriteOnly `MainBatch.bat` calls the batches.
  std::optional<RunPlan> BuildProject(BatchUse use);

  /// Writes the control file and the batch of the syntax check.
  std::optional<RunPlan> BuildSyntaxCheck();

 private:
  bool HasButtons() const;
  bool AgreesToReplaceFormer();
  void OpenTemp(const QByteArray& video);
  std::vector<PlannedBatch> PlanBatches(BatchUse use, const QByteArray& video);
  bool Claim(const std::vector<PlannedBatch>& batches);
  bool HasTools(const std::vector<PlannedBatch>& batches, BatchUse use);
  bool WriteVideoFiles(const VideoBatch& video);
  void WritePaletteFile(const GeneratedFile& palette);
  bool WriteAudioSlides(int film);
  QByteArray AuthorXml(AuthorMode mode);
  bool CompileMenu(const QString& key);
  bool WriteEmptyMenuPicture();
  bool WriteBatches(const std::vector<PlannedBatch>& batches);
  bool WriteTemp(const QString& name, const QByteArray& content);
  QString NameInTemp(const QString& path) const;
  bool Succeeded(const Status& status);
  bool AllValuesPassed();

  const Project& project_;
  Prompter& prompter_;
  ToolCheck toolCheck_;
  Settings inForce_ = project_.Settings;  ///< for this run; values_ refers to it
  LineValues values_{inForce_};
  TempFiles files_;
  RunPlan plan_;
  FormerFate former_ = FormerFate::SetAside;
};

/// The plan of batches of `TempDir` that the user names, without a project. Refused, with the reason told, when one is
/// not there, or when a line would lose what is not ours.
std::optional<RunPlan> PlanGivenBatches(const QStringList& names, const Settings& settings, Prompter& prompter);

}  // namespace torvane
