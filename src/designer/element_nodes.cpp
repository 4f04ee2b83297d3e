#include "designer/element_nodes.h"

#include <array>

#include "core/text.h"
#include "designer/menu_frame.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::array<std::pair<ButtonKind, QStringView>, 7> kKinds{{
    {ButtonKind::Film, u"FilmButton"},
    {ButtonKind::Menu, u"MenuButton"},
    {ButtonKind::PlayList, u"PlayListButton"},
    {ButtonKind::Chapter, u"ChapterButton"},
    {ButtonKind::Title, u"TitleButton"},
    {ButtonKind::Free, u"FreeButton"},
    {ButtonKind::Back, u"BackButton"},
}};

constexpr int kKeptInside = 16;  ///< pixels from the frame's edge that elements stay away
constexpr int kLabelDistance = 18;

QString Flag(bool value) {
  return value ? u"1"_s : u"0"_s;
}

/// Adds children to one node; the keys continue its key.
class ElementBuilder {
 public:
  ElementBuilder(ProjectTree& tree, QString parent) : tree_(tree), parent_(std::move(parent)) {}

  void Value(Attribute attribute, const QString& value, const QString& tag = {}, int image = kPlainNode) {
    tree_.Add({parent_ + attribute.Suffix, attribute.Label + value, tag, image}, parent_, Relation::Child);
  }
  void Coordinate(Attribute attribute, int value, int image = kPlainNode) {
    Value(attribute, QString::number(value), QString::number(value), image);
  }
  void Position(QPoint position) {
    Coordinate(drawing_node::Left, position.x(), kInPlaceNode);
    Coordinate(drawing_node::Top, position.y(), kInPlaceNode);
  }
  void Size(const QSize& size) {
    Coordinate(drawing_node::Width, size.width());
    Coordinate(drawing_node::Height, size.height());
  }
  void Font(const FontRecord& font) {
    constexpr QStringView kAnsiCharacterSet = u"0";
    using namespace drawing_node;
    Value(drawing_node::Font, font.Name, kAnsiCharacterSet.toString());
    Value(FontSize, FormatNumberDot(font.Size));
    Value(FontBold, Flag(font.Bold));
    Value(FontItalic, Flag(font.Italic));
    Value(FontStrikethru, Flag(font.Strikethrough));
    Value(FontUnderline, Flag(font.Underline));
  }
  /// "r,g,b" of an effect text "r;g;b;flag;", when its flag is set.
  void Outline(const QString& effect) {
    if (GetField(effect, 4) == 0) return;
    Value(drawing_node::Outline, effect.section(u';', 0, 2).replace(u';', u','));
  }

 private:
  ProjectTree& tree_;
  QString parent_;
};

/// Lowest number from `first` to `last` whose key is free; `last` when none is.
template <class Key>
int FreeNumber(const ProjectTree& tree, int first, int last, Key key) {
  for (int number = first; number < last; ++number) {
    if (!tree.Contains(key(number))) return number;
  }
  return last;
}

/// Everything that differs between the buttons which the builders make.
struct ButtonLook {
  QString text;
  QRect rectangle;
  bool fixedSize = false;
  bool normVis = true;
  int align = 0;
  QString outline;
  GifMaskRecord mask;
};

void AddButton(Project& project, const QString& menu, int number, const NodeData& head, const QString& action,
               const ButtonLook& look) {
  ProjectTree& tree = project.Tree;
  const Settings& settings = project.Settings;
  const QString group = MenuNodeKey(menu, menu_node::Buttons);
  const QString back = ButtonKey(menu, kBackButton);
  const ProjectNode* backNode = tree.Find(back);
  if (number != kBackButton && backNode && backNode->Caption().contains(u"BackButton")) {
    tree.Add(head, back, Relation::Previous);
  } else {
    tree.Add(head, group, Relation::Child);
  }
  ElementBuilder element(tree, head.Key);
  element.Value(element_node::Text, NormalizeLineBreaks(look.text));
  element.Value(element_node::Action, action);
  element.Value(element_node::FixedSize, Flag(look.fixedSize));
  WriteMask(project, head.Key, look.mask, MaskPath(look.mask.File, settings));

  const QString properties = ButtonPropertiesKey(menu, number);
  tree.Add({properties, u"Properties"_s}, head.Key, Relation::Child);
  ElementBuilder drawing(tree, properties);
  drawing.Value(drawing_node::NormVis, Flag(look.normVis));
  drawing.Outline(look.outline);
  drawing.Value(drawing_node::Align, QString::number(look.align));
  drawing.Value(drawing_node::Color, ColorToRGBString(settings.DefTextColor));
  drawing.Position(look.rectangle.topLeft());
  drawing.Size(look.rectangle.size());
  drawing.Font(settings.DefaultFont);
}

}  // namespace

