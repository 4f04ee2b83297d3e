#pragma once

#include "designer/edit_context.h"

namespace torvane {

inline constexpr int kResetShrink = 99999;  ///< the target that takes all shrink factors away

/// Sets the shrink targets of all elementary MPEG-2 films so that the project takes `targetMB` (10 to 99999) on the
/// disc, after asking. False when nothing was changed: a wrong number, nothing to shrink, less than a tenth of the
/// video left, or a no.
bool ShrinkToSize(EditContext& context, const QString& targetMB);

}  // namespace torvane
