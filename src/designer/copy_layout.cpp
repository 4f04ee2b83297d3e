#include "designer/copy_layout.h"

#include "core/edit.h"
#include "core/messages.h"
#include "designer/button_places.h"
#include "designer/edit_elements.h"
#include "designer/element_limits.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// What a new key is made of: the part of a source key in front, and what takes its place.
struct KeyPart {
  QString source;
  QString target;
};

/// A copy of a source key: the longest part that fits is replaced.
QString MappedKey(const QString& key, const std::vector<KeyPart>& parts) {
  const KeyPart* best = nullptr;
  for (const KeyPart& part : parts) {
    if (key.startsWith(part.source) && (!best || part.source.size() > best->source.size())) best = &part;
  }
  return best ? QString(best->target + key.mid(best->source.size())) : key;
}

enum class Existing {
  Keep,      ///< a node that is there already is no copy's business
  Overwrite  ///< it stays where it is and takes caption and tag
};

/// Copies the children of a node, each with its own children. The source is not changed by it.
void CopyChildren(ProjectTree& tree, const QString& target, const QString& source, const std::vector<KeyPart>& parts,
                  Existing existing) {
  const ProjectNode* node = tree.Find(source);
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) {
    const QString key = MappedKey(node->Key(), parts);
    if (!tree.Contains(key)) {
      tree.Add({key, node->Caption(), node->Tag(), node->Image()}, target, Relation::Child);
    } else if (existing == Existing::Overwrite) {
      tree.SetCaption(key, node->Caption());
      tree.SetTag(key, node->Tag());
    }
    CopyChildren(tree, key, node->Key(), parts, existing);
  }
}

/// One copy of a layout at work.
class LayoutCopy {
 public:
  LayoutCopy(EditContext& context, QString menu, QString source)
      : context_(context),
        project_(context.project),
        tree_(context.project.Tree),
        menu_(std::move(menu)),
        source_(std::move(source)) {}

  bool Animations() {
    const std::vector<PictureView> animations = MenuView(tree_, source_).Animations();
    const QString group = MenuNodeKey(menu_, menu_node::Animations);
    if (!animations.empty() && !tree_.Contains(group)) {
      tree_.Add({group, menu_node::Animations.Label.toString()}, menu_, Relation::Child);
    }
    for (const PictureView& animation : animations) {
      if (!CheckAnimLimit(Menu(), context_.prompter)) return false;
      const int number = NumberFor(animation.Number(), 1, kMaxPictures, AnimationKey);
      const QString key = AnimationKey(menu_, number);
      const QString caption = tree_.Find(animation.Key())->Caption();
      AddElement({key, caption, u"%1"_s.arg(number, 2, 10, QChar(u'0')), kHeadNode}, animation.Key(), {});
      tree_.SetTag(ElementNodeKey(key, element_node::Image), QString::number(number));
    }
    return true;
  }

  /// The target keeps the action: it is the way back from this menu.
  void BackButton() {
    const QString key = ButtonKey(menu_, kBackButton);
    const QString sourceKey = ButtonKey(source_, kBackButton);
    if (!tree_.Contains(key) || !tree_.Contains(sourceKey)) return;
    const NodeView back(tree_, key);
    const QString action = back.Text(element_node::Action).value_or(QString());
    const QString tag = back.Tag(element_node::Action);
    while (const ProjectNode* child = tree_.Find(key)->FirstChild()) tree_.Remove(child->Key());
    CopyChildren(tree_, key, sourceKey, {{source_, menu_}}, Existing::Overwrite);
    tree_.SetCaption(ElementNodeKey(key, element_node::Action), element_node::Action.Label + action);
    tree_.SetTag(ElementNodeKey(key, element_node::Action), tag);
    tree_.Remove(ElementNodeKey(key, element_node::AutoAction));
    if (!Menu().AutoActionButton()) tree_.SetTag(MenuNodeKey(menu_, menu_node::Buttons), {});
  }

