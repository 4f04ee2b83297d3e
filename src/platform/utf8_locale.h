#pragma once

namespace torvane {

/// Makes sure that the process, and what it starts, runs in a locale of UTF-8 text: file names and the words of tools
/// are UTF-8 throughout. To be called first in main, before any Qt application object, which would complain otherwise.
void EnsureUtf8Locale();

}  // namespace torvane
