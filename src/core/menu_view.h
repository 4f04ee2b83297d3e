#pragma once

#include <QSize>
#include <QString>
#include <optional>
#include <vector>

#include "core/keys.h"
#include "core/project_tree.h"
#include "core/settings.h"

namespace torvane {

/// Typed reading of one group of nodes: the value behind a label, or what stands for an absent node. A view holds no
/// copy; it is valid as long as its tree is.
class NodeView {
 public:
  NodeView(const ProjectTree& tree, QString key) : tree_(&tree), key_(std::move(key)) {}

  const QString& Key() const { return key_; }
  const ProjectTree& Tree() const { return *tree_; }
  bool Exists() const { return tree_->Contains(key_); }

  /// Value of the node with this view's key and the attribute's suffix.
  std::optional<QString> Text(Attribute attribute) const { return TextOf(key_ + attribute.Suffix, attribute); }
  double Number(Attribute attribute, double absent) const;
  int Integer(Attribute attribute, int absent) const;
  /// A flag of "0" and an absent node read alike.
  bool Flag(Attribute attribute) const { return Number(attribute, 0) != 0; }
  bool Has(Attribute attribute) const { return tree_->Contains(key_ + attribute.Suffix); }
  QString Tag(Attribute attribute) const { return TagOf(key_ + attribute.Suffix); }

 protected:
  std::optional<QString> TextOf(const QString& key, Attribute attribute) const;
  QString TagOf(const QString& key) const;

 private:
  const ProjectTree* tree_;
  QString key_;
};

enum class TextAlign { Left = 0, Right = 1, Centre = 2 };

/// How an element's text is drawn and where it stands, in pixels of the 720 by MenuHeight frame. Font sizes are points.
struct TextGeometry {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;
  TextAlign Align = TextAlign::Left;
  QString FontName;
  double FontSize = 0;
  bool Bold = false;
  bool Italic = false;
  bool Strikethru = false;
  bool Underline = false;
  bool operator==(const TextGeometry&) const = default;
};

/// The properties node of a button or label.
class DrawingView : public NodeView {
 public:
  using NodeView::NodeView;

  TextGeometry Geometry() const;
  QString ColorCaption() const;                   ///< "Color=r,g,b", for RGBStringToColor
  std::optional<QString> OutlineCaption() const;  ///< "Outline=r,g,b"
};

/// A mask: a picture put behind or over an element.
struct MaskGeometry {
  QString Path;
  double RelSize = 100;  ///< percent of the element's size
  double XOffset = 0;
  double YOffset = 0;
  bool HasRelSize = false;  ///< a mask without one has no rectangle
};

class ButtonView : public NodeView {
 public:
  /// `properties` is the key of its properties node.
  ButtonView(const ProjectTree& tree, QString key, int number, QString properties)
      : NodeView(tree, std::move(key)), number_(number), drawing_(tree, std::move(properties)) {}

  int Number() const { return number_; }
  const DrawingView& Drawing() const { return drawing_; }

  QString Caption() const { return Text(element_node::Text).value_or(QString()); }
  std::optional<QString> Action() const { return Text(element_node::Action); }
  bool IsAutoAction() const { return Has(element_node::AutoAction); }
  bool NormVis() const { return drawing_.Flag(drawing_node::NormVis); }
  /// Highlight mode of the mask, 0 to 3; -1 without one.
  int UseHigh() const;
  std::optional<MaskGeometry> Mask() const;

  /// False for one blank as text without mask highlight and normal visibility: such a button draws nothing and has
  /// no entry in any control file.
  bool ExistsOnDisc() const { return Caption() != u" " || UseHigh() >= 0 || NormVis(); }
  /// True when control files have lines for this button.
  bool IsWritten() const { return ExistsOnDisc() && Has(element_node::Action); }

 private:
  using NodeView::Number;

  int number_;
  DrawingView drawing_;
};

class LabelView : public NodeView {
 public:
  LabelView(const ProjectTree& tree, QString key, int index, QString properties)
      : NodeView(tree, std::move(key)), index_(index), drawing_(tree, std::move(properties)) {}

  int Index() const { return index_; }
  const DrawingView& Drawing() const { return drawing_; }
  QString Caption() const { return Text(element_node::Text).value_or(QString()); }

 private:
  int index_;
  DrawingView drawing_;
};

/// A picture or an animation of a menu.
class PictureView : public NodeView {
 public:
  PictureView(const ProjectTree& tree, QString key, int number) : NodeView(tree, std::move(key)), number_(number) {}

  int Number() const { return number_; }
  std::optional<MaskGeometry> Mask() const;

 private:
  using NodeView::Number;

  int number_;
};

/// The mask of a button, picture or animation; nothing without one.
std::optional<MaskGeometry> ReadMask(const NodeView& element);

inline constexpr QStringView kPlainSubMenu = u"SubMenu";  ///< type of a submenu that no key of the remote control opens

enum class MenuAspect { ProjectDefault = 0, Standard4x3 = 1, Wide16x9 = 2 };

/// A menu as data.
class MenuView : public NodeView {
 public:
  using NodeView::NodeView;

  /// The caption of the menu's root node.
  QString Name() const;

  std::vector<ButtonView> Buttons() const;     ///< in tree order
  std::vector<LabelView> Labels() const;       ///< in tree order
  std::vector<PictureView> Images() const;     ///< in tree order
  std::vector<PictureView> Animations() const;  ///< in tree order
  std::vector<QString> SubMenuKeys() const;    ///< of the "SubMenus" group, in tree order

  /// True for a menu of which one button acts at once when it is reached.
  bool IsSwitched() const { return Tag(menu_node::Buttons) == u"1"; }

  /// The button of a switched menu that acts at once, whose four directions are pseudo buttons of the control files.
  /// Nothing when no such button is written, or when it has no left action; a menu then counts as not switched.
  std::optional<ButtonView> AutoActionButton() const;

  /// "0" for a looping menu, "inf" for one that waits, "" for any other loop value.
  QString LoopState() const;
  /// Pause of the menu; without one of its own the loop state.
  QString Pause() const;
  /// The type that the menu is made as: "SubMenu" when there is none, and for every submenu of the main menu, which can
  /// have no other.
  QString Type() const;

  /// Steps of the menu's own raster in pixels, each at least 2; 16 where it has none.
  QSize Raster() const;

  MenuAspect Aspect() const;
  /// True when the menu is shown in 16:9.
  bool IsWide(const Settings& settings) const;

  /// Action text of the transition; empty without one, and "0" is none.
  bool HasTransition() const;

  /// True for a menu whose picture moves: a transition, or with animated menus a background video or animations.
  bool IsAnimated(const Settings& settings) const;

 private:
  template <class Make>
  auto Elements(Attribute group, Make make) const;
};

}  // namespace torvane
