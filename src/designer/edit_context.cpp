#include "designer/edit_context.h"

#include "core/messages.h"
#include "core/text.h"
#include "designer/free_place.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool TellFull(EditContext& context, const QString& menu) {
  context.prompter.Inform(
      u"Menu %1 (%2) has no free place for the new element. Please give it one, or move or delete others first."_s.arg(
          MenuView(context.project.Tree, menu).Name(), menu));
  return false;
}

/// The text in lines no wider than `width`, at most `lines` of them; "…" stands for what has no room.
QString Wrapped(const QString& text, int width, int lines, const FontRecord& font, const TextMeasure& measure) {
  const auto fits = [&](const QString& line) { return measure(font, line).width() <= width; };
  QStringList result;
  const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
  bool cut = false;
  for (const QString& word : words) {
    if (!result.isEmpty() && fits(result.last() + u' ' + word)) {
      result.last() += u' ' + word;
    } else if (int(result.size()) < lines && (result.isEmpty() || fits(result.last()))) {
      result << word;
    } else {
      cut = true;
      break;
    }
  }
  for (QString& line : result) {
    const bool isCut = (cut && &line == &result.last()) || !fits(line);
    while (isCut && !line.isEmpty() && !fits(line + u'\u2026')) line.chop(1);
    if (isCut) line = line.trimmed() + u'\u2026';
  }
  return result.join(u"\r\n");
}

}  // namespace

bool PlaceButton(EditContext& context, const ElementPlace& place, NewButton& button) {
  button.style = StyleOf(context.project, place);
  const std::optional<QPoint> position =
      place.position ? place.position : PlaceFinder(context.project, place.menu).ForButton(button, context.measure);
  if (!position) return TellFull(context, place.menu);
  button.position = *position;
  return true;
}

bool PlaceFilmButton(EditContext& context, const ElementPlace& place, NewButton& button) {
  constexpr int kMostLines = 3;
  const Settings& settings = context.project.Settings;
  button.style = StyleOf(context.project, place);
  const PlaceFinder finder(context.project, place.menu);
  const QPoint start = place.position.value_or(finder.NextOfGrid());
  const int excess = button.style == ButtonStyle::Graphic ? 0 : finder.PassesFrame(button, start, context.measure);
  if (excess > 0) {
    const int width = context.measure(settings.DefaultFont, button.text).width() - excess;
    const QString whole = button.text;
    button.text = Wrapped(whole, width, kMostLines, settings.DefaultFont, context.measure);
    context.prompter.Inform(u"The text of the button \"%1\" is too wide for its place and becomes \"%2\"."_s.arg(
        whole, QString(button.text).replace(u"\r\n"_s, u" / "_s)));
  }
  return PlaceButton(context, place, button);
}

std::optional<QPoint> PlaceArea(EditContext& context, const ElementPlace& place, const QSize& size) {
  if (place.position) return place.position;
  const std::optional<QPoint> position = PlaceFinder(context.project, place.menu).ForArea(size);
  if (!position) TellFull(context, place.menu);
  return position;
}

ButtonStyle StyleOf(const Project& project, const ElementPlace& place) {
  return place.style ? *place.style : StyleOf(project.Settings);
}

int TitleSetOfMenu(const Project& project, const QString& menu) {
  if (IsTitleSetMenu(menu)) return ValToInt(menu.mid(2));
  const ProjectNode* root = project.Tree.Find(menu);
  return IsSubMenu(menu) && root ? ValToInt(root->Tag().mid(2)) : 0;
}

QString FamilyRoot(const Project& project, const QString& menu) {
  const int titleSet = TitleSetOfMenu(project, menu);
  return titleSet == 0 ? MainMenuKey() : TitleSetMenuKey(titleSet);
}

QString MenuOfNode(const ProjectTree& tree, const QString& key) {
  const ProjectNode* node = tree.Find(key);
  if (!node) return {};
  while (node->Parent()) node = node->Parent();
  const QString root = node->Key();
  return IsMainMenuFamily(root) || IsTitleSetMenu(root) || IsSubMenu(root) ? root : QString();
}

void ShowMenu(Project& project, const QString& key) {
  project.CurrentMenuKey = key;
  project.CurrentTitleSet = TitleSetOfMenu(project, key);
  TakeMenuRaster(project, key);
}

bool SwitchMenu(Project& project, const QString& key, Prompter& prompter) {
  if (project.Settings.NoMenus && key != MainMenuKey()) {
    ShowMenu(project, MainMenuKey());
    prompter.Inform(GetMessage(193));
    return false;
  }
  if (MenuOfNode(project.Tree, key) != key) return false;
  ShowMenu(project, key);
  return true;
}

}  // namespace torvane
