#include <QDir>
#include <QGuiApplication>

#include "compilers/disc_checks.h"
#include "compilers/pipeline.h"
#include "compilers/temporary_names.h"
#include "compilers/written_values.h"
#include "core/project_mutations.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "support/edit_bench.h"
#include "support/mutation_run.h"

namespace torvane::test {

/// Compiles whatever can be loaded. Nothing is run, and nothing is written outside the temporary directory of the run.
class CompileMutations : public ProjectMutations {
 public:
  /// An even seed damages a project with titlesets, one of them of sound files.
  explicit CompileMutations(quint64 seed) : ProjectMutations(seed, seed % 2 == 0 ? WithTitlesets() : TwoFilms()) {}

 protected:
  QString Use(Project& project) override {
    QDir drive(HostFiles::ToHost(QStringLiteral("C:\\")));
    drive.mkpath(QStringLiteral("O/DVD/VIDEO_TS"));
    drive.mkpath(QStringLiteral("T"));
    if (!HostFiles::WriteAtomically(QStringLiteral("C:\\O\\s.ac3"), QByteArray("\x0B\x77\x00\x00\x1E\x40", 6))) {
      return QStringLiteral("no sound file");
    }
    RecordingPrompter prompter;
    for (const auto check : {CheckIntro, CheckLoopingMenus}) {
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

 private:
  static const Project& WithTitlesets() {
    static EditBench bench(TitleSetSettings());
    if (bench.project.FilmCount > 0) return bench.project;
    AddFilm(bench.context, {.Name = QStringLiteral("Film"), .VideoFile = QStringLiteral("C:\\v\\a.m2v")}, {});
    const QString sound = QStringLiteral("C:\\O\\s.ac3");
    const AudioTitle track{sound, QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), {}, 0};
    AddAudioTitleSet(bench.context, {.Name = QStringLiteral("Songs"), .Titles = {track, track}}, {});
    AddMenu(bench.context, {}, {.menu = TitleSetMenuKey(1)});
    AddChapterButton(bench.context, 1, {.menu = TitleSetMenuKey(2)});
    return bench.project;
  }
};

}  // namespace torvane::test

/// Damaged projects, compiled for a number of seconds: compile_fuzz SECONDS [SEED]
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return torvane::test::RunMutations<torvane::test::CompileMutations>(argc, argv);
}
