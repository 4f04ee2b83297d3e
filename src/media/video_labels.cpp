#include "media/video_labels.h"

#include <algorithm>
#include <initializer_list>

#include "core/engine.h"
#include "core/messages.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kPalRate = 25;

bool IsOneOf(int value, std::initializer_list<int> values) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

}  // namespace

QString GroupedNumber(qint64 value) {
  if (value == 0) return {};
  QString digits = QString::number(value);
  const qsizetype first = value < 0 ? 1 : 0;
  for (qsizetype at = digits.size() - 3; at > first; at -= 3) digits.insert(at, u',');
  return digits;
}

QString NormName(const Settings& settings) {
  return settings.VideoNormPal ? u"PAL"_s : u"NTSC"_s;
}

VideoLabels UpdateVideoLabels(const FilmRecord& film, const Settings& settings) {
  const PathParts path = SplitPath(film.VideoFile);
  const QString size = GroupedNumber(film.SizeMB);
  VideoLabels labels{.Multiplexed = IsMultiplexedFile(film.VideoFile),
                     .FileName = path.name,
                     .Suffix = path.ext,
                     .Folder = path.dir,
                     .ResH = {QString::number(film.ResH)},
                     .ResV = {QString::number(film.ResV)},
                     .FPS = {FormatNumberDot(film.FPS)},
                     .Aspect = film.Aspect,
                     .MpegVersion = film.MpegVersion,
                     .MBSize = (size.isEmpty() ? u"0"_s : size) + u"MB",
                     .Duration = film.Duration};
  if (labels.Multiplexed) {
    labels.NavPacks = {YesNoText(film.MuxOK == 1), film.MuxOK != 1};
    labels.AddStreamEnabled = settings.AdvancedMode;
  } else {
    const bool isMuxMan = settings.Engine == kEngineMuxMan;
    labels.ResH.Red = isMuxMan && !IsOneOf(film.ResH, {720, 704, 352});
    labels.ResV.Red = isMuxMan && !IsOneOf(film.ResV, {576, 480, 288, 240});
    labels.ShrinkEnabled = film.MpegVersion == u"2";
  }
  labels.AnimatedEnabled = settings.AnimatedMainMenu;
  labels.ActionsEnabled = settings.AdvancedMode;
  labels.FPS.Red = settings.VideoNormPal != (film.FPS == kPalRate);
  if (labels.FPS.Red) labels.FpsToolTip = GetMessage(428, {{u"|1", NormName(settings)}});
  return labels;
}

}  // namespace torvane
