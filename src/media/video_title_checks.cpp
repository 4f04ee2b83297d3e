// The checks that run when the user leaves a field of a film.

#include <cmath>

#include "core/engine.h"
#include "core/messages.h"
#include "core/project.h"
#include "core/text.h"
#include "media/video_title.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kMuxManDelay = 300;
constexpr int kDvdauthorDelay = 5000;
constexpr int kMostSubtitleStreams = 31;

}  // namespace

bool VideoTitle::CheckVideoName() {
  if (Fields.VideoName.isEmpty()) {
    prompter_.Inform(GetMessage(380));
    return false;
  }
  if (HasSpecialCharacters(Fields.VideoName)) prompter_.Warn(GetMessage(372));
  return true;
}

bool VideoTitle::CheckRange(const QString& text, int least, int most) {
  const double value = Val(text);
  const auto tell = [this](int message, int limit) {
    prompter_.Inform(GetMessage(message, {{u"|1", QString::number(limit)}}));
    return false;
  };
  if (value < least) return tell(469, least);
  return value <= most || tell(470, most);
}

bool VideoTitle::CheckAudioDelay() {
  const int most = project_.Settings.Engine == kEngineMuxMan ? kMuxManDelay : kDvdauthorDelay;
  return CheckRange(Fields.AudioDelay, -most, most);
}

bool VideoTitle::CheckAddStreamNumber() {
  return CheckRange(Fields.AddStreamNumber, 0, kMostSubtitleStreams);
}

void VideoTitle::ClearShrink() {
  shrinkTo_ = -1;
  Fields.NewVideoSize.clear();
  Fields.Factor.clear();
  Fields.Shrink = false;
}

void VideoTitle::ShowShrinkTarget() {
  Fields.NewVideoSize = GroupedNumber(shrinkTo_);
  const double percent = film_.SizeMB > 0 ? double(shrinkTo_) / film_.SizeMB * 100 : 0;
  Fields.Factor = QString::number(int(percent)) + u'%';
}

bool VideoTitle::CheckNewVideoSize() {
  QString text = Fields.NewVideoSize;
  bool isNumber = false;
  const double size = RoundHalfEven(text.remove(u',').toDouble(&isNumber));
  if (isNumber && std::isfinite(size) && size != 0) return TakeNewVideoSize(size);
  const bool isFault = !isNumber && !text.isEmpty();
  if (isFault) prompter_.Inform(GetMessage(468));
  ClearShrink();
  UpdateTotalSize();
  return !isFault;
}

bool VideoTitle::TakeNewVideoSize(double size) {
  if (size < RoundHalfEven(film_.SizeMB / 10.0)) {
    prompter_.Inform(GetMessage(421));
    return false;
  }
  if (size >= film_.SizeMB) {
    prompter_.Inform(GetMessage(422));
    return false;
  }
  shrinkTo_ = int(size);
  ShowShrinkTarget();
  UpdateTotalSize();
  return true;
}

bool VideoTitle::CheckFactor() {
  if (!Fields.Factor.endsWith(u'%')) Fields.Factor += u'%';
  Fields.NewVideoSize = FormatNumberDot(RoundHalfEven(film_.SizeMB * Val(Fields.Factor) / 100));
  return CheckNewVideoSize();
}

bool VideoTitle::CheckShrink() {
  if (!Fields.Shrink) {
    UpdateTotalSize();
    return true;
  }
  const bool hasValue = CheckNewVideoSize() && shrinkTo_ != -1;
  if (shrinkTo_ == -1) prompter_.Inform(GetMessage(416));
  Fields.Shrink = hasValue;
  UpdateTotalSize();
  return hasValue;
}

}  // namespace torvane
