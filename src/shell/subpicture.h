#pragma once

#include <QByteArray>
#include <QRect>
#include <array>
#include <optional>

#include "platform/result.h"

namespace torvane {

/// A decoded subpicture unit of DVD-Video: one still of four pixel values and the times at which it is shown.
struct Subpicture {
  QRect area = {};                ///< in the frame; not empty, within 720 by 576
  QByteArray pixels = {};         ///< line by line, each 0 to 3
  std::array<int, 4> colors{};    ///< of the pixel values, as numbers of the title's palette
  std::array<int, 4> contrast{};  ///< of the pixel values: 0 transparent to 15 opaque
  int start = 0;                  ///< from the unit's presentation time, 90 kHz
  std::optional<int> end = {};    ///< nothing: until the next unit
  bool forced = false;

  bool operator==(const Subpicture&) const = default;
};

/// What a unit tells. One that shows nothing can still end the picture before it.
struct SubpictureUnit {
  std::optional<Subpicture> picture;
  std::optional<int> end;
};

/// Decodes a unit, which begins with its size and the place of its commands. Where its commands change the colours
/// while it is shown, as a fade does, the first ones that show anything count. Fails with the reason for a unit that is
/// broken, that draws outside 720 by 576, or whose picture ends early.
Result<SubpictureUnit> ReadSubpicture(const QByteArray& unit);

}  // namespace torvane
