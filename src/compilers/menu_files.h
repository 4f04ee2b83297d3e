#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "core/line_values.h"
#include "core/menu_view.h"
#include "platform/result.h"
#include "render/compositor.h"

namespace torvane {

/// The control files that put a menu's highlights into its video.
struct HighlightFiles {
  QByteArray Spu;   ///< "Spu.xml"
  QByteArray SpuL;  ///< "SpuL.xml", of a 16:9 menu alone
};

/// Both for the rectangles of a composed menu. Values that cannot stand in them are told to `values`; the files must
/// then not be used.
HighlightFiles WriteHighlightFiles(const MenuView& menu, const ComposedMenu& composed, LineValues& values);

/// Writes what a composed menu is made of into a directory (DOS path): its pictures and the control files that are not
/// empty, each whole or not at all. Stops at the first that cannot be written.
Status WriteMenuFiles(const ComposedMenu& menu, const HighlightFiles& highlights, const QString& dir);

/// The names of these files.
QStringList MenuFileNames(const ComposedMenu& menu, const HighlightFiles& highlights);

}  // namespace torvane
