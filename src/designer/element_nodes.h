#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <functional>
#include <optional>

#include "core/gif_mask.h"
#include "core/menu_view.h"
#include "core/project.h"

namespace torvane {

/// Size of a button or label that follows its text: width of the widest line and 5 pixels, height of the lines and 3.
/// Drawing is none of this room's business, so whoever has fonts passes the measure in.
using TextMeasure = std::function<QSize(const FontRecord& font, const QString& text)>;

enum class ButtonKind { Film, Menu, PlayList, Chapter, Title, Free, Back };

/// "FilmButton", "MenuButton", ...: the word that a button's caption begins with.
QStringView KindWord(ButtonKind kind);

/// The kind of a button from its caption; nothing for a caption of none.
std::optional<ButtonKind> KindOf(QStringView caption);

/// How a new button looks; the values are those of the setting `TextButtons`.
enum class ButtonStyle { Graphic = 0, Text = 1, Combined = 2 };
ButtonStyle StyleOf(const Settings& settings);

struct NewButton {
  ButtonKind kind = ButtonKind::Free;
  QString text = {};  ///< not shown by a graphic button; a combined one has it in a label beside
  QString action = {};
  QPoint position = {};
  ButtonStyle style = ButtonStyle::Text;
  QString tag = {};  ///< of the head; the button's number when empty
};

// The builders add nodes and test nothing: the limits are the business of the operation. Every text has its line
// breaks as CR LF in the nodes.

/// Adds a button with the lowest free number, in front of the Back button, and counts the captions of its kind anew.
/// Returns its number.
int AddButtonNodes(Project& project, const QString& menu, const NewButton& button, const TextMeasure& measure);

/// Adds the Back button of a menu, as the settings have it, moved in where it would stand too far out.
void AddBackButton(Project& project, const QString& menu, const QString& text, const QString& action,
                   const TextMeasure& measure);

struct NewLabel {
  QString text = {};
  QPoint position = {};
  QSize fixedSize = {};  ///< empty: the size follows the text
};

/// Adds a free text with the first free number from 37 on. Returns the number.
int AddLabelNodes(Project& project, const QString& menu, const NewLabel& label, const TextMeasure& measure);

/// Where the label of a combined button stands: 18 pixels beside the graphic on the side that `DefLabelPos` names,
/// centred on it, or on the other side where it would leave the area that elements are kept in.
QPoint ButtonLabelPosition(const QRect& graphic, const QSize& label, const Settings& settings);

/// Adds a picture of the default size. Returns its number.
int AddImageNodes(Project& project, const QString& menu, const QString& path, QPoint position);

struct NewAnimation {
  QString video = {};
  QString picture = {};            ///< shown on the canvas; the placeholder when empty
  std::optional<QPoint> position = {};  ///< the lower right corner of the menu when missing
  QSize size = {};                 ///< the default size when empty
};

/// Adds an animation; its group is made on first need. Returns its number.
int AddAnimationNodes(Project& project, const QString& menu, const NewAnimation& animation);

/// Writes the mask of an element, or removes it when the record is not enabled. The masks of buttons alone have a
/// highlight mode. `path` is the mask's file.
void WriteMask(Project& project, const QString& element, const GifMaskRecord& mask, const QString& path);

/// Path of a mask picture: where it is found, or below the program where it should be.
QString MaskPath(const QString& file, const Settings& settings);

/// Commands for the four directions of an auto action button.
struct AutoActions {
  QString Left;
  QString Right;
  QString Up;
  QString Down;
  bool operator==(const AutoActions&) const = default;
};

/// Makes a button the one auto action button of its menu; false when another one is. Removes the role without actions.
bool SetAutoAction(Project& project, const QString& menu, int button, const std::optional<AutoActions>& actions);

/// Removes a button; with the auto action button its menu stops being switched.
void RemoveButtonNodes(Project& project, const QString& menu, int button);

/// Counts the captions of one kind of button from 1 in tree order. A Back button has no number.
void RenumberButtons(Project& project, const QString& menu, ButtonKind kind);

/// Writes position or size of an element: caption and tag together.
void SetCoordinate(ProjectTree& tree, const QString& key, Attribute attribute, int value);

/// The node that holds Left and Top of an element: its properties, or its own head.
QString CoordinatesKey(const QString& menu, const QString& element);

}  // namespace torvane
