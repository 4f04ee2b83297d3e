#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <random>

#include "core/action_strings.h"
#include "core/film_view.h"
#include "core/text.h"
#include "designer/alignment.h"
#include "designer/button_places.h"
#include "designer/copy_layout.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/edit_values.h"
#include "designer/element_limits.h"
#include "designer/shrink.h"
#include "support/edit_bench.h"
#include "support/project_state.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kSequences = 1000;
constexpr int kSteps = 30;

/// Every key that a project may hold.
bool IsKey(const QString& key) {
  static const QRegularExpression form(
      u"^(?:"
      "TS|(?:MM(?:[1-4]?\\d)?|TS\\d+|SM\\d{1,3})(?:|P(?:Type|Pause|Pre|Post)?|M\\d{0,2}|"
      "BG(?:Path|Loop|Raster[XY]|Blur[XY]?)?|H(?:T[123]?|C[12]|CT[12])?|A(?:C[12]|CT[12])?|[BILS]|"
      "B(?:\\d|[12]\\d|3[0-6])(?:Text|Action|FixedSize|AutoAction|Action(?:Left|Right|Up|Down)|"
      "GifMask(?:Gif|RelSize|XOff|YOff|UseHigh)?)?|"
      "L(?:3[7-9]|[4-6]\\d|7[0-2])(?:Text|FixedSize)?|"
      "(?:BP(?:\\d|[12]\\d|3[0-6])|LP(?:3[7-9]|[4-6]\\d|7[0-2]))(?:NormVis|Shadow|Block|Outline|Align|Color|Left|Top|"
      "Width|Height|Font(?:Size|Bold|Italic|Strikethru|Underline)?)?|"
      "I(?:[1-9]|[1-4]\\d|50)(?:File|HSize|VSize|Left|Top)?|"
      "S(?:0[1-9]|[1-4]\\d|50)(?:Image|Left|Top|Width|Height|Crop)?)|"
      "F\\d{1,2}|FP(?:|V|VSize|VResH|VResV|VFps|VAspect|VTime|VShrinkTo|[123]A|AD|S|SA|[123]S|[123]SF|CH|TS|Lang|Mux|"
      "Ani|"
      "PreAct|PostAct|UOP|A|AL|AL[ABT](?:Font|Color|XPos|YPos)|ALBlur[XY]?)\\d{1,2}|"
      "FP\\d{1,2}P(?:\\d+(?:List|PreAct|PostAct|UOP)?)?|"
      "FPA\\d{1,2}#\\d\\d(?:FILE|ARTIST|ALBUM|IMAGE|SIZE)?)$"_s);
  return form.match(key).hasMatch();
}

/// What is wrong with a project; empty for a sound one.
QStringList Faults(const Project& project) {
  QStringList faults;
  test::RecordingPrompter nobody;
  const ProjectTree& tree = project.Tree;
  for (const ProjectNode* node = tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
    if (!IsKey(node->Key())) faults << u"key " + node->Key();
  }
  int roots = 0;
  for (const ProjectNode* root = tree.FirstRoot(); root; root = root->Next()) {
    const MenuView menu(tree, root->Key());
    if (MenuOfNode(tree, root->Key()).isEmpty()) continue;
    roots += IsSubMenu(root->Key()) || IsMainSubMenu(root->Key());
    const std::vector<ButtonView> buttons = menu.Buttons();
    if (int(buttons.size()) > ButtonLimit(menu, project.Settings)) faults << u"buttons of " + root->Key();
    for (std::size_t i = 0; i < buttons.size(); ++i) {
      const ButtonView& button = buttons[i];
      if (button.Number() == kBackButton && i + 1 != buttons.size()) faults << u"Back is not last: " + root->Key();
      const int film = FilmOfButton(project, root->Key(), button.Number());
      if (KindOf(tree.Find(button.Key())->Caption()) != ButtonKind::Film) continue;
      if (film == 0) faults << u"no film of " + button.Key();
      const QString action = FilmButtonAction(film, PlaceOnDisc(menu, button.Number()), project.Settings);
      const QString stored = button.Action().value_or(QString());
      if (stored.startsWith(u"g1=") && stored != action) faults << u"place of " + button.Key();
    }
    if (menu.Labels().size() > 36 || menu.Images().size() > 50 || menu.Animations().size() > 50) {
      faults << u"elements of " + root->Key();
    }
  }
  const auto checkSlots = [&](const auto& table) {
    for (const MenuSlot& slot : table) {
      if (!slot.Used) continue;
      --roots;
      if (!tree.Contains(slot.MenuKey) || !tree.Contains(slot.ButtonKey)) faults << u"slot of " + slot.MenuKey;
    }
  };
  checkSlots(project.MainSubMenuTable);
  checkSlots(project.SubMenuTable);
  if (roots != 0) faults << u"menus without slot"_s;
  if (!tree.Contains(project.CurrentMenuKey)) faults << u"current menu"_s;
  for (int film = 1; film <= project.FilmCount + 1; ++film) {
    if (tree.Contains(FilmKey(film)) != (film <= project.FilmCount)) faults << u"film %1"_s.arg(film);
  }
  return faults;
}