QStringView KindWord(ButtonKind kind) {
  for (const auto& [each, word] : kKinds) {
    if (each == kind) return word;
  }
  return {};
}

std::optional<ButtonKind> KindOf(QStringView caption) {
  for (const auto& [kind, word] : kKinds) {
    if (caption.startsWith(word)) return kind;
  }
  return std::nullopt;
}

ButtonStyle StyleOf(const Settings& settings) {
  if (settings.TextButtons == 1) return ButtonStyle::Text;
  return settings.TextButtons == 2 ? ButtonStyle::Combined : ButtonStyle::Graphic;
}

int AddButtonNodes(Project& project, const QString& menu, const NewButton& button, const TextMeasure& measure) {
  const Settings& settings = project.Settings;
  const int number = FreeNumber(project.Tree, 1, kMaxButtons, [&menu](int n) { return ButtonKey(menu, n); });
  const bool isText = button.style == ButtonStyle::Text;
  ButtonLook look;
  look.text = isText ? button.text : QString();
  look.rectangle = QRect(button.position, isText ? measure(settings.DefaultFont, NormalizeLineBreaks(button.text))
                                                 : QSize(settings.ImageSizeX, settings.ImageSizeY));
  look.fixedSize = !isText;
  look.normVis = isText;
  look.align = settings.DefTextAlign;
  look.outline = settings.DefBOutline;
  look.mask = isText ? settings.DefTextButtonGif : settings.DefGraphButtonGif;
  const QString tag = button.tag.isEmpty() ? QString::number(number) : button.tag;
  AddButton(project, menu, number, {ButtonKey(menu, number), KindWord(button.kind).toString(), tag, kHeadNode},
            button.action, look);
  RenumberButtons(project, menu, button.kind);
  if (button.style == ButtonStyle::Combined && !button.text.isEmpty()) {
    const QSize size = measure(settings.DefaultFont, NormalizeLineBreaks(button.text));
    AddLabelNodes(project, menu, {.text = button.text, .position = ButtonLabelPosition(look.rectangle, size, settings)},
                  measure);
  }
  return number;
}

void AddBackButton(Project& project, const QString& menu, const QString& text, const QString& action,
                   const TextMeasure& measure) {
  const Settings& settings = project.Settings;
  const bool isText = settings.BackButtonIsText;
  ButtonLook look;
  look.text = isText ? text : QString();
  look.fixedSize = !isText;
  look.normVis = isText;
  look.align = int(TextAlign::Centre);
  look.outline = settings.DefBBOutline;
  look.mask = settings.DefBackButtonGif;
  look.rectangle = QRect(QPoint(settings.BackButtonXpos, settings.BackButtonYpos),
                         isText ? measure(settings.DefaultFont, NormalizeLineBreaks(text))
                                : QSize(settings.BackButtonWidth, settings.BackButtonHeight));

  // Where TVs still show the button: 10 pixels from the frame at the least, moved in farther than that.
  constexpr int kRightmost = 710;
  constexpr int kMovedRight = 694;
  const int height = MenuHeight(settings);
  const QSize size = look.rectangle.size();
  if (look.rectangle.x() + size.width() > kRightmost) look.rectangle.moveLeft(kMovedRight - size.width());
  if (look.rectangle.y() + size.height() > height - 10) {
    look.rectangle.moveTop(height - size.height() - (isText ? 20 : 18));
  }
  AddButton(
      project, menu, kBackButton,
      {ButtonKey(menu, kBackButton), KindWord(ButtonKind::Back).toString(), QString::number(kBackButton), kHeadNode},
      action, look);
}