  /// The aspect is no part of the look: what stands in the menu is placed for it.
  void Background(bool withPostAction) {
    const QString group = MenuNodeKey(menu_, menu_node::Background);
    const NodeData post = Saved(menu_node::BackgroundPostAction);
    const NodeData aspect = Saved(menu_node::BackgroundAspect);
    while (const ProjectNode* child = tree_.Find(group)->FirstChild()) tree_.Remove(child->Key());
    Fill(menu_node::Background);
    Restore(aspect, menu_node::BackgroundAspect);
    if (!withPostAction) Restore(post, menu_node::BackgroundPostAction);
  }

  bool Buttons() {
    const bool mainFamily = IsMainMenuFamily(menu_);
    for (const ButtonView& button : MenuView(tree_, source_).Buttons()) {
      if (button.Number() == kBackButton) continue;
      if (!CheckButtonLimit(Menu(), project_.Settings, context_.prompter)) return false;
      const int number = mainFamily ? HighestFreeButton() : NumberFor(button.Number(), 1, kMaxButtons, ButtonKey);
      const QString key = ButtonKey(menu_, number);
      AddElement(
          {key, CopiedCaption(tree_.Find(button.Key())->Caption(), mainFamily), QString::number(number), kHeadNode},
          button.Key(), {ButtonPropertiesKey(source_, button.Number()), ButtonPropertiesKey(menu_, number)});
      tree_.Remove(ElementNodeKey(key, element_node::AutoAction));
    }
    RenumberButtons(project_, menu_, ButtonKind::Free);
    return true;
  }

  void HighLights() {
    Fill(menu_node::HighLight);
    Fill(menu_node::Activated);
  }

  bool Images() {
    for (const PictureView& image : MenuView(tree_, source_).Images()) {
      if (!CheckImageLimit(Menu(), context_.prompter)) return false;
      const int number = NumberFor(image.Number(), 1, kMaxPictures, ImageKey);
      AddElement({ImageKey(menu_, number), u"Image%1"_s.arg(number), QString::number(number), kHeadNode}, image.Key(),
                 {});
    }
    return true;
  }

  bool Labels() {
    for (const LabelView& label : MenuView(tree_, source_).Labels()) {
      if (!CheckLabelLimit(Menu(), context_.prompter)) return false;
      const int index = NumberFor(label.Index(), kFirstLabel, kLastLabel, LabelKey);
      AddElement({LabelKey(menu_, index), u"Label%1"_s.arg(index - kMaxButtons), QString::number(index), kHeadNode},
                 label.Key(), {LabelPropertiesKey(source_, label.Index()), LabelPropertiesKey(menu_, index)});
    }
    return true;
  }

 private:
  MenuView Menu() const { return {tree_, menu_}; }

  /// A node of the target as it stands; without caption where there is none.
  NodeData Saved(Attribute attribute) const {
    const QString key = MenuNodeKey(menu_, attribute);
    const ProjectNode* node = tree_.Find(key);
    return {key, node ? node->Caption() : QString(), node ? node->Tag() : QString(), node ? node->Image() : 0};
  }

  /// Puts a saved node of the background back; one without a value goes.
  void Restore(const NodeData& saved, Attribute attribute) {
    if (saved.Caption.size() <= attribute.Label.size()) {
      tree_.Remove(saved.Key);
    } else if (tree_.Contains(saved.Key)) {
      tree_.SetCaption(saved.Key, saved.Caption);
      tree_.SetTag(saved.Key, saved.Tag);
    } else {
      tree_.Add(saved, MenuNodeKey(menu_, menu_node::Background), Relation::Child);
    }
  }

  void Fill(Attribute group) {
    CopyChildren(tree_, MenuNodeKey(menu_, group), MenuNodeKey(source_, group), {{source_, menu_}},
                 Existing::Overwrite);
  }

  /// The element's own number where it is free, or the lowest free one.
  template <class Key>
  int NumberFor(int wanted, int first, int last, Key key) const {
    if (!tree_.Contains(key(menu_, wanted))) return wanted;
    int number = first;
    while (number < last && tree_.Contains(key(menu_, number))) ++number;
    return number;
  }

