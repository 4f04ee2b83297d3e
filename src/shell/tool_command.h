#pragma once

#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>

#include "platform/result.h"
#include "shell/command_parser.h"
#include "shell/process_chain.h"
#include "shell/tool_table.h"

namespace torvane {

/// A folder for private copies of control files, made when first asked for and removed with its owner. Only the user
/// can look into it.
class PrivateFolder {
 public:
  /// Host path of the folder; fails when the system's temporary folder takes no more.
  Result<QString> Path();

 private:
  std::unique_ptr<QTemporaryDir> folder_;
};

/// Host paths of the files behind "<" and ">" of a command, "" for none.
struct RedirectedFiles {
  QString input;
  QString output;
};

enum class RunKind { Real, SyntaxCheck };

/// A file that a command must leave behind: whole, new and not empty.
struct PromisedFile {
  QString hostPath;
  QByteArray ending = {};  ///< what it ends with when it is whole; "" when that is not known
};

/// What a command line of an outside program comes to on this machine.
struct ToolCommand {
  QString name;  ///< the program's name for messages; "" for a command of the batch language
  ProcessStage stage;
  QStringList inputs;                           ///< host paths of what its arguments name beside its outputs
  QStringList outputs;                          ///< host paths of the files that it makes by name, always anew
  QList<PromisedFile> promised;                 ///< all that it must leave
  double patience = 0;                          ///< minutes that it may do nothing; 0 for the user's choice
  std::function<void()> discard;                ///< removes what a failed or stopped run has left unfinished, if set
  std::shared_ptr<QTemporaryDir> scratch = {};  ///< large files for this run alone, beside its output
  bool streamsOutput = false;                   ///< its work goes to the command behind it
  bool addsSubpictures = false;                 ///< a spumux run, which fails when it added none
};

/// Makes the native command of a batch's words, of which the first names the program.
///
/// The stem of the program's name is looked up in the tool table; where a real ".exe" lies at the path named and Wine
/// is installed, that one is taken; else a tool of this console runs in a process of its own. DOS paths in arguments
/// become host paths, also behind an option (`-o"C:\x"`); options that the program here does not know are dropped; a
/// control file is copied into `folder` with its paths mapped; with SyntaxCheck dvdauthor gets stand-ins for its films.
/// A program that is not in the table must be an executable file of this machine.
///
/// The sound and the delay of mplex are made fit for it (PrepareMplexSound), with new files beside its output.
///
/// The option -ma, by which text subtitles shall take their colours from the palette of the title, gives spumux the
/// second colour of that palette for the outlines and the third for the letters. The palette is the ".pal" file that
/// has the name of the output less its "_SUB1".
///
/// Fails with a text for a line of the console that begins behind "*ERROR: ".
Result<ToolCommand> MakeToolCommand(const QList<CommandWord>& words, const RedirectedFiles& files, RunKind kind,
                                    PrivateFolder& folder);

}  // namespace torvane