int AddLabelNodes(Project& project, const QString& menu, const NewLabel& label, const TextMeasure& measure) {
  ProjectTree& tree = project.Tree;
  const Settings& settings = project.Settings;
  const int index = FreeNumber(tree, kFirstLabel, kLastLabel, [&menu](int n) { return LabelKey(menu, n); });
  const QString key = LabelKey(menu, index);
  const QString text = NormalizeLineBreaks(label.text);
  tree.Add({key, u"Label%1"_s.arg(index - kMaxButtons), QString::number(index), kHeadNode},
           MenuNodeKey(menu, menu_node::Labels), Relation::Child);
  ElementBuilder element(tree, key);
  element.Value(element_node::Text, text);
  if (!label.fixedSize.isEmpty()) element.Value(element_node::FixedSize, u"1"_s);

  const QString properties = LabelPropertiesKey(menu, index);
  tree.Add({properties, u"Properties"_s}, key, Relation::Child);
  ElementBuilder drawing(tree, properties);
  if (GetField(settings.DefShadow, 4) != 0) drawing.Value(drawing_node::Shadow, u"1"_s);
  if (GetField(settings.DefBlock, 4) != 0) drawing.Value(drawing_node::Block, u"1"_s);
  drawing.Outline(settings.DefOutline);
  drawing.Value(drawing_node::Align, QString::number(settings.DefTextAlign));
  drawing.Value(drawing_node::Color, ColorToRGBString(settings.DefTextColor));
  drawing.Position(label.position);
  drawing.Size(label.fixedSize.isEmpty() ? measure(settings.DefaultFont, text) : label.fixedSize);
  drawing.Font(settings.DefaultFont);
  return index;
}

QPoint ButtonLabelPosition(const QRect& graphic, const QSize& label, const Settings& settings) {
  enum { Right, Below, Left, Above };
  const int height = MenuHeight(settings);
  const int middleX = graphic.x() + (graphic.width() - label.width()) / 2;
  const int middleY = graphic.y() + (graphic.height() - label.height()) / 2;
  const int right = graphic.x() + graphic.width() + kLabelDistance;
  const int left = graphic.x() - kLabelDistance - label.width();
  const int below = graphic.y() + graphic.height() + kLabelDistance;
  const int above = graphic.y() - kLabelDistance - label.height();
  const bool fitsRight = right + label.width() <= kMenuWidth - kKeptInside;
  const bool fitsBelow = below + label.height() <= height - kKeptInside;
  switch (settings.DefLabelPos) {
    case Below:
      return {middleX, fitsBelow ? below : above};
    case Left:
      return {left >= kKeptInside ? left : right, middleY};
    case Above:
      return {middleX, above >= kKeptInside ? above : below};
    default:
      return {fitsRight ? right : left, middleY};
  }
}

int AddImageNodes(Project& project, const QString& menu, const QString& path, QPoint position) {
  ProjectTree& tree = project.Tree;
  const Settings& settings = project.Settings;
  const int number = FreeNumber(tree, 1, kMaxPictures, [&menu](int n) { return ImageKey(menu, n); });
  const QString key = ImageKey(menu, number);
  tree.Add({key, u"Image%1"_s.arg(number), QString::number(number), kHeadNode}, MenuNodeKey(menu, menu_node::Images),
           Relation::Child);
  ElementBuilder element(tree, key);
  element.Value(element_node::File, path);
  element.Coordinate(element_node::HSize, settings.ImageSizeX);
  element.Coordinate(element_node::VSize, settings.ImageSizeY);
  element.Position(position);
  WriteMask(project, key, settings.DefImagGif, MaskPath(settings.DefImagGif.File, settings));
  return number;
}

int AddAnimationNodes(Project& project, const QString& menu, const NewAnimation& animation) {
  ProjectTree& tree = project.Tree;
  const Settings& settings = project.Settings;
  const QString group = MenuNodeKey(menu, menu_node::Animations);
  if (!tree.Contains(group)) tree.Add({group, menu_node::Animations.Label.toString()}, menu, Relation::Child);
  const int number = FreeNumber(tree, 1, kMaxPictures, [&menu](int n) { return AnimationKey(menu, n); });
  const QString key = AnimationKey(menu, number);
  tree.Add({key, u"Ani=" + animation.video, u"%1"_s.arg(number, 2, 10, QChar(u'0')), kHeadNode}, group,
           Relation::Child);

  const QSize size = animation.size.isEmpty() ? QSize(settings.ImageSizeX, settings.ImageSizeY) : animation.size;
  const QPoint corner(kMenuWidth - kKeptInside - settings.ImageSizeX,
                      MenuHeight(settings) - kKeptInside - settings.ImageSizeY);
  const bool isAvi = GetExtensionUpper(animation.video) == u"AVI";
  ElementBuilder element(tree, key);
  element.Value(element_node::Image,
                animation.picture.isEmpty() ? QString(settings.AppPath + u"\\avisynthpic.gif") : animation.picture,
                QString::number(number));
  element.Position(animation.position.value_or(corner));
  element.Size(size);
  element.Value(element_node::Crop, settings.AutoCrop && !isAvi ? settings.AutoCropVal : u"0"_s);
  WriteMask(project, key, settings.DefAnimGif, MaskPath(settings.DefAnimGif.File, settings));
  return number;
}

