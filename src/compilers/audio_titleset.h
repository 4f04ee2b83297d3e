#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "core/audio_title_set.h"
#include "core/batch_lines.h"
#include "core/project.h"

namespace torvane {

/// Number of tracks that the audio titleset announces, 0 to 96.
int AudioTrackCount(const ProjectTree& tree, int film);

/// True for one title with a chapter for each track, false for a title for each track.
bool HasOneTitle(const ProjectTree& tree, int film);

/// "{Temp}\TempAudioMpg\FPA3#01.mpg", the video of a track for dvdauthor; track 1 to 96.
QString AudioTrackFile(const Settings& settings, int film, int track);

/// "{Temp}\FPA3#01.png", the picture of a track; a ".bmp" for MuxMan.
QString AudioSlideFile(const Settings& settings, int film, int track);

/// Makes the folder of the track videos anew: the lines in front of the first audio titleset of a batch.
void AudioFolderLines(BatchLines& out);

/// The dvdauthor lines of an audio titleset: for each track one frame of video, multiplexed with the sound, with
/// navigation packets.
void WriteAudioTitleSet(BatchLines& out, const Project& project, int film);

/// Playing time of a track, as AudioInfo has it.
struct AudioTrackTime {
  QString Duration;    ///< "hh:mm:ss.mmm"
  double Seconds = 0;  ///< four decimals
  bool operator==(const AudioTrackTime&) const = default;
};

/// Turns the playing times of the tracks of one titleset, in their order, into those of their pictures in whole frames.
/// A part of a frame is rounded up; what that adds is summed up, and once it is more than a frame, one is left out.
class TrackClock {
 public:
  /// `rate` is frames a second.
  explicit TrackClock(double rate) : rate_(rate) {}

  struct Play {
    QString TimeCode;  ///< "hh:mm:ss:f"
    double Exact = 0;  ///< seconds that the picture stands
    bool operator==(const Play&) const = default;
  };
  Play TrackTimeCode(const AudioTrackTime& track);

 private:
  double rate_;
  double carry_ = 0;
};

/// The segment of an audio titleset in the project file of MuxMan: a picture, a sound file and a scene for each track.
/// `times` holds one entry a track. UTF-8, CR LF, indented by tabs from the first level on.
QByteArray WriteAudioSegment(const Project& project, int film, const std::vector<AudioTrackTime>& times);

}  // namespace torvane
