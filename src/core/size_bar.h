#pragma once

#include <QList>
#include <QString>

#include "core/project.h"

namespace torvane {

/// Total size of the project in megabytes, as its node "TS" says; 0 without one.
int TotalSizeMB(const Project& project);

/// The bar that shows how full the disc gets, as data to draw. Lengths are pixels.
struct SizeBar {
  static constexpr double kWidth = 720;
  static constexpr int kHeight = 38;
  static constexpr int kGreen = 65280;  ///< packed colours
  static constexpr int kYellow = 65535;
  static constexpr int kRed = 255;

  /// A filled rectangle from one place to another, over the whole height.
  struct Segment {
    int color = kGreen;
    double from = 0;
    double to = 0;
    bool operator==(const Segment&) const = default;
  };
  /// A label under the bar, which begins at its tick.
  struct Tick {
    double at = 0;
    QString text = {};
    bool operator==(const Tick&) const = default;
  };

  QList<Segment> segments;  ///< green, yellow and red, as far as the size reaches
  QList<Tick> ticks;

  bool operator==(const SizeBar&) const = default;
};

enum class DiscSize { SingleLayer, DualLayer };

/// The disc for which the bar is drawn, by the setting MaxSizeInd.
DiscSize DiscOf(const Settings& settings);

SizeBar MakeSizeBar(int totalMB, DiscSize disc);

}  // namespace torvane