  int HighestFreeButton() const {
    int number = kMaxButtons;
    while (number > 1 && tree_.Contains(ButtonKey(menu_, number))) --number;
    return number;
  }

  /// Only buttons come along, but neither the film nor the menu that they belong to.
  static QString CopiedCaption(const QString& caption, bool mainFamily) {
    const std::optional<ButtonKind> kind = KindOf(caption);
    const bool becomesFree = kind == ButtonKind::Menu || (mainFamily && kind == ButtonKind::Film);
    if (!becomesFree) return caption;
    return KindWord(ButtonKind::Free) + caption.mid(KindWord(*kind).size());
  }

  /// `properties` are the keys of the properties nodes of source and copy, of an element that has one.
  void AddElement(const NodeData& head, const QString& sourceKey, const KeyPart& properties) {
    const QString group = tree_.Find(sourceKey)->Parent()->Key();
    const QString back = ButtonKey(menu_, kBackButton);
    const bool beforeBack = group == MenuNodeKey(source_, menu_node::Buttons) && tree_.Contains(back);
    tree_.Add(head, beforeBack ? back : MappedKey(group, {{source_, menu_}}),
              beforeBack ? Relation::Previous : Relation::Child);
    std::vector<KeyPart> parts{{sourceKey, head.Key}};
    if (!properties.source.isEmpty()) parts.push_back(properties);
    CopyChildren(tree_, head.Key, sourceKey, parts, Existing::Keep);
  }

  EditContext& context_;
  Project& project_;
  ProjectTree& tree_;
  QString menu_;
  QString source_;
};

}  // namespace

std::optional<CopyFlags> ParseCopyFlags(QStringView text) {
  if (text.size() != 8) return std::nullopt;
  for (const QChar c : text) {
    if (c != u'0' && c != u'1') return std::nullopt;
  }
  const auto flag = [text](int i) { return text[i] == u'1'; };
  return CopyFlags{flag(0), flag(1), flag(2), flag(3), flag(4), flag(5), flag(6), flag(7)};
}

QStringList LayoutSources(const Project& project, const QString& menu) {
  const ProjectTree& tree = project.Tree;
  QStringList keys;
  const auto addFamily = [&](const QString& root) {
    if (tree.Contains(root)) keys << root;
    for (const QString& key : MenuView(tree, root).SubMenuKeys()) keys << key;
  };
  if (IsMainMenuFamily(menu)) {
    addFamily(MainMenuKey());
  } else if (!project.Settings.NoTitleSets) {
    for (int t = 1; t <= project.TitleSetCount; ++t) addFamily(TitleSetMenuKey(t));
  }
  keys.removeAll(menu);
  return keys;
}

bool CopyMenuLayout(EditContext& context, const QString& menu, const QString& source, const CopyFlags& flags) {
  Project& project = context.project;
  if (MenuOfNode(project.Tree, menu) != menu || flags == CopyFlags()) return false;
  const QStringList sources = LayoutSources(project, menu);
  if (sources.isEmpty()) {
    context.prompter.Inform(GetMessage(655) + u"\r\n" + GetMessage(656) + u"\r\n" + GetMessage(657));
    return false;
  }
  if (!sources.contains(source)) {
    context.prompter.Inform(GetMessage(654));
    return false;
  }
  Edit edit(project, u"Copy menu layout"_s);
  PlaceKeeper places(project, menu);
  LayoutCopy copy(context, menu, source);
  if (flags.Animations && !copy.Animations()) return false;
  if (flags.BackButton) copy.BackButton();
  if (flags.Background) copy.Background(flags.PostAction);
  if (flags.Buttons && !copy.Buttons()) return false;
  if (flags.HighLight) copy.HighLights();
  if (flags.Images && !copy.Images()) return false;
  if (flags.Labels && !copy.Labels()) return false;
  places.Update();
  edit.Commit();
  return true;
}

}  // namespace torvane
