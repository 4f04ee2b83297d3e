#pragma once

#include <QString>

namespace torvane {

/// What a file dialog offers: the line that says so, and the patterns with ";" between them.
struct FileFilter {
  QString Caption;
  QString Pattern;
  bool operator==(const FileFilter&) const = default;
};

// By the authoring engine, where the engines take different files.
FileFilter VideoFilter(int engine);
FileFilter AudioFilter(int engine);
FileFilter SubtitleFilter(int engine);
FileFilter ChapterFilter();
FileFilter PaletteFilter();

}  // namespace torvane
