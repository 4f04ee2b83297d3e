#pragma once

#include <QString>

#include "core/prompter.h"

namespace torvane {

/// Whether a work may be written to `path`: true where no file stands, where it is the file `own` that the work came
/// from ("" for none), or when the user agrees. The question names the file, and its default answer is No.
bool MayWriteFile(const QString& path, const QString& own, Prompter& prompter);

}  // namespace torvane
