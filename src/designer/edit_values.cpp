#include "designer/edit_values.h"

#include <QRect>

#include "core/edit.h"
#include "core/messages.h"
#include "core/text.h"
#include "designer/button_places.h"
#include "designer/menu_frame.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kLeastCoordinate = 10;
constexpr int kMostLeft = 710;

/// The part of a caption up to the "=".
QString LabelOf(const ProjectNode& node) {
  const qsizetype equals = node.Caption().indexOf(u'=');
  return equals < 0 ? QString() : node.Caption().left(equals + 1);
}

/// A whole number from `least` to `most`, or nothing.
std::optional<int> NumberWithin(const QString& text, int least, int most) {
  bool ok = false;
  const int number = text.trimmed().toInt(&ok);
  if (!ok || number < least || number > most) return std::nullopt;
  return number;
}

bool Refuse(EditContext& context) {
  context.prompter.Inform(GetMessage(139));
  return false;
}

void Store(Project& project, const QString& key, const QString& caption) {
  Edit edit(project, u"Change value"_s);
  project.Tree.SetCaption(key, caption);
  edit.Commit();
}

/// The element that an attribute belongs to: the child of an element group above it.
QString ElementOf(const ProjectTree& tree, const QString& menu, const QString& key) {
  for (const ProjectNode* node = tree.Find(key); node && node->Parent(); node = node->Parent()) {
    for (const Attribute group : {menu_node::Buttons, menu_node::Images, menu_node::Labels, menu_node::Animations}) {
      if (node->Parent()->Key() == MenuNodeKey(menu, group)) return node->Key();
    }
  }
  return {};
}

/// A button and a picture are grouped when they cover the same rectangle.
QStringList PartnersOf(const Project& project, const QString& menu, const QString& element) {
  QStringList partners;
  if (!project.Settings.AutoGroup) return partners;
  const MenuView view(project.Tree, menu);
  const bool isText = element != CoordinatesKey(menu, element);
  const QRect rectangle = RectangleOf(project.Tree, menu, element);
  const auto collect = [&](const auto& others) {
    for (const auto& other : others) {
      if (partners.isEmpty() && RectangleOf(project.Tree, menu, other.Key()) == rectangle) partners << other.Key();
    }
  };
  if (isText) {
    collect(view.Images());
    collect(view.Animations());
  } else {
    collect(view.Buttons());
    collect(view.Labels());
  }
  return partners;
}

void WritePosition(ProjectTree& tree, const QString& menu, const QString& element, QPoint position) {
  const QString key = CoordinatesKey(menu, element);
  SetCoordinate(tree, key, drawing_node::Left, position.x());
  SetCoordinate(tree, key, drawing_node::Top, position.y());
}

bool EditCoordinate(EditContext& context, const ProjectNode& node, const QString& label, const QString& value) {
  Project& project = context.project;
  const QString menu = MenuOfNode(project.Tree, node.Key());
  const QString element = ElementOf(project.Tree, menu, node.Key());
  if (element.isEmpty()) return false;
  const bool isLeft = label == drawing_node::Left.Label;
  const auto number =
      NumberWithin(value, kLeastCoordinate, isLeft ? kMostLeft : MenuHeight(project.Settings) - kLeastCoordinate);
  if (!number) return Refuse(context);
  QPoint position = RectangleOf(project.Tree, menu, element).topLeft();
  (isLeft ? position.rx() : position.ry()) = *number;
  Edit edit(project, u"Move element"_s);
  PlaceElements(project, menu, {element}, {position});
  edit.Commit();
  return true;
}

bool EditInPlace(EditContext& context, const ProjectNode& node, const QString& value) {
  Project& project = context.project;
  const QString label = LabelOf(node);
  if (label == drawing_node::Left.Label || label == drawing_node::Top.Label) {
    return EditCoordinate(context, node, label, value);
  }
  if (label == menu_node::HighLightFillTrans.Label) {
    QString percent = value.trimmed();
    if (percent.endsWith(u'%')) percent.chop(1);
    const auto number = NumberWithin(percent, 0, 99);
    if (!number) return Refuse(context);
    Store(project, node.Key(), label + QString::number(*number) + u'%');
    return true;
  }
  if (label == menu_node::Pause.Label) {
    const auto seconds = NumberWithin(value, 0, 255);
    if (!seconds && value != u"inf") return Refuse(context);
    Store(project, node.Key(), label + (seconds ? QString::number(*seconds) : value));
    return true;
  }
  const bool isFlag = label == menu_node::HighLightFill.Label || label == menu_node::HighLightFrame.Label ||
                      label == menu_node::HighLightRounded.Label;
  if (!isFlag) return false;
  if (value != u"0" && value != u"1") return Refuse(context);
  return node.Caption() == label + value || ToggleValue(context, node.Key());
}

bool EditColor(EditContext& context, const ProjectNode& node, const QString& value) {
  const QStringList parts = value.split(u',');
  for (const QString& part : parts) {
    if (parts.size() != 3 || !NumberWithin(part, 0, 255)) return Refuse(context);
  }
  Store(context.project, node.Key(), LabelOf(node) + ColorToRGBString(RGBStringToColor(value)));
  return true;
}

