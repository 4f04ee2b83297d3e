#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "core/action_strings.h"
#include "core/film_view.h"
#include "core/text.h"
#include "designer/button_places.h"
#include "designer/edit_films.h"
#include "designer/element_limits.h"
#include "support/edit_bench.h"
#include "support/project_state.h"
#include "support/random_user.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kSequences = 250;
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
  static QSet<QString> sound;  // the same keys come in every project, and the expression takes its time
  for (const ProjectNode* node = tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
    if (sound.contains(node->Key())) continue;
    if (!IsKey(node->Key())) faults << u"key " + node->Key();
    sound << node->Key();
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
    test::RandomUser user(seed);
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
