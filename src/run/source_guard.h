#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include "platform/real_place.h"

namespace torvane {

/// Tells the files that a project names from the rest, however they are written: without regard to case, through
/// ".." and through links.
class SourceGuard {
 public:
  /// DOS paths; "" is passed over.
  explicit SourceGuard(const QStringList& protectedFiles);

  bool Protects(const QString& dosPath) const;

 private:
  QSet<RealPlace> files_;
};

/// Those of the files, as they were given, that lie where a run erases: directly in the temporary directory, or in its
/// folders TempSub.d and TempAudioMpg. A run that will clean up must not start while there is one.
QStringList CheckSourcesOutsideTemp(const QStringList& protectedFiles, const QString& tempDir);

}  // namespace torvane