QString MaskPath(const QString& file, const Settings& settings) {
  const QString found = FindGifMask(file, settings.AppPath, settings.OwnGifMaskDir);
  return found.isEmpty() ? QString(settings.AppPath + u"\\GifMask\\" + file) : found;
}

void WriteMask(Project& project, const QString& element, const GifMaskRecord& mask, const QString& path) {
  ProjectTree& tree = project.Tree;
  const QString key = element + element_node::GifMask.Suffix;
  tree.Remove(key);
  if (!mask.Enabled) return;
  const NodeData head{key, u"GifMask=1"_s};
  // The mask of a button stands in front of its properties, that of a picture is its last child.
  const QString fixedSize = element + element_node::FixedSize.Suffix;
  const bool isButton = tree.Contains(element + element_node::Action.Suffix);
  if (isButton && tree.Contains(fixedSize)) {
    tree.Add(head, fixedSize, Relation::Next);
  } else {
    tree.Add(head, element, Relation::Child);
  }
  const auto add = [&](Attribute attribute, const QString& value, const QString& tag = {}) {
    tree.Add({element + attribute.Suffix, attribute.Label + value, tag}, key, Relation::Child);
  };
  add(element_node::MaskFile, mask.File, path);
  add(element_node::MaskRelSize, FormatNumberDot(mask.RelSize));
  add(element_node::MaskXOffset, QString::number(mask.XOffset));
  add(element_node::MaskYOffset, QString::number(mask.YOffset));
  if (isButton) add(element_node::MaskUseHigh, QString::number(mask.Highlight));
}

bool SetAutoAction(Project& project, const QString& menu, int button, const std::optional<AutoActions>& actions) {
  ProjectTree& tree = project.Tree;
  const QString key = ButtonKey(menu, button);
  const QString mark = key + element_node::AutoAction.Suffix;
  const QString group = MenuNodeKey(menu, menu_node::Buttons);
  if (!actions) {
    if (tree.Remove(mark)) tree.SetTag(group, {});
    return true;
  }
  for (const ButtonView& other : MenuView(tree, menu).Buttons()) {
    if (other.Key() != key && other.IsAutoAction()) return false;
  }
  tree.Remove(mark);
  tree.Add({mark, u"AutoAction=1"_s}, key + element_node::Action.Suffix, Relation::Next);
  const auto add = [&](Attribute attribute, const QString& value) {
    tree.Add({key + attribute.Suffix, attribute.Label + value}, mark, Relation::Child);
  };
  add(element_node::ActionLeft, actions->Left);
  add(element_node::ActionRight, actions->Right);
  add(element_node::ActionUp, actions->Up);
  add(element_node::ActionDown, actions->Down);
  tree.SetTag(group, u"1"_s);
  return true;
}

void RemoveButtonNodes(Project& project, const QString& menu, int button) {
  SetAutoAction(project, menu, button, std::nullopt);
  project.Tree.Remove(ButtonKey(menu, button));
}

void RenumberButtons(Project& project, const QString& menu, ButtonKind kind) {
  if (kind == ButtonKind::Back) return;
  const QString word = KindWord(kind).toString();
  int ordinal = 0;
  const ProjectNode* node = project.Tree.Find(MenuNodeKey(menu, menu_node::Buttons));
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) {
    if (node->Caption().startsWith(word)) project.Tree.SetCaption(node->Key(), word + QString::number(++ordinal));
  }
}

void SetCoordinate(ProjectTree& tree, const QString& key, Attribute attribute, int value) {
  const QString node = key + attribute.Suffix;
  tree.SetCaption(node, attribute.Label + QString::number(value));
  tree.SetTag(node, QString::number(value));
}

QString CoordinatesKey(const QString& menu, const QString& element) {
  if (const int button = ElementNumber(element, MenuNodeKey(menu, menu_node::Buttons)); button >= 0) {
    return ButtonPropertiesKey(menu, button);
  }
  if (const int label = ElementNumber(element, MenuNodeKey(menu, menu_node::Labels)); label >= 0) {
    return LabelPropertiesKey(menu, label);
  }
  return element;
}

}  // namespace torvane
