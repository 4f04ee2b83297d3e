#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>

namespace torvane {

/// A PNG file of at most 256 colours. `pixels` holds a byte for each point, line by line, a number in `palette`, whose
/// colours are 0xAARRGGBB. ISO/IEC 15948.
QByteArray PngFile(QSize size, const QByteArray& pixels, const QList<quint32>& palette);

}  // namespace torvane
