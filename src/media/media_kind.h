#pragma once

#include <QString>

#include "media/media_file.h"

namespace torvane {

/// What a file holds.
enum class MediaType {
  Unreadable,  ///< there is no such file, or it cannot be opened
  Empty,
  Unknown,
  // Video
  MpegVideo,  ///< MPEG-1 or MPEG-2, elementary
  ProgramStream,
  TransportStream,
  OtherVideo,  ///< a stream or container that no authoring tool reads: H.264, MP4, Matroska, AVI ...
  // Sound
  Ac3,
  MpegLayer2,
  Dts,
  Wave,        ///< RIFF WAVE with PCM samples
  OtherSound,  ///< E-AC3, MP3, AAC, FLAC ...
  // Subtitles
  Text,
  DvdSup,
  OtherSubtitle,
  // Pictures
  Picture
};

/// What a file is, by its bytes alone: its name counts for nothing.
struct MediaKind {
  MediaType type = MediaType::Unknown;
  QString name = {};        ///< with its article, to be told to the user: "an MPEG transport stream"
  int sampleRate = 0;       ///< of sound, Hz; 0 where it is not known
  int bits = 0;             ///< of the samples of Wave
  int channels = 0;         ///< of Wave
  int width = 0;            ///< of MPEG video, within a program or transport stream too; 0 where none was found
  int height = 0;           ///< the same
  bool leadingTag = false;  ///< sound behind an ID3 tag, which multiplexers do not skip
  bool operator==(const MediaKind&) const = default;
};

/// True for sound of a kind that a disc has, whatever its frequency.
bool IsDiscSound(const MediaKind& kind);

/// Reads the first bytes, and of what may be MPEG video as much as its analysis does.
MediaKind IdentifyMedia(MediaFile& file);
MediaKind IdentifyMedia(const QString& dosPath);

}  // namespace torvane
