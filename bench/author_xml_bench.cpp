// Budget: the control files of the largest legal project below 0.2 s.

#include <benchmark/benchmark.h>

#include "compilers/author_xml.h"
#include "compilers/video_batch.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

void FillMenu(Project& project, const QString& menu) {
  for (int button = 1; button <= 36; ++button) {
    test::AddTextButton(project, menu, button, u"FilmButton%1"_s.arg(button), u"Button"_s, u"g1=1;jump title 1;"_s);
  }
}

/// 98 films of 99 chapters and 50 menus of 36 buttons.
void FillLargestProject(Project& project) {
  AddDefaultProject(project);
  FillMenu(project, MainMenuKey());
  test::AddNode(project, u"MM"_s, u"MMM|SubMenus"_s);
  for (int slot = 1; slot < kMainSubMenuSlots; ++slot) {
    const QString key = MainSubMenuKey(slot);
    test::AddNode(project, u"MMM"_s, u"MMM%1|SubMenu|%2"_s.arg(slot).arg(key));
    AddMenuSubtree(project, {.kind = MenuKind::MainSubMenu, .number = slot, .key = key});
    FillMenu(project, key);
  }
  QStringList chapters;
  for (int i = 0; i < 99; ++i) chapters << u"00:%1:00.000"_s.arg(i, 2, 10, QChar(u'0'));
  for (int film = 1; film <= kMaxFilms; ++film) {
    test::AddFilm(project, film, MainMenuKey(), u"C:\\v\\film%1.m2v"_s.arg(film));
    project.Tree.SetCaption(FilmNodeKey(film_node::Chapters, film), u"Chapters="_s + chapters.join(u','));
    project.Tree.SetCaption(FilmNodeKey(film_node::Fps, film), u"FPS=29.97"_s);
  }
}

void CompileControlFiles(benchmark::State& state) {
  Settings settings = test::FixedSettings();
  settings.AdjNTSCtc = settings.CommentXML = true;
  Project project(settings);
  FillLargestProject(project);
  for (auto _ : state) {
    LineValues values(project.Settings);
    benchmark::DoNotOptimize(WriteAuthorXmlSingle(project, AuthorMode::Run, values));
    benchmark::DoNotOptimize(WriteVideoBatch(project, values));
  }
}
BENCHMARK(CompileControlFiles)->Unit(benchmark::kMillisecond);

/// The same with a titleset for each film, 36 buttons in its menu and 9 submenus more.
void CompileTitlesets(benchmark::State& state) {
  Settings settings = test::FixedSettings();
  settings.AdjNTSCtc = settings.CommentXML = settings.GoNextTitle = true;
  settings.NoTitleSets = false;
  Project project(settings);
  FillLargestProject(project);
  int slot = 0;
  for (int film = 1; film <= kMaxFilms; ++film) {
    const QString root = TitleSetMenuKey(film);
    AddMenuSubtree(project, {.kind = MenuKind::TitleSetRoot, .number = film, .key = root});
    FillMenu(project, root);
    test::AddNode(project, root, root + u"M|SubMenus");
    for (int number = 1; number <= 9; ++number) {
      const QString key = SubMenuKey(++slot);
      test::AddNode(project, root + u"M", root + u"M%1|SubMenu|%2"_s.arg(number).arg(key));
      AddMenuSubtree(project, {.kind = MenuKind::TitleSetSubMenu, .number = number, .key = key});
      FillMenu(project, key);
    }
  }
  for (auto _ : state) {
    LineValues values(project.Settings);
    benchmark::DoNotOptimize(WriteAuthorXmlTitlesets(project, AuthorMode::Run, values));
    benchmark::DoNotOptimize(WriteVideoBatch(project, values));
  }
}
BENCHMARK(CompileTitlesets)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
