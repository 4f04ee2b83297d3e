#pragma once

#include <QList>
#include <QPoint>
#include <QString>

#include "core/project.h"

namespace torvane {

/// "Torvane", with the name of the other engine where that is in use.
QString AppTitle(const Settings& settings);

/// Title of the main window: program and project file as a host path, of which a very long one is cut in the middle.
QString WindowTitle(const Project& project);

/// The title while the pointer moves over the canvas, with its place in menu pixels.
QString PointerTitle(const QString& title, QPoint place);

/// One pane of the status bar.
struct StatusPane {
  QStringView key;
  QString text = {};
  bool enabled = true;
  bool operator==(const StatusPane&) const = default;
};

/// All panes in their order: "fixed", "startaction", "stopaction", "buttontype", "autoburn", "intro", "graphsize",
/// "selection". The last is empty, as nothing is selected when all panes are written.
QList<StatusPane> StatusPanes(const Settings& settings);

/// Commands and tools of the main window that the project or its settings switch off.
struct ShellTools {
  bool animation = false;     ///< inserting and deleting animations
  bool advanced = false;      ///< inserting buttons and menus
  bool syntaxCheck = false;
  bool goToMenu = false;
  bool insertPlayAll = false;
  bool insertPlayList = false;
  bool insertChapter = false;
  bool autoShrink = false;
  bool scriptPreview = false;  ///< preview of the animated menu's script
  bool operator==(const ShellTools&) const = default;
};

ShellTools AvailableTools(const Project& project);

}  // namespace torvane
