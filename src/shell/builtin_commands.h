#pragma once

#include <QString>
#include <optional>

#include "shell/batch_variables.h"
#include "shell/process_chain.h"

namespace torvane {

/// What a built-in command works with.
struct BuiltinCall {
  QString arguments;  ///< behind the command's name, as written
  BatchVariables& variables;
  Streams streams;
};

/// Runs a built-in command that is none of the control commands (ECHO, GOTO, CALL, EXIT, IF, REM): file commands, CD,
/// SET, TYPE, VER. `name` regards no case. The ERRORLEVEL afterwards; nothing when there is no such command.
std::optional<int> RunBuiltin(const QString& name, const BuiltinCall& call);

/// True for a name that RunBuiltin knows.
bool IsBuiltin(const QString& name);

/// Writes text in UTF-8, each line end as CR LF.
void PrintText(int fd, const QString& text);

}  // namespace torvane
