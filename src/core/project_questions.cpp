#include "core/project_questions.h"

#include "core/messages.h"

namespace torvane {
namespace {

bool HoldsSomething(const Project& project) {
  if (project.ProjectHasVideos) return true;
  for (const Attribute group : {menu_node::Buttons, menu_node::Images, menu_node::Labels}) {
    const ProjectNode* node = project.Tree.Find(MenuNodeKey(MainMenuKey(), group));
    if (node && node->FirstChild()) return true;
  }
  return false;
}

}  // namespace

Closing AskBeforeClosing(const Project& project, Prompter& prompter) {
  if (!project.Settings.AskForSave || project.ProjectSaved()) return Closing::Closes;
  const Answer answer = prompter.Show({.kind = BoxKind::Question,
                                       .buttons = BoxButtons::YesNoCancel,
                                       .text = GetMessage(156),
                                       .preselected = Answer::Yes});
  if (answer == Answer::No) return Closing::Closes;
  if (answer != Answer::Yes) return Closing::Stays;
  return project.ProjectNamed ? Closing::SavesAndCloses : Closing::SavesUnderNewNameAndCloses;
}

bool MayReplaceProject(const Project& project, Prompter& prompter) {
  if (!HoldsSomething(project)) return true;
  return prompter.Show({.kind = BoxKind::Question,
                        .buttons = BoxButtons::YesNo,
                        .text = GetMessage(114),
                        .preselected = Answer::No}) == Answer::Yes;
}

}  // namespace torvane
