#pragma once

#include <QString>

#include "core/settings.h"

namespace torvane {

inline constexpr QStringView kChapterEditor = u"ChapEditTVN.exe";

enum class ChapterEditorMode {
  Interactive,
  Automatic  ///< it works without its user
};

/// What the chapter editor, a program of its own, is called with.
struct ChapterEditorCall {
  QString Video = {};     ///< full path
  QString Chapters = {};  ///< the film's chapter list
  ChapterEditorMode Mode = ChapterEditorMode::Interactive;
};

/// The command line of the chapter editor in `AppPath`.
QString ChapterEditorCommand(const ChapterEditorCall& call, const Settings& settings);

/// How the chapter editor is run.
class ChapterEditorHost {
 public:
  virtual ~ChapterEditorHost() = default;

  /// Runs a command to its end in a window that waits for it.
  virtual void RunAndWait(const QString& title, const QString& command) = 0;

  /// The stored `AutoCropVal`, which the editor may have changed.
  virtual QString StoredAutoCropVal() = 0;
};

}  // namespace torvane
