#pragma once

namespace torvane {

/// The authoring engines: values of the setting `Engine`.
inline constexpr int kEngineDvdauthor = 0;
inline constexpr int kEngineMuxMan = 1;

}  // namespace torvane
