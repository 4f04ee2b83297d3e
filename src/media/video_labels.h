#pragma once

#include <QString>

#include "core/film_record.h"
#include "core/settings.h"

namespace torvane {

/// A whole number with "," between its thousands; "" for 0.
QString GroupedNumber(qint64 value);

/// A label and whether it stands out in red.
struct Label {
  QString Text = {};
  bool Red = false;
  bool operator==(const Label&) const = default;
};

/// What a film's video shows of itself, and which fields it leaves open.
struct VideoLabels {
  bool Multiplexed = false;  ///< the name is the file's and locked, fields of sound are closed
  QString FileName = {};     ///< without directory and ending
  QString Suffix = {};       ///< "." and the ending
  QString Folder = {};       ///< without trailing "\"
  Label ResH = {};           ///< red when MuxMan does not take it
  Label ResV = {};
  Label FPS = {};           ///< red when it is not the project's norm
  QString FpsToolTip = {};  ///< says so; "" when it fits
  QString Aspect = {};
  QString MpegVersion = {};
  QString MBSize = {};
  QString Duration = {};
  Label NavPacks = {};            ///< "Yes" or "No", of a multiplexed video only; red for "No"
  bool AddStreamEnabled = false;  ///< number of subtitle streams that the file has inside
  bool ShrinkEnabled = false;     ///< shrink target and factor
  bool AnimatedEnabled = false;   ///< the animated button
  bool ActionsEnabled = false;    ///< commands of the title
  bool operator==(const VideoLabels&) const = default;
};

VideoLabels UpdateVideoLabels(const FilmRecord& film, const Settings& settings);

/// "PAL" or "NTSC", the norm of the project.
QString NormName(const Settings& settings);

}  // namespace torvane
