#include "designer/mask_placement.h"

#include <gtest/gtest.h>

namespace torvane {
namespace {

MaskGeometry Mask(double relSize, double xOffset = 0, double yOffset = 0) {
  MaskGeometry mask;
  mask.RelSize = relSize;
  mask.XOffset = xOffset;
  mask.YOffset = yOffset;
  mask.HasRelSize = true;
  return mask;
}

TEST(MaskPlacement, CentresTheMaskAndRoundsItsPlaceOnce) {
  struct Case {
    QRect element;
    MaskGeometry mask;
    QRect expected;
  };
  const Case cases[] = {
      {{100, 50, 80, 40}, Mask(100), {100, 50, 80, 40}},
      {{100, 50, 80, 40}, Mask(150), {80, 40, 120, 60}},
      {{100, 50, 80, 40}, Mask(50, -7, 3), {113, 63, 40, 20}},
      // 33.3 percent of 100 and 50 is cut to 33 and 16; 100 + 33.5 and 51 + 17 halve to the even neighbour.
      {{100, 51, 100, 50}, Mask(33.3), {134, 68, 33, 16}},
      {{101, 51, 100, 51}, Mask(33.3), {134, 68, 33, 16}},
      {{100, 50, 80, 40}, Mask(0), {140, 70, 0, 0}},
      // A damaged size or place stays out of the frame and overflows nothing.
      {{100000, 0, 100000, 10}, Mask(1e9, 0, -1e12), {100000, -100000, 100000, 100000}},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(MaskRectangle(test.element, test.mask), test.expected) << test.mask.RelSize;
  }

  EXPECT_EQ(MaskRectangle({100, 50, 80, 40}, MaskGeometry()), std::nullopt);
}

}  // namespace
}  // namespace torvane