/// A user who does anything anywhere.
class RandomUser {
 public:
  explicit RandomUser(unsigned seed) : random_(seed), bench_(RandomSettings()) {}

  Project& ThisProject() { return bench_.project; }

  void Act() {
    EditContext& c = bench_.context;
    ElementPlace place{.menu = AnyMenu()};
    if (Below(2) == 0) place.position = QPoint(Below(720), Below(576));
    if (Below(3) == 0) place.style = ButtonStyle(Below(3));
    switch (Below(18)) {
      case 0:
      case 1:
        AddFilm(c, AnyFilm(), place);
        break;
      case 2:
        AddAudioTitleSet(c, {.Name = u"Songs"_s, .Titles = std::vector<AudioTitle>(std::size_t(Below(4)))}, place);
        break;
      case 3:
        AddPlayList(c, {.Film = 1 + Below(4), .List = u"01"_s}, place);
        break;
      case 4:
      case 5:
        AddMenu(c, {.type = MenuTypes()[Below(5)]}, place);
        break;
      case 6:
        AddChapterButton(c, 1 + Below(3), place);
        break;
      case 7:
        AddFreeButton(c, u"Button\nhere"_s, Below(2) == 0 ? u""_s : u"exit;"_s, place);
        break;
      case 8:
        AddPlayAllButton(c, place);
        break;
      case 9:
        AddLabel(c, u"Label"_s, place);
        break;
      case 10:
        AddImage(c, u"C:\\i.png"_s, place);
        break;
      case 11:
        AddAnimation(c, {.video = u"C:\\v.m2v"_s}, place);
        break;
      case 12:
      case 13:
        DeleteNode(c, AnyKey());
        break;
      case 14:
        EditValue(c, AnyKey(), Below(2) == 0 ? QString::number(Below(800)) : u"1,2,3"_s);
        break;
      case 15:
        MoveElement(c, AnyKey(), AnyKey());
        break;
      case 16:
        Rearrange(place.menu);
        break;
      default:
        Less(place.menu);
        break;
    }
    bench_.prompter.boxes.clear();
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

 private:
  Settings RandomSettings() {
    Settings settings = test::FixedSettings();
    settings.NoTitleSets = Below(2) == 0;
    settings.Engine = Below(2);
    settings.LoopSyntax = Below(2) == 0;
    settings.TextButtons = Below(3);
    settings.AnimatedMainMenu = Below(2) == 0;
    settings.AdvancedMode = Below(2) == 0;
    settings.DefMenuRatio = Below(2) == 0;
    settings.Def169Mode = Below(3);
    return settings;
  }

  FilmRecord AnyFilm() {
    FilmRecord film;
    film.Name = u"film_%1"_s.arg(Below(100));
    film.VideoFile = u"C:\\v\\%1.m2v"_s.arg(Below(100));
    film.MpegVersion = QString::number(1 + Below(2));
    film.SizeMB = Below(3000);
    film.TotalSize = film.SizeMB + 100;
    film.Chapters = u"00:00:00.000,00:01:00.000"_s;
    film.Animated = Below(3);
    if (Below(2) == 0) film.Audio[0] = u"C:\\v\\a.ac3"_s;
    return film;
  }

  QString AnyMenu() {
    QStringList menus;
    const ProjectTree& tree = bench_.project.Tree;
    for (const ProjectNode* root = tree.FirstRoot(); root; root = root->Next()) {
      if (!MenuOfNode(tree, root->Key()).isEmpty()) menus << root->Key();
    }
    return menus[Below(int(menus.size()))];
  }

  QString AnyKey() {
    const ProjectTree& tree = bench_.project.Tree;
    const ProjectNode* node = nullptr;
    for (int i = Below(int(tree.NodeCount())); i >= 0; --i) node = tree.NextInOrder(node);
    return node->Key();
  }

  void Rearrange(const QString& menu) {
    QStringList keys;
    const MenuView view(bench_.project.Tree, menu);
    for (const ButtonView& button : view.Buttons()) keys << button.Key();
    for (const PictureView& image : view.Images()) keys << image.Key();
    if (Below(2) == 0) {
      AlignElements(bench_.context, menu, keys, Alignment(Below(8)));
    } else {
      DistributeElements(bench_.context, menu, keys, Distribution(Below(4)));
    }
  }

  void Less(const QString& menu) {
    switch (Below(5)) {
      case 0:
        ShrinkToSize(bench_.context, QString::number(Below(10000)));
        break;
      case 1:
        DeleteGroup(bench_.context, menu, ElementGroup(Below(6)));
        break;
      case 2: {
        FilmRecord film = AnyFilm();
        const int number = 1 + Below(4);
        if (!FilmView(bench_.project.Tree, number).IsAudioTitleSet()) EditFilm(bench_.context, number, film);
        break;
      }
      case 3:
        SwitchMenu(bench_.project, menu, bench_.prompter);
        break;
      default:
        CopyMenuLayout(bench_.context, menu, AnyMenu(),
                       {Below(2) == 0, Below(2) == 0, Below(2) == 0, Below(2) == 0, Below(2) == 0, Below(2) == 0,
                        Below(2) == 0, Below(2) == 0});
        break;
    }
  }

  std::mt19937 random_;
  test::EditBench bench_;
};

/// The state that undo brings back: everything but the menu shown, which is no change of its own.
test::WholeProject StateOf(const Project& project) {
  test::WholeProject state(project);
  state.state.CurrentMenuKey.clear();
  state.state.CurrentTitleSet = 0;
  return state;
}

TEST(EditProperty, RandomEditsKeepTheProjectSoundAndCanBeUndone) {
  const QTemporaryDir dir;
  qputenv("TORVANE_DRIVE_C", dir.path().toUtf8());
  for (unsigned seed = 1; seed <= kSequences; ++seed) {
    SCOPED_TRACE(seed);
    RandomUser user(seed);
    Project& project = user.ThisProject();
    std::vector<test::WholeProject> states{StateOf(project)};  // state i is that with i steps done
    for (int step = 0; step < kSteps; ++step) {
      const std::size_t done = project.History.UndoCount();
      const int choice = user.Below(10);
      if (choice == 0 && project.History.CanUndo()) {
        ASSERT_TRUE(project.History.Undo());
        ASSERT_TRUE(StateOf(project) == states[done - 1]) << "undo " << project.History.RedoName().toStdString();
      } else if (choice == 1 && project.History.CanRedo()) {
        ASSERT_TRUE(project.History.Redo());
        ASSERT_TRUE(StateOf(project) == states[done + 1]) << "redo " << project.History.UndoName().toStdString();
      } else {
        user.Act();
        const std::size_t now = project.History.UndoCount();
        if (now == done) {
          ASSERT_TRUE(StateOf(project) == states[done]);
          continue;
        }
        ASSERT_EQ(now, done + 1);
        states.erase(states.begin() + std::ptrdiff_t(now), states.end());
        states.push_back(StateOf(project));
        ASSERT_EQ(Faults(project), QStringList()) << project.History.UndoName().toStdString();
      }
    }

    project.ProjectFile = u"C:\\p.tvn"_s;
    test::RecordingPrompter prompter;
    ASSERT_TRUE(SaveProject(project, prompter));
    Project loaded(project.UserSettings);
    ASSERT_TRUE(LoadProject(loaded, project.ProjectFile, prompter));
    const test::WholeProject saved(project);
    const test::WholeProject again(loaded);
    ASSERT_EQ(again.tree, saved.tree);
    ASSERT_TRUE(again.mainSubMenus == saved.mainSubMenus && again.subMenus == saved.subMenus);
    ASSERT_EQ(loaded.FilmCount, project.FilmCount);

    while (project.History.CanUndo()) ASSERT_TRUE(project.History.Undo());
    ASSERT_TRUE(StateOf(project) == states.front());
  }
  qunsetenv("TORVANE_DRIVE_C");
}

}  // namespace
}  // namespace torvane
