#pragma once

#include <QString>

namespace torvane {

/// The current directory as a DOS path: on the drive whose folder holds it, else on drive Z. Without a closing
/// backslash, but for a drive's root.
QString CurrentDosDirectory();

}  // namespace torvane
