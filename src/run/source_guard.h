#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace torvane {

/// Tells the files that a project names from the rest, however they are written: without regard to case, through
/// ".." and through links.
class SourceGuard {
 public:
  /// DOS paths; "" is passed over.
  explicit SourceGuard(const QStringList& protectedFiles);

  bool Protects(const QString& dosPath) const;

 private:
  QSet<QString> files_;
};

/// Those of the files, as they were given, that lie where cleaning deletes: directly in the temporary directory, or
/// in its folders TempSub.d and TempAudioMpg. A run that will clean up must not start while there is one.
QStringList CheckSourcesOutsideTemp(const QStringList& protectedFiles, const QString& tempDir);

/// Deletes what a run left in the temporary directory: the files of TempSub.d and TempAudioMpg with these folders, and
/// the files of the directory itself, at most 10000 of each. What the guard protects stays, and so does every other
/// folder, everything behind a link to a folder, and hidden files. Failures are passed over.
void CleanTempDir(const QString& tempDir, const SourceGuard& guard);

}  // namespace torvane
