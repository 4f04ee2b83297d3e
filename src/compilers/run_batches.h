#pragma once

#include <QByteArray>
#include <QStringList>

#include "core/line_values.h"

namespace torvane {

// The batches of a run that belong to no menu and no film.

inline constexpr QStringView kVideoBatch = u"batchrun0.bat";
inline constexpr QStringView kEmptyMenuBatch = u"EBrun1.bat";
inline constexpr QStringView kAuthorBatch = u"author.bat";
inline constexpr QStringView kIsoBatch = u"makeiso.bat";
inline constexpr QStringView kEndBatch = u"EndTvn.bat";
inline constexpr QStringView kMainBatch = u"MainBatch.bat";
inline constexpr QStringView kSyntaxBatch = u"testrun.bat";

/// Whether the batches are run at once or only written for the user.
enum class BatchUse { Run, WriteOnly };

// Each takes the settings in force from the gate that its values pass.

/// `author.bat`: authors the disc.
QByteArray AuthorBatch(LineValues& values);

/// `makeiso.bat`: with `AutoDelete` erases the temporary files first, which batches for the user only name.
QByteArray IsoBatch(const QString& isoFile, BatchUse use, LineValues& values);

/// `EndTvn.bat`: the closing line in the console.
QByteArray EndBatch(LineValues& values);

/// `MainBatch.bat`: calls the batches of a list; those that burn are left to the user.
QByteArray MainBatch(const QStringList& batchList, LineValues& values);

/// `testrun.bat`: the syntax check.
QByteArray SyntaxBatch(LineValues& values);

}  // namespace torvane
