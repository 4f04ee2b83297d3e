#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "compilers/author_pieces.h"
#include "compilers/plan_check.h"
#include "compilers/run_batches.h"
#include "compilers/video_batch.h"
#include "core/project.h"
#include "core/prompter.h"
#include "platform/result.h"

namespace torvane {

/// What a compiled project hands to the batch runner.
struct RunPlan {
  QStringList BatchList;                  ///< names relative to TempDir, in order of running
  QString RunMode = QStringLiteral("0");  ///< "1" for the syntax check
  QString LogText = {};                   ///< for `TVNLogFile`
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
/// What fails is told through the prompter; files written up to then stay, as each run writes them anew.
class CreateDvdPipeline {
 public:
  CreateDvdPipeline(const Project& project, Prompter& prompter) : project_(project), prompter_(prompter) {}

  /// All checks of Create DVD, which may ask the user, and delete an old disc and image once he agrees.
  Readiness PrepareCreateDvd();
  /// The shorter list of Create Batch.
  Readiness PrepareCreateBatch();

  /// Writes all files of a run; nothing when that failed. With BatchUse::WriteOnly `MainBatch.bat` calls the batches.
  std::optional<RunPlan> BuildProject(BatchUse use);

  /// Writes the control file and the batch of the syntax check.
  std::optional<RunPlan> BuildSyntaxCheck();

 private:
  bool IsSupported(PlanUse use);
  bool HasButtons() const;
  bool WriteVideoFiles();
  void WritePaletteFile(const GeneratedFile& palette);
  bool WriteAudioSlides(int film);
  QByteArray AuthorXml(AuthorMode mode);
  bool CompileMenus();
  bool CompileMainMenus();
  bool CompileTitlesetMenus();
  bool CompileMenus(const QStringList& keys);
  bool CompileMenu(const QString& key);
  bool WriteEmptyBackgroundBatch();
  bool WriteIsoBatch(BatchUse use);
  bool AddBatch(const QString& name, const QByteArray& text);
  bool WriteTemp(const QString& name, const QByteArray& content);
  bool Succeeded(const Status& status);
  bool AllValuesPassed();

  const Project& project_;
  Prompter& prompter_;
  LineValues values_{project_.Settings};
  QStringList batchList_;
};

}  // namespace torvane
