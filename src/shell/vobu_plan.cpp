#include "shell/vobu_plan.h"

#include <QFile>
#include <algorithm>

#include "shell/mpeg_pack.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qint64 kUnitTicks = 45000;      // 0.5 s
constexpr qint64 kShortestTicks = 36000;  // 0.4 s, the shortest unit that players expect
constexpr qint64 kFrameTicks = 3600;      // a PAL picture; an NTSC one is shorter

class Planner {
 public:
  void Take(const MpegPack& pack) {
    const qint64 number = plan_.packs++;
    if (pack.IsNavigation()) {
      Begin({number, true, -1});
      return;
    }
    const QList<PesPacket> packets = pack.Packets();
    for (const PesPacket& packet : packets) {
      if (pack.IsVideo(packet)) {
        TakeVideo(number, packet, pack.BeginsSequence(packet));
      } else if (pack.IsSound(packet) && packet.pts) {
        TakeSound(number, *packet.pts);
      }
    }
    if (number == 0 && plan_.vobus.empty()) Begin({0, false, -1});
  }

  VobuPlan Finish() {
    plan_.end = std::max(videoEnd_, soundEnd_);
    if (!soundUnits_.empty() && plan_.end - soundUnits_.back().start < kShortestTicks) soundUnits_.pop_back();
    plan_.vobus.insert(plan_.vobus.end(), soundUnits_.begin(), soundUnits_.end());
    qint64 last = 0;
    for (PlannedVobu& vobu : plan_.vobus) {
      if (vobu.start < 0) vobu.start = last;
      last = vobu.start;
    }
    plan_.end = std::max(plan_.end, last);
    return plan_;
  }

  bool HasContent() const { return videoEnd_ > 0 || soundEnd_ > 0; }

 private:
  void Begin(const PlannedVobu& vobu) {
    soundUnits_.clear();
    plan_.vobus.push_back(vobu);
    holdsVideo_ = false;
  }

  void Stamp(qint64 pts) {
    qint64& start = plan_.vobus.back().start;
    start = start < 0 ? pts : std::min(start, pts);
  }

  void TakeVideo(qint64 number, const PesPacket& packet, bool beginsSequence) {
    // As long as pictures come, sound alone begins no unit.
    soundUnits_.clear();
    if (plan_.vobus.empty() || (beginsSequence && holdsVideo_)) Begin({number, false, -1});
    holdsVideo_ = true;
    if (!packet.pts) return;
    Stamp(*packet.pts);
    videoEnd_ = std::max(videoEnd_, *packet.pts + kFrameTicks);
  }

  void TakeSound(qint64 number, qint64 pts) {
    if (plan_.vobus.empty()) Begin({number, false, -1});
    if (!holdsVideo_ && soundUnits_.empty()) Stamp(pts);
    soundEnd_ = std::max(soundEnd_, pts);
    const qint64 start = soundUnits_.empty() ? plan_.vobus.back().start : soundUnits_.back().start;
    if (start < 0 || pts < std::max(start + kUnitTicks, videoEnd_)) return;
    soundUnits_.push_back({number, false, pts});
  }

  VobuPlan plan_;
  std::vector<PlannedVobu> soundUnits_;  // behind the last picture so far
  bool holdsVideo_ = false;              // the unit at the end of the plan
  qint64 videoEnd_ = 0;
  qint64 soundEnd_ = 0;
};

}  // namespace

Result<VobuPlan> PlanVobus(const QString& hostPath) {
  QFile file(hostPath);
  if (!file.open(QIODevice::ReadOnly)) return Failure{hostPath + u": "_s + file.errorString()};
  Planner planner;
  for (qint64 at = 0;; at += MpegPack::kSize) {
    const MpegPack pack(file.read(MpegPack::kSize));
    if (pack.Bytes().isEmpty() && file.error() != QFileDevice::NoError) {
      return Failure{hostPath + u": "_s + file.errorString()};
    }
    // A stream may end with an end code of its own.
    if (pack.Bytes().isEmpty() || (at > 0 && pack.Bytes() == QByteArray("\0\0\1\xB9", 4))) break;
    if (!pack.IsWhole()) {
      return Failure{
          u"%1: no whole pack of 2048 bytes at byte %2; multiplex the film with mplex -f 8"_s.arg(hostPath).arg(at)};
    }
    planner.Take(pack);
  }
  if (!planner.HasContent()) return Failure{u"%1: holds neither pictures nor sound"_s.arg(hostPath)};
  return planner.Finish();
}

}  // namespace torvane
