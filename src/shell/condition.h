#pragma once

#include <QString>
#include <optional>

#include "shell/batch_variables.h"

namespace torvane {

/// An IF taken apart: whether its condition holds, and the command that depends on it.
struct Condition {
  bool holds = false;
  QString command;
  bool operator==(const Condition&) const = default;
};

/// Reads and tests what stands behind IF: [/I] [NOT] ERRORLEVEL n | EXIST path | DEFINED name | a==b | a EQU b and the
/// like, then the command. ERRORLEVEL n holds from n upwards. EXIST takes wildcards, directories, and "dir\\nul".
/// Nothing when it cannot be read.
std::optional<Condition> TestCondition(const QString& text, int errorLevel, const BatchVariables& variables);

}  // namespace torvane
