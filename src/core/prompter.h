#pragma once

#include <QString>

namespace torvane {

enum class BoxKind { Information, Warning, Error, Question };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// One message box: what the user is told or asked.
struct Box {
  BoxKind kind = BoxKind::Information;
  BoxButtons buttons = BoxButtons::Ok;
  QString text = {};
  QString title = {};               ///< "" for the program's own
  Answer preselected = Answer::Ok;  ///< what the box answers when its default button is pressed
  bool operator==(const Box&) const = default;
};

/// Asking the user is an argument: the desktop answers with boxes, the command line with its answer policy, a test
/// with a script that records what was asked.
class Prompter {
 public:
  virtual ~Prompter() = default;

  /// Shows the box and returns the button pressed, which is one of `box.buttons`.
  virtual Answer Show(const Box& box) = 0;

  void Inform(const QString& text) { Show({.kind = BoxKind::Information, .text = text}); }
  void Warn(const QString& text) { Show({.kind = BoxKind::Warning, .text = text}); }
  void Fail(const QString& text) { Show({.kind = BoxKind::Error, .text = text}); }
};

}  // namespace torvane
