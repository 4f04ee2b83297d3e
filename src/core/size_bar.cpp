#include "core/size_bar.h"

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kTicks = 5;
constexpr double kTickDistance = SizeBar::kWidth / kTicks;

/// The scale of a disc: sizes in megabytes from which on a colour no longer grows with the total, and where it then ends.
struct Scale {
  double pixelsPerMB;
  int yellowFrom;
  int redFrom;
  int full;
  double greenEnd;
  double yellowEnd;
  double redEnd;
  int tickGB;
};

constexpr Scale kSingle{0.144, 4300, 4450, 4999, 624.96, 640.8, 719.928, 1};
constexpr Scale kDual{0.072, 7900, 8066, 9999, 568.8, 580.752, 719.928, 2};

}  // namespace

int TotalSizeMB(const Project& project) {
  const ProjectNode* size = project.Tree.Find(kTotalSizeKey.toString());
  return size ? ValToInt(size->Value(kTotalSizeLabel.size())) : 0;
}

DiscSize DiscOf(const Settings& settings) { return settings.MaxSizeInd ? DiscSize::DualLayer : DiscSize::SingleLayer; }

SizeBar MakeSizeBar(int totalMB, DiscSize disc) {
  const Scale& scale = disc == DiscSize::DualLayer ? kDual : kSingle;
  const double total = totalMB * scale.pixelsPerMB;
  SizeBar bar;
  double from = 0;
  const auto add = [&](int color, int below, double end) {
    const double to = totalMB < below ? total : end;
    if (to > from) bar.segments << SizeBar::Segment{color, from, to};
    from = to;
  };
  add(SizeBar::kGreen, scale.yellowFrom, scale.greenEnd);
  if (totalMB >= scale.yellowFrom) add(SizeBar::kYellow, scale.redFrom, scale.yellowEnd);
  if (totalMB >= scale.redFrom) add(SizeBar::kRed, scale.full, scale.redEnd);
  for (int i = 0; i < kTicks; ++i) {
    bar.ticks << SizeBar::Tick{i * kTickDistance, u"| %1GB"_s.arg(i * scale.tickGB)};
  }
  return bar;
}

}  // namespace torvane