/// Text of a button or label; the size follows unless it is fixed.
bool EditText(EditContext& context, const QString& menu, const QString& element, const QString& value) {
  Project& project = context.project;
  ProjectTree& tree = project.Tree;
  const NodeView view(tree, element);
  const bool fixedSize = view.Flag(element_node::FixedSize);
  if (value.isEmpty() && !fixedSize) {
    context.prompter.Inform(GetMessage(380));
    return false;
  }
  const QString text = NormalizeLineBreaks(value);
  const QString drawingKey = CoordinatesKey(menu, element);
  const TextGeometry geometry = DrawingView(tree, drawingKey).Geometry();
  const QSize needed = context.measure({.Name = geometry.FontName,
                                        .Size = geometry.FontSize,
                                        .Bold = geometry.Bold,
                                        .Italic = geometry.Italic,
                                        .Strikethrough = geometry.Strikethru,
                                        .Underline = geometry.Underline},
                                       text);
  Edit edit(project, u"Edit text"_s);
  PlaceKeeper places(project, menu);
  tree.SetCaption(ElementNodeKey(element, element_node::Text), element_node::Text.Label + text);
  if (!fixedSize) {
    SetCoordinate(tree, drawingKey, drawing_node::Width, needed.width());
    SetCoordinate(tree, drawingKey, drawing_node::Height, needed.height());
  } else if (needed.width() > geometry.Width || needed.height() > geometry.Height) {
    context.prompter.Inform(GetMessage(138));
  }
  places.Update();
  edit.Commit();
  return true;
}

/// Actions belong to the advanced mode, but for a button that has none yet. Play all stays what it is.
bool EditAction(EditContext& context, const ProjectNode& node, const QString& value) {
  constexpr qsizetype kShortestAction = 2;
  Project& project = context.project;
  const Settings& settings = project.Settings;
  const QString former = node.Value(element_node::Action.Label.size());
  if (former == u"Play_all" || (!former.isEmpty() && !settings.AdvancedMode)) return false;
  if (value.size() < kShortestAction) {
    context.prompter.Inform(GetMessage(660));
    return false;
  }
  if (value.contains(u"g1=") && !settings.NoShowTitleSetMenu && !settings.NoTitleSets) {
    context.prompter.Warn(GetMessage(601));
  }
  Store(project, node.Key(), element_node::Action.Label + value);
  return true;
}

}  // namespace

QRect RectangleOf(const ProjectTree& tree, const QString& menu, const QString& element) {
  const NodeView view(tree, CoordinatesKey(menu, element));
  const bool isImage = view.Has(element_node::HSize);
  return {WithinReach(view.Integer(drawing_node::Left, 0)), WithinReach(view.Integer(drawing_node::Top, 0)),
          WithinReach(view.Integer(isImage ? element_node::HSize : drawing_node::Width, 0)),
          WithinReach(view.Integer(isImage ? element_node::VSize : drawing_node::Height, 0))};
}

void PlaceElements(Project& project, const QString& menu, const QStringList& elements,
                   const std::vector<QPoint>& positions) {
  // An element on its way may cover one that has not moved yet: that makes no group.
  QList<QStringList> groups;
  for (const QString& element : elements) groups << QStringList(element) + PartnersOf(project, menu, element);
  for (qsizetype i = 0; i < groups.size(); ++i) {
    for (const QString& member : groups[i]) WritePosition(project.Tree, menu, member, positions[std::size_t(i)]);
  }
}

bool ToggleValue(EditContext& context, const QString& key) {
  const ProjectNode* node = context.project.Tree.Find(key);
  if (!node) return false;
  const QString label = LabelOf(*node);
  const bool turnsOn = !node->Caption().endsWith(u'1');
  if (label == menu_node::HighLightFill.Label) {
    if (!turnsOn && !(node->Next() && node->Next()->Caption() == u"Frame=1")) return false;
  } else if (label == menu_node::HighLightFrame.Label) {
    const ProjectNode* first = node->Parent() ? node->Parent()->FirstChild() : nullptr;
    if (!turnsOn && !(first && first->Caption() == u"Fill=1")) return false;
  } else if (label != menu_node::HighLightRounded.Label) {
    return false;
  }
  Store(context.project, key, label + (turnsOn ? u'1' : u'0'));
  return true;
}

bool EditValue(EditContext& context, const QString& key, const QString& value) {
  Project& project = context.project;
  const ProjectNode* node = project.Tree.Find(key);
  if (!node) return false;
  switch (node->Image()) {
    case kInPlaceNode:
      return EditInPlace(context, *node, value);
    case kBackgroundNode:
      Store(project, key, menu_node::BackgroundPath.Label + value);
      return true;
    case kColorNode:
      return EditColor(context, *node, value);
    default:
      break;
  }
  const QString menu = MenuOfNode(project.Tree, key);
  const QString element = ElementOf(project.Tree, menu, key);
  if (element.isEmpty()) return false;
  if (key == ElementNodeKey(element, element_node::Text)) return EditText(context, menu, element, value);
  if (key == ElementNodeKey(element, element_node::Action)) return EditAction(context, *node, value);
  return false;
}

}  // namespace torvane
