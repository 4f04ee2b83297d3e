#pragma once

#include "designer/edit_context.h"

namespace torvane {

/// Which parts of a menu are copied.
struct CopyFlags {
  bool Animations = false;
  bool BackButton = false;
  bool Background = false;
  bool Buttons = false;
  bool HighLight = false;
  bool Images = false;
  bool Labels = false;
  bool PostAction = false;  ///< the background brings its post action along
  bool operator==(const CopyFlags&) const = default;
};

/// Reads eight characters "0" and "1" in the order of the fields; nothing for any other text.
std::optional<CopyFlags> ParseCopyFlags(QStringView text);

/// The menus whose layout may be copied to a menu: main menus to main menus, titleset menus to titleset menus.
QStringList LayoutSources(const Project& project, const QString& menu);

/// Copies parts of the layout of `source` to `menu`. Elements that the menu has already stay: a copy whose number is
/// taken gets another one. Films and submenus are not copied, so that their buttons arrive as free buttons.
bool CopyMenuLayout(EditContext& context, const QString& menu, const QString& source, const CopyFlags& flags);

}  // namespace torvane
