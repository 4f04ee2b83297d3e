#pragma once

#include <QString>

#include "core/prompter.h"
#include "platform/result.h"

namespace torvane {

// A chapter list is one text: "hh:mm:ss.mmm", or "hh:mm:ss" where the source gave no fraction, separated by ",",
// sorted; the first one is zero.

inline constexpr QStringView kFirstChapter = u"00:00:00.000";

/// What two-digit fractions are. "hh:mm:ss.12" may mean hundredths or frames until a list shows which.
enum class ChapterFraction {
  NoFrames = 0,     ///< something proved that they are no frame numbers
  MaybeFrames = 1,  ///< there is one that may be a frame number, and no proof against it
  Unknown = 2       ///< at the start of a list
};

/// One chapter in any notation as "hh:mm:ss.mmm" or "hh:mm:ss": a frame number, "mm:ss", "hh:mm:ss" with or without a
/// fraction, "hh:mm:ss:ff". "" for anything else and for 24 hours and more. `fps` is the frame rate of the film.
QString NormalizeChapter(const QString& text, float fps, ChapterFraction& fraction);

/// The chapter list of a text file that holds one chapter a line or several separated by ",". What cannot be read is
/// left out. While it is in doubt whether the fractions are frames, the user is asked. Fails when the file cannot be
/// read.
Result<QString> LoadChapterList(const QString& path, float fps, Prompter& prompter);

/// The same of the file's content.
QString ParseChapterList(const QByteArray& content, float fps, Prompter& prompter);

/// The chapter list of what a user has written, one chapter a line. Nothing is asked: a fraction counts as one.
QString ChapterListFromLines(const QString& lines, float fps);

/// Where the chapter editor leaves the chapters of a video, in a form that LoadChapterList reads.
QString CelltimesFile(const QString& outDir, const QString& video);

}  // namespace torvane
