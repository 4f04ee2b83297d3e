#pragma once

#include <QString>
#include <vector>

#include "platform/result.h"

namespace torvane {

/// A unit of a program stream that a navigation pack begins.
struct PlannedVobu {
  qint64 pack = 0;        ///< number of the input's pack that begins it, from 0
  bool replaces = false;  ///< that pack is a navigation pack, which the new one replaces
  qint64 start = 0;       ///< earliest presentation time in it, 90 kHz
  bool operator==(const PlannedVobu&) const = default;
};

struct VobuPlan {
  std::vector<PlannedVobu> vobus;
  qint64 packs = 0;  ///< packs of the input
  qint64 end = 0;    ///< when the last unit ends, as far as the time stamps tell, 90 kHz
};

/// Reads a program stream of 2048-byte packs and finds where its units begin; insnav.h tells the rules. Fails with the
/// file's name and the place of what is no pack.
Result<VobuPlan> PlanVobus(const QString& hostPath);

}  // namespace torvane
