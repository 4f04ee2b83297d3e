#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

#include "shell/command_parser.h"
#include "shell/process_chain.h"

namespace torvane {

/// The streams of one command with its redirections applied. The files stay open as long as the object lives.
struct RedirectedStreams {
  Streams streams;
  std::vector<OwnedFd> owned;
  QString input;        ///< host path of the file that it reads, if any
  QStringList created;  ///< host paths of files that ">" made or emptied and that hold its output alone
  QString error;        ///< host path and reason of what could not be opened; empty when all could
};

/// Host path of the file that a redirection names; "nul" is nothing.
QString RedirectionTarget(const Redirection& redirection);

/// Opens what the redirections name, from left to right as the batch language does. The file behind a ">" is a
/// new one, also where a link stood.
RedirectedStreams OpenRedirections(const QList<Redirection>& redirections, const Streams& base);

}  // namespace torvane
