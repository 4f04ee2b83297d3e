#pragma once

#include <QString>
#include <functional>

namespace torvane {

/// Starts a program with a window of its own, such as a DVD viewer, and waits until it ends. `pump` is called about
/// every 100 ms meanwhile and keeps the own window alive.
///
/// Arguments that are absolute DOS paths are given as host paths. True when it has waited to the end; otherwise the
/// program could not be watched, `message` takes a text for the user, and the call returns at once.
bool RunAndWait(const QString& commandLine, const std::function<void()>& pump, QString& message);

}  // namespace torvane
