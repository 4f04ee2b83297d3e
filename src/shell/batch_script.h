#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "platform/result.h"

namespace torvane {

/// A batch file in memory. Generated batches hold paths in the DOS code page and all else in UTF-8; both are read.
struct BatchScript {
  QString path;  ///< DOS path as it was called
  QStringList lines;

  /// Index of the line behind ":label", searched from `from` to the end and then from the start; nothing when there is
  /// no such label. Labels do not regard case.
  std::optional<qsizetype> BehindLabel(const QString& label, qsizetype from) const;
};

/// Reads the batch at a DOS path. Fails with the host path and the system's reason.
Result<BatchScript> LoadBatchScript(const QString& dosPath);

/// The name that a GOTO or a label line means: what stands before the first delimiter, without the colon.
QString LabelName(const QString& text);

}  // namespace torvane
