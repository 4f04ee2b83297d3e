#pragma once

#include <QList>
#include <QString>

#include "platform/result.h"

namespace torvane {

/// The sixteen packed colours of a title's palette file. Fails with its name.
Result<QList<int>> ReadTitlePalette(const QString& hostPath);

/// 0xRRGGBB to draw subtitles with, so that dvdauthor finds the colour in the title's palette. It looks for what it
/// makes of RGB, and "color map full" is its word when there is no such colour.
quint32 DrawnColor(int color);

/// The palette in which dvdauthor finds every drawn colour: colours that no RGB colour gives stand as those that
/// players show in their place. The others stay.
QList<int> FindablePalette(const QList<int>& colors);

}  // namespace torvane
