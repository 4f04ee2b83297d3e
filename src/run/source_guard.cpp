#include "run/source_guard.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

SourceGuard::SourceGuard(const QStringList& protectedFiles) {
  for (const QString& file : protectedFiles) {
    if (!file.isEmpty()) files_ << PlaceOf(file) << PlaceOfName(file);
  }
}

bool SourceGuard::Protects(const QString& dosPath) const {
  return files_.contains(PlaceOfName(dosPath)) || files_.contains(PlaceOf(dosPath));
}

QStringList CheckSourcesOutsideTemp(const QStringList& protectedFiles, const QString& tempDir) {
  const QStringList cleaned{tempDir, tempDir + u"\\TempSub.d"_s, tempDir + u"\\TempAudioMpg"_s};
  QStringList inDanger;
  for (const QString& file : protectedFiles) {
    if (file.isEmpty() || inDanger.contains(file)) continue;
    const auto holdsIt = [&file](const QString& folder) { return LiesDirectlyIn(file, folder); };
    if (std::ranges::any_of(cleaned, holdsIt)) inDanger << file;
  }
  return inDanger;
}

}  // namespace torvane
