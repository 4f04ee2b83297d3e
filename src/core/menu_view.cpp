#include "core/menu_view.h"

#include <algorithm>

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

double NodeView::Number(Attribute attribute, double absent) const {
  const std::optional<QString> text = Text(attribute);
  return text ? Val(*text) : absent;
}

int NodeView::Integer(Attribute attribute, int absent) const {
  const std::optional<QString> text = Text(attribute);
  return text ? ValToInt(*text) : absent;
}

std::optional<QString> NodeView::TextOf(const QString& key, Attribute attribute) const {
  const ProjectNode* node = tree_->Find(key);
  if (!node) return std::nullopt;
  return node->Value(attribute.Label.size());
}

QString NodeView::TagOf(const QString& key) const {
  const ProjectNode* node = tree_->Find(key);
  return node ? node->Tag() : QString();
}

TextGeometry DrawingView::Geometry() const {
  using namespace drawing_node;
  TextGeometry geometry;
  geometry.Left = Integer(Left, 0);
  geometry.Top = Integer(Top, 0);
  geometry.Width = Integer(Width, 0);
  geometry.Height = Integer(Height, 0);
  const int align = Integer(Align, 0);
  geometry.Align = align == 1 ? TextAlign::Right : align == 2 ? TextAlign::Centre : TextAlign::Left;
  geometry.FontName = Text(Font).value_or(QString());
  geometry.FontSize = Number(FontSize, 0);
  geometry.Bold = Flag(FontBold);
  geometry.Italic = Flag(FontItalic);
  geometry.Strikethru = Flag(FontStrikethru);
  geometry.Underline = Flag(FontUnderline);
  return geometry;
}

QString DrawingView::ColorCaption() const {
  const ProjectNode* node = Tree().Find(Key() + drawing_node::Color.Suffix);
  return node ? node->Caption() : QString();
}

std::optional<QString> DrawingView::OutlineCaption() const {
  const ProjectNode* node = Tree().Find(Key() + drawing_node::Outline.Suffix);
  if (!node) return std::nullopt;
  return node->Caption();
}

namespace {

/// The attribute of a mask that the element has. Files of other makers carry the short form of the key, which lacks
/// the group's "GifMask".
Attribute MaskAttribute(const NodeView& element, Attribute attribute) {
  if (element.Has(attribute)) return attribute;
  return {attribute.Suffix.sliced(element_node::GifMask.Suffix.size()), attribute.Label};
}

}  // namespace

std::optional<MaskGeometry> ReadMask(const NodeView& element) {
  using namespace element_node;
  const Attribute file = MaskAttribute(element, MaskFile);
  const Attribute relSize = MaskAttribute(element, MaskRelSize);
  if (!element.Has(file)) return std::nullopt;
  MaskGeometry mask;
  mask.Path = element.Tag(file);
  mask.HasRelSize = element.Has(relSize);
  mask.RelSize = element.Number(relSize, 100);
  mask.XOffset = element.Number(MaskAttribute(element, MaskXOffset), 0);
  mask.YOffset = element.Number(MaskAttribute(element, MaskYOffset), 0);
  return mask;
}

int ButtonView::UseHigh() const { return Integer(MaskAttribute(*this, element_node::MaskUseHigh), -1); }

std::optional<MaskGeometry> ButtonView::Mask() const { return ReadMask(*this); }

std::optional<MaskGeometry> PictureView::Mask() const { return ReadMask(*this); }

QString MenuView::Name() const {
  const ProjectNode* root = Tree().Find(Key());
  return root ? root->Caption() : QString();
}

template <class Make>
auto MenuView::Elements(Attribute group, Make make) const {
  std::vector<decltype(make(QString(), 0))> elements;
  const QString groupKey = MenuNodeKey(Key(), group);
  const ProjectNode* node = Tree().Find(groupKey);
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) {
    const int number = ElementNumber(node->Key(), groupKey);
    if (number >= 0) elements.push_back(make(node->Key(), number));
  }
  return elements;
}

