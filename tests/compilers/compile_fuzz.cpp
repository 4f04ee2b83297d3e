#include <QDir>
#include <QGuiApplication>

#include "compilers/disc_checks.h"
#include "compilers/pipeline.h"
#include "core/project_mutations.h"
#include "support/mutation_run.h"

namespace torvane::test {

/// Compiles whatever can be loaded. Nothing is run, and nothing is written outside the temporary directory of the run.
class CompileMutations : public ProjectMutations {
 public:
  using ProjectMutations::ProjectMutations;

 protected:
  QString Use(Project& project) override {
    QDir drive(HostFiles::ToHost(QStringLiteral("C:\\")));
    drive.mkpath(QStringLiteral("O/DVD/VIDEO_TS"));
    drive.mkpath(QStringLiteral("T"));
    RecordingPrompter prompter;
    for (const auto check : {CheckIntro, CheckLoopingMenus, CheckSourcesSafe, CheckTemporaryNames, CheckBatchTexts}) {
      check(project, prompter);
    }
    CreateDvdPipeline pipeline(project, prompter);
    if (pipeline.PrepareCreateBatch() == Readiness::Ready) pipeline.BuildProject(BatchUse::WriteOnly);
    pipeline.BuildSyntaxCheck();
    const QStringList besides = drive.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    return besides == QStringList{QStringLiteral("m.tvn"), QStringLiteral("O"), QStringLiteral("T")}
               ? QString()
               : QStringLiteral("written elsewhere: ") + besides.join(u' ');
  }
};

}  // namespace torvane::test

/// Damaged projects, compiled for a number of seconds: compile_fuzz SECONDS [SEED]
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return torvane::test::RunMutations<torvane::test::CompileMutations>(argc, argv);
}
