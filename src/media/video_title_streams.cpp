// The files of a film beside its video: sound, subtitles and their palette.

#include <utility>

#include "core/messages.h"
#include "core/project.h"
#include "core/text.h"
#include "media/audio_info_line.h"
#include "media/palette_check.h"
#include "media/palette_file.h"
#include "media/special_characters.h"
#include "media/subtitle_format.h"
#include "media/video_title.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kDvdFrequency = 48000;
constexpr qsizetype kLeastFileName = 3;
constexpr double kMultiplexMBASecond = 0.010905;  ///< pack headers, navigation packs and padding

}  // namespace

QString VideoTitle::FullPath(const QString& name) const {
  if (name.isEmpty() || name.contains(u'\\')) return name;
  return labels_.Folder + u'\\' + name;
}

/// `asFound`: sound that was found beside the video is red for the two other frequencies of DVD tools alone.
void VideoTitle::ShowAudioInfo(int stream, bool asFound) {
  const AudioFileLine line = DescribeAudioFile(FullPath(Fields.Audio[stream - 1]));
  const int frequency = line.Info.SampleFreq;
  const bool isOff = asFound ? frequency == 44100 || frequency == 32000 : frequency != kDvdFrequency;
  audioInfo_[stream - 1] = {u"Info: " + line.Text, !line.Known || isOff};
}

void VideoTitle::DetectAudioFiles(bool refresh) {
  if (refresh) {
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      if (HostFiles::FileExists(FullPath(Fields.Audio[stream - 1]))) ShowAudioInfo(stream, true);
    }
    UpdateTotalSize();
    return;
  }
  if (!labels_.Multiplexed) {
    for (const QString& extension : {u".ac3"_s, u".mp2"_s, u".mpa"_s}) {
      const QString path = FullPath(labels_.FileName + extension);
      if (!HostFiles::FileExists(path)) continue;
      Fields.Audio.front() = path;
      ShowAudioInfo(1, true);
      break;
    }
  }
  CheckSpecialCharacters();
  UpdateTotalSize();
}

void VideoTitle::CheckSpecialCharacters() {
  if (!HasSpecialCharacters(film_.VideoFile)) return;
  if (labels_.Multiplexed || HasSpecialCharacters(labels_.Folder)) {
    WarnOfSpecialCharacters(project_.Settings, prompter_);
    return;
  }
  // A name that the user has chosen stays.
  if (HasSpecialCharacters(Fields.VideoName)) Fields.VideoName = StripSpecialChars(labels_.FileName);
  if (Fields.VideoName.isEmpty()) Fields.VideoName = u"Film"_s + QString::number(project_.FilmCount + 1);
  prompter_.Warn(GetMessage(418, {{u"|1", Fields.VideoName}}));
}

void VideoTitle::SetAudio(int stream, const QString& path) {
  Fields.Audio[stream - 1] = path;
  ShowAudioInfo(stream, false);
  UpdateTotalSize();
}

void VideoTitle::ClearAudio(int stream) {
  Fields.Audio[stream - 1].clear();
  Fields.Languages.Audio[stream - 1] = 0;
  audioInfo_[stream - 1] = {u"Info:"_s, false};
  UpdateTotalSize();
}

bool VideoTitle::SetSubtitle(int stream, const QString& path) {
  if (!CheckSubtitleFile(path)) {
    prompter_.Inform(GetMessage(467));
    return false;
  }
  if (HasSpecialCharacters(path)) WarnOfSpecialCharacters(project_.Settings, prompter_);
  Fields.Subtitle[stream - 1] = path;
  UpdateTotalSize();
  return true;
}

void VideoTitle::ClearSubtitle(int stream) {
  Fields.Subtitle[stream - 1].clear();
  Fields.Languages.Subtitle[stream - 1] = 0;
  if (stream == 1) Fields.AutoStartSubs = false;
  UpdateTotalSize();
}

QString VideoTitle::DefaultAudioFile() const {
  return labels_.Folder + u'\\' + labels_.FileName + u".mp2";
}

QString VideoTitle::DefaultSubtitleFile(int stream) const {
  const QString& subtitle = Fields.Subtitle[stream - 1];
  return subtitle.isEmpty() ? QString(labels_.Folder + u'\\' + labels_.FileName + u".sub") : subtitle;
}

/// The first stream follows the settings, the others the program's own default.
QString VideoTitle::NewSubFormatStr(int stream) const {
  const QString& stored = stream == 1 ? project_.Settings.DefaultSubFormatStr : Settings().DefaultSubFormatStr;
  return NewSubFormat(stored, FPS(), film_.ResV);
}

bool VideoTitle::ReadPalette(const QString& path) {
  const QString previous = std::exchange(film_.SubColors, QString());
  const auto palette = ReadPaletteFile(path);
  if (!palette) {
    prompter_.Inform(palette.Error());
    return false;
  }
  film_.SubColors = *palette;
  if (CheckPaletteRoundTrip(film_.SubColors, prompter_)) return true;
  film_.SubColors = previous;
  return false;
}

qint64 VideoTitle::FileMegabytes(const QString& name) const {
  return name.size() < kLeastFileName ? 0 : SizeInMB(HostFiles::FileSizeOf(FullPath(name)).value_or(0));
}

void VideoTitle::UpdateTotalSize() {
  qint64 total = Fields.Shrink && shrinkTo_ != -1 ? shrinkTo_ : film_.SizeMB;
  for (const auto& files : {Fields.Audio, Fields.Subtitle}) {
    for (const QString& file : files) total += FileMegabytes(file);
  }
  if (!labels_.Multiplexed) total += RoundToInt(film_.DurationSec * kMultiplexMBASecond);
  totalSize_ = int(total);
}

}  // namespace torvane
