#include "compilers/button_check.h"

#include "compilers/plan_check.h"
#include "core/messages.h"
#include "designer/button_rectangles.h"
#include "designer/element_limits.h"
#include "designer/menu_frame.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString MenuName(const MenuView& menu) {
  return u"%1 (%2)"_s.arg(menu.Name(), menu.Key());
}

QString AreaText(const Edges& area) {
  return u"%1,%2 to %3,%4"_s.arg(area.Left).arg(area.Top).arg(area.Right).arg(area.Bottom);
}

ButtonView ButtonOf(const MenuView& menu, const QString& key) {
  const int number = ElementNumber(key, MenuNodeKey(menu.Key(), menu_node::Buttons));
  return {menu.Tree(), key, number, ButtonPropertiesKey(menu.Key(), number)};
}

void FindIdleButtons(const MenuView& menu, QList<Finding>& findings) {
  for (const ButtonView& button : menu.Buttons()) {
    if (!button.ExistsOnDisc() || !button.Action().value_or(QString()).isEmpty()) continue;
    findings << Finding{
        Severity::Warning, button.Key(),
        u"Menu %1: the button %2 has no action, so it cannot be chosen. Please give it one or delete it."_s.arg(
            MenuName(menu), ButtonName(button))};
  }
}

/// More than the form of the menu allows but not more than dvdauthor takes, which is told elsewhere.
void FindTooManyForms(const MenuView& menu, const Settings& settings, QList<Finding>& findings) {
  const auto buttons = int(menu.Buttons().size());
  const int limit = ButtonLimit(menu, settings);
  if (buttons <= limit) return;
  findings << Finding{Severity::Warning, MenuNodeKey(menu.Key(), menu_node::Buttons),
                      u"Menu %1 has %2 buttons; a menu of its form should have no more than %3. Please take some out."_s
                          .arg(MenuName(menu))
                          .arg(buttons)
                          .arg(limit)};
}

}  // namespace

QString ButtonName(const ButtonView& button) {
  const ProjectNode* head = button.Tree().Find(button.Key());
  return u"%1 \"%2\" (%3)"_s.arg(head ? head->Caption() : QString(), button.Caption().simplified(), button.Key());
}

QList<Finding> ButtonRuleFindings(const MenuView& menu, const Settings& settings) {
  const std::vector<ButtonRectangle> rectangles = ButtonRectangles(menu, settings);
  const int height = MenuHeight(settings);
  const auto name = [&](std::size_t i) { return ButtonName(ButtonOf(menu, rectangles[i].Key)); };
  const auto area = [&](std::size_t i) { return AreaText(rectangles[i].Check); };
  QList<Finding> findings;
  for (const RectangleFault& fault : RectangleFaults(rectangles, height)) {
    if (findings.isEmpty()) findings << Finding{Severity::Error, menu.Key(), GetMessage(155) + u' ' + MenuName(menu)};
    QString text;
    switch (fault.rule) {
      case RectangleFault::Rule::Empty:
        text =
            u"The button %1 has no area that could light up. Please enlarge it or its mask."_s.arg(name(fault.button));
        break;
      case RectangleFault::Rule::Outside:
        text =
            u"The button %1 needs the area %2 with its margin, but must lie within %3. Please move it or shorten its text."_s
                .arg(name(fault.button), area(fault.button), AreaText({0, 0, kMenuWidth, height}));
        break;
      case RectangleFault::Rule::TooNear:
        text =
            u"The buttons %1 and %2 come too near to each other: with their margins they need %3 and %4. Please move one of them away."_s
                .arg(name(fault.other), name(fault.button), area(fault.other), area(fault.button));
        break;
    }
    findings << Finding{Severity::Error, rectangles[fault.button].Key, text};
  }
  return findings;
}

QString ButtonRulesText(const MenuView& menu, const Settings& settings) {
  QStringList lines;
  for (const Finding& finding : ButtonRuleFindings(menu, settings)) lines << finding.text;
  return lines.join(u"\r\n");
}

QList<Finding> ButtonFindings(const Project& project) {
  QList<Finding> findings;
  for (const QString& key : DiscMenuKeys(project)) {
    const MenuView menu(project.Tree, key);
    findings += ButtonRuleFindings(menu, project.Settings);
    FindIdleButtons(menu, findings);
    FindTooManyForms(menu, project.Settings, findings);
  }
  return findings;
}

}  // namespace torvane
