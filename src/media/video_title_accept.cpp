// What happens when the user is done with a film.

#include <utility>

#include "core/messages.h"
#include "core/project.h"
#include "core/text.h"
#include "media/media_advice.h"
#include "media/video_title.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

const QString kLineBreak = u"\r\n"_s;
constexpr qsizetype kLeastPath = 2;

}  // namespace

bool VideoTitle::Ask(const QString& warning) {
  return prompter_.Show(
             {.kind = BoxKind::Warning, .buttons = BoxButtons::YesNo, .text = warning, .preselected = Answer::Yes}) ==
         Answer::Yes;
}

bool VideoTitle::CheckStreamOrder(const std::array<QString, kFilmStreams>& streams, int message) {
  for (int i = 1; i < kFilmStreams; ++i) {
    if (streams[i].isEmpty() || !streams[i - 1].isEmpty()) continue;
    prompter_.Inform(GetMessage(message));
    return false;
  }
  return true;
}

/// Sound of a kind that no disc has would only come to light in the run. Of another frequency the user is warned.
bool VideoTitle::CheckSoundKinds() {
  for (const QString& name : Fields.Audio) {
    if (name.size() < kLeastPath || labels_.Multiplexed) continue;
    const MediaKind kind = IdentifyMedia(FullPath(name));
    if (IsDiscSound(kind) || kind.type == MediaType::Unreadable || kind.type == MediaType::Empty) continue;
    const std::optional<Finding> fault = MediaFault(FullPath(name), kind, MediaUse::Sound, project_.Settings);
    if (!fault) continue;
    prompter_.Fail(fault->text);
    return false;
  }
  return true;
}

/// The warnings of what may not work on the disc; false when the user wants to go back.
bool VideoTitle::WarnOfFormat() {
  for (const Label& line : audioInfo_) {
    if (!line.Red) continue;
    if (!Ask(GetMessage(423, {{u"|1", kLineBreak}}))) return false;
    break;
  }
  if (labels_.ResH.Red || labels_.ResV.Red) {
    const QString resolution = labels_.ResH.Text + u" x " + labels_.ResV.Text;
    if (!Ask(GetMessage(424, {{u"|1", resolution}, {u"|2", kLineBreak}}))) return false;
  }
  if (labels_.NavPacks.Red &&
      !Ask(GetMessage(440, {{u"|1", kLineBreak}}) + kLineBreak + kLineBreak + GetMessage(441, {{u"|1", kLineBreak}}))) {
    return false;
  }
  if (!labels_.FPS.Red || !std::exchange(project_.RateWarningDue, false)) return true;
  return Ask(GetMessage(687, {{u"|1", NormName(project_.Settings)}, {u"|2", kLineBreak}}));
}

std::optional<FilmRecord> VideoTitle::Accept() {
  if (!CheckNewVideoSize() || !CheckAudioDelay() || !CheckAddStreamNumber()) return std::nullopt;
  if (!CheckStreamOrder(Fields.Subtitle, 419)) return std::nullopt;
  if (!labels_.Multiplexed && !CheckStreamOrder(Fields.Audio, 420)) return std::nullopt;
  if (!CheckSoundKinds() || !WarnOfFormat()) return std::nullopt;
  return FinishedFilm();
}

FilmRecord VideoTitle::FinishedFilm() {
  const auto stored = [this](const QString& name) { return name.size() < kLeastPath ? QString() : FullPath(name); };
  UpdateTotalSize();
  FilmRecord film = film_;
  film.Name = Fields.VideoName;
  film.FilmMux = labels_.Multiplexed ? 0 : 1;
  for (int i = 0; i < kFilmStreams; ++i) {
    film.Audio[i] = stored(Fields.Audio[i]);
    film.SubTitel[i] = stored(Fields.Subtitle[i]);
    const bool lacksFormat = !film.SubTitel[i].isEmpty() && film.SubFormatStr[i].isEmpty();
    if (lacksFormat) film.SubFormatStr[i] = NewSubFormatStr(i + 1);
  }
  film.TotalSize = totalSize_;
  film.AudioDelay = ValToInt(Fields.AudioDelay);
  film.AutoStartSubs = Fields.AutoStartSubs;
  film.AddSubStream = film.SubTitel.front().isEmpty() ? ValToInt(Fields.AddStreamNumber) : 0;
  film.Chapters = Fields.Chapters;
  film.LanguageTags = FormatLanguageTags(Fields.Languages);
  film.ShrinkTo = Fields.Shrink ? shrinkTo_ : -1;
  film.Animated = !Fields.Animated ? 0 : videoReplaced_ ? 2 : 1;
  return film;
}

}  // namespace torvane