std::vector<ButtonView> MenuView::Buttons() const {
  return Elements(menu_node::Buttons, [this](const QString& key, int number) {
    return ButtonView(Tree(), key, number, ButtonPropertiesKey(Key(), number));
  });
}

std::vector<LabelView> MenuView::Labels() const {
  return Elements(menu_node::Labels, [this](const QString& key, int index) {
    return LabelView(Tree(), key, index, LabelPropertiesKey(Key(), index));
  });
}

std::vector<PictureView> MenuView::Images() const {
  return Elements(menu_node::Images, [this](const QString& key, int number) { return PictureView(Tree(), key, number); });
}

std::vector<PictureView> MenuView::Animations() const {
  return Elements(menu_node::Animations,
                  [this](const QString& key, int number) { return PictureView(Tree(), key, number); });
}

std::vector<QString> MenuView::SubMenuKeys() const {
  std::vector<QString> keys;
  const ProjectNode* node = Tree().Find(MenuNodeKey(Key(), menu_node::SubMenus));
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) keys.push_back(node->Tag());
  return keys;
}

std::optional<ButtonView> MenuView::AutoActionButton() const {
  if (!IsSwitched()) return std::nullopt;
  std::optional<ButtonView> autoButton;
  for (const ButtonView& button : Buttons()) {
    if (button.IsWritten() && button.IsAutoAction()) autoButton = button;
  }
  if (!autoButton || autoButton->Text(element_node::ActionLeft).value_or(QString()).isEmpty()) return std::nullopt;
  return autoButton;
}

QString MenuView::LoopState() const {
  if (!Flag(menu_node::BackgroundLoop)) return u"inf"_s;
  return Number(menu_node::BackgroundLoop, 0) == 1 ? u"0"_s : QString();
}

QString MenuView::Pause() const {
  const Attribute attribute = IsAdditionalMenu(Key()) ? menu_node::Pause : menu_node::BackgroundPause;
  const std::optional<QString> pause = Text(attribute);
  return pause ? *pause : LoopState();
}

QString MenuView::Type() const {
  return IsMainSubMenu(Key()) ? kPlainSubMenu.toString() : Text(menu_node::Type).value_or(kPlainSubMenu.toString());
}

MenuAspect MenuView::Aspect() const {
  QString owner = Key();
  if (IsSubMenu(owner)) {
    // The caption of a titleset submenu, "TS1SubMenu2", begins with the key of its titleset.
    owner = Name().left(4);
    if (owner.size() == 4 && owner.endsWith(u'S')) owner.chop(1);
  }
  if (!owner.startsWith(u"TS")) return MenuAspect::ProjectDefault;
  const std::optional<QString> aspect = NodeView(Tree(), owner).Text(menu_node::BackgroundAspect);
  if (!aspect) return MenuAspect::ProjectDefault;
  return Val(*aspect) == 1 ? MenuAspect::Wide16x9 : MenuAspect::Standard4x3;
}

QSize MenuView::Raster() const {
  constexpr int kRaster = 16;
  constexpr int kLeast = 2;
  return {std::max(Integer(menu_node::BackgroundRasterX, kRaster), kLeast),
          std::max(Integer(menu_node::BackgroundRasterY, kRaster), kLeast)};
}

bool MenuView::IsWide(const Settings& settings) const {
  const MenuAspect aspect = Aspect();
  return aspect == MenuAspect::Wide16x9 || (aspect == MenuAspect::ProjectDefault && settings.DefMenuRatio);
}

bool MenuView::HasTransition() const {
  return Flag(IsAdditionalMenu(Key()) ? menu_node::Transition : menu_node::BackgroundTransition);
}

bool MenuView::IsAnimated(const Settings& settings) const {
  if (HasTransition()) return true;
  if (!settings.AnimatedMainMenu) return false;
  const ProjectNode* animations = Tree().Find(MenuNodeKey(Key(), menu_node::Animations));
  return Has(menu_node::BackgroundAnimation) || (animations && animations->FirstChild());
}

}  // namespace torvane
