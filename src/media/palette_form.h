#pragma once

#include <QString>
#include <array>

#include "media/palette.h"

namespace torvane {

/// A subtitle palette under edit: sixteen packed RGB colours.
struct PaletteForm {
  PaletteForm() = default;

  /// Of a list of palette colours; those that it lacks are black.
  explicit PaletteForm(const QString& list);

  std::array<int, kPaletteSize> Colors = {};

  QString List() const;
};

}  // namespace torvane
