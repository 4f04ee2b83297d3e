#include "shell/shell.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QRegularExpression>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/host_files.h"
#include "shell/builtin_commands.h"
#include "shell/condition.h"
#include "shell/current_directory.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::size_t kDeepest = 64;      // batches that call each other
constexpr int kDeepestConditional = 100;  // IFs within IFs
constexpr int kNoSuchProgram = 9009;

bool IsControl(const QString& name) {
  return name == u"echo" || name == u"goto" || name == u"call" || name == u"exit" || name == u"rem";
}

/// A command of the language at the start of a text: its name in small letters and what stands behind it.
struct NamedCommand {
  QString name;
  QString rest;
};

std::optional<NamedCommand> LanguageCommand(const QString& text) {
  qsizetype end = 0;
  while (end < text.size() && text[end].isLetter()) ++end;
  const QString name = text.left(end).toLower();
  if (!IsControl(name) && !IsBuiltin(name)) return std::nullopt;
  if (end < text.size() && !IsDelimiter(text[end])) {
    const QString joined = name == u"echo"                      ? u".:([]+/\\"_s
                           : name == u"cd" || name == u"chdir"  ? u"./\\"_s
                           : name == u"goto" || name == u"call" ? u":"_s
                                                                : u"/"_s;
    if (!joined.contains(text[end])) return std::nullopt;
  }
  return NamedCommand{name, text.sliced(end)};
}

QString FromFirstWord(const QString& text) {
  qsizetype begin = 0;
  while (begin < text.size() && (IsDelimiter(text[begin]) || text[begin] == u'@')) ++begin;
  return text.sliced(begin);
}

/// Arguments of a batch: parted by any delimiter, quotes kept.
QStringList BatchArguments(const QString& text) {
  QStringList arguments;
  QString current;
  bool quoted = false;
  for (const QChar c : text) {
    if (c == u'"') quoted = !quoted;
    if (!quoted && IsDelimiter(c)) {
      if (!current.isEmpty()) arguments << current;
      current.clear();
    } else {
      current += c;
    }
  }
  if (!current.isEmpty()) arguments << current;
  return arguments;
}

bool HasBatchEnding(const QString& name) {
  return name.endsWith(u".bat", Qt::CaseInsensitive) || name.endsWith(u".cmd", Qt::CaseInsensitive);
}

/// The batch that a command's first word names: with its ending, or without one where no tool goes by the name.
std::optional<QString> BatchOf(const QString& word) {
  if (HasBatchEnding(word)) return word;
  for (const QString& ending : {u".bat"_s, u".cmd"_s}) {
    if (!FindTool(word) && HostFiles::FileExists(word + ending)) return word + ending;
  }
  return std::nullopt;
}

/// How many subpictures a spumux run says it added, by its closing statistics.
int SubpicturesAdded(const QByteArray& output) {
  static const QRegularExpression kStatistics(u"(\\d+) subtitles added"_s);
  int added = 0;
  auto matches = kStatistics.globalMatch(QString::fromLatin1(output));
  while (matches.hasNext()) added = matches.next().captured(1).toInt();
  return added;
}

}  // namespace

Shell::Shell(const Streams& streams) : streams_(streams) {
  variables_.dynamic = [this](const QString& name) -> std::optional<QString> {
    if (name == u"CD") return CurrentDosDirectory();
    if (name == u"ERRORLEVEL") return QString::number(errorLevel_);
    return std::nullopt;
  };
}

void Shell::RunLine(const QString& line) {
  RunParsed(ParseCommandLine(ExpandVariables(line, variables_, {}, ExpansionRule::Prompt)));
}

void Shell::PrintPrompt() {
  PrintText(streams_.out, CurrentDosDirectory() + u'>');
}

void Shell::RunInteractively() {
  QByteArray line;
  while (!IsExiting()) {
    // One byte at a time: what follows the line belongs to the programs it starts.
    char c = 0;
    const ssize_t got = read(streams_.in, &c, 1);
    if (got < 0 && errno == EINTR && StopSignal() == 0) continue;
    if (got == 1 && c != '\n') {
      if (c != '\r') line += c;
      continue;
    }
    if (got <= 0 && line.isEmpty()) return;
    RunLine(QString::fromUtf8(std::exchange(line, {})));
    if (IsExiting() || got <= 0) return;
    PrintText(streams_.out, u"\n"_s);
    PrintPrompt();
  }
}

void Shell::RunFrame(Frame frame) {
  if (frames_.size() >= kDeepest) {
    Report(u"batches call each other too deeply"_s);
    for (Frame* caller : frames_) caller->ended = true;
    ++jumps_;
    return;
  }
  frames_.push_back(&frame);
  const QStringList& lines = frame.script->lines;
  const auto expanded = [&] {
    return ExpandVariables(lines[frame.next++], variables_, frame.arguments, ExpansionRule::Batch);
  };
  while (!frame.ended && frame.next < lines.size() && !IsExiting()) {
    if (lines[frame.next].trimmed().startsWith(u':')) {
      ++frame.next;
      continue;
    }
    QString line = expanded();
    while (GoesOn(line) && frame.next < lines.size()) line = line.chopped(1) + expanded();
    RunExpanded(line);
  }
  frames_.pop_back();
}

void Shell::RunExpanded(const QString& line) {
  if (line.trimmed().isEmpty()) return;
  const ParsedLine parsed = ParseCommandLine(line);
  if (echo_ && !parsed.quiet) PrintText(streams_.out, u'\n' + CurrentDosDirectory() + u'>' + line + u'\n');
  RunParsed(parsed);
}

void Shell::RunParsed(const ParsedLine& parsed) {
  if (!parsed.wellFormed) {
    errorLevel_ = 1;
    Report(u"The syntax of the command is incorrect."_s);
    return;
  }
  const int jumpsBefore = jumps_;
  for (const CommandChain& chain : parsed.chains) {
    if (chain.joint == CommandChain::Joint::AfterSuccess && errorLevel_ != 0) continue;
    if (chain.joint == CommandChain::Joint::AfterFailure && errorLevel_ == 0) continue;
    if (!chain.conditional.isEmpty()) {
      RunConditional(chain.conditional);
    } else if (chain.stages.size() == 1) {
      RunCommand(chain.stages.first());
    } else {
      RunPrograms(chain.stages);
    }
    if (jumps_ != jumpsBefore || IsExiting()) return;
  }
}

void Shell::RunConditional(const QString& text) {
  const auto condition = TestCondition(text, errorLevel_, variables_);
  if (!condition || conditionals_ >= kDeepestConditional) {
    errorLevel_ = 1;
    Report(u"The syntax of the command is incorrect."_s);
    return;
  }
  if (!condition->holds) return;
  ++conditionals_;
  RunParsed(ParseCommandLine(condition->command));
  --conditionals_;
}

void Shell::RunCommand(const CommandText& command) {
  const QString text = FromFirstWord(command.text);
  const QList<CommandWord> words = SplitWords(text);
  if (words.isEmpty()) return;
  if (!LanguageCommand(text) && !BatchOf(words.first().text)) {
    RunPrograms({command});
    return;
  }
  const OpenedStreams opened = Open(command.redirections, streams_);
  if (!opened.error.isEmpty()) {
    errorLevel_ = 1;
    Report(opened.error);
    return;
  }
  const Streams saved = std::exchange(streams_, opened.streams);
  RunInShell(text);
  streams_ = saved;
}

/// Runs what needs no program of its own: a command of the language or a batch. False when the text is neither.
bool Shell::RunInShell(const QString& text) {
  if (const auto command = LanguageCommand(text)) {
    if (RunControl(command->name, command->rest)) return true;
    errorLevel_ = RunBuiltin(command->name, {command->rest, variables_, streams_}).value_or(1);
    return true;
  }
  const QString word = SplitWords(text).first().text;
  const auto batch = BatchOf(word);
  if (!batch) return false;
  QStringList arguments = BatchArguments(text);
  StartBatch(*batch, arguments);
  // A batch that is not called does not come back.
  if (!frames_.empty()) {
    frames_.back()->ended = true;
    ++jumps_;
  }
  return true;
}

bool Shell::RunControl(const QString& name, const QString& rest) {
  if (name == u"rem") return true;
  if (name == u"echo") {
    Echo(rest);
  } else if (name == u"goto") {
    Goto(rest);
  } else if (name == u"call") {
    Call(rest);
  } else if (name == u"exit") {
    Exit(rest);
  } else {
    return false;
  }
  return true;
}

void Shell::Echo(const QString& rest) {
  const QString state = rest.trimmed().toLower();
  if (state.isEmpty()) {
    PrintText(streams_.out, echo_ ? u"ECHO is on.\n"_s : u"ECHO is off.\n"_s);
  } else if (IsDelimiter(rest[0]) && (state == u"on" || state == u"off")) {
    echo_ = state == u"on";
  } else {
    PrintText(streams_.out, rest.sliced(1) + u'\n');
  }
}

void Shell::Goto(const QString& rest) {
  if (frames_.empty()) return;
  ++jumps_;
  Frame& frame = *frames_.back();
  const QString label = LabelName(rest);
  const auto behind = frame.script->BehindLabel(label, frame.next);
  if (behind) {
    frame.next = *behind;
    return;
  }
  frame.ended = true;
  if (label.compare(u"eof", Qt::CaseInsensitive) == 0 && rest.trimmed().startsWith(u':')) return;
  errorLevel_ = 1;
  Report(u"The batch has no label %1"_s.arg(label));
}

void Shell::Call(const QString& rest) {
  const QString text = FromFirstWord(rest);
  const QList<CommandWord> words = SplitWords(text);
  if (words.isEmpty()) return;
  if (text.startsWith(u':')) {
    const QString label = LabelName(text);
    const auto behind =
        frames_.empty() ? std::nullopt : frames_.back()->script->BehindLabel(label, frames_.back()->next);
    if (behind) {
      RunFrame({frames_.back()->script, BatchArguments(text), *behind});
      return;
    }
    errorLevel_ = 1;
    Report(u"The batch has no label %1"_s.arg(label));
    return;
  }
  if (const auto batch = LanguageCommand(text) ? std::nullopt : BatchOf(words.first().text)) {
    StartBatch(*batch, BatchArguments(text));
  } else {
    RunCommand({text, {}});
  }
}

void Shell::Exit(const QString& rest) {
  QString text = rest.trimmed();
  const bool batchOnly = text.startsWith(u"/b", Qt::CaseInsensitive);
  if (batchOnly) text = text.sliced(2).trimmed();
  bool isNumber = false;
  const int level = text.toInt(&isNumber);
  if (isNumber) errorLevel_ = level;
  ++jumps_;
  if (batchOnly && !frames_.empty()) {
    frames_.back()->ended = true;
  } else {
    exiting_ = true;
  }
}

void Shell::StartBatch(const QString& path, const QStringList& arguments) {
  const Result<BatchScript> script = LoadBatchScript(path);
  if (!script) {
    errorLevel_ = 1;
    Report(u"the batch cannot be read: "_s + script.Error());
    return;
  }
  RunFrame({&*script, arguments});
}

Shell::OpenedStreams Shell::Open(const QList<Redirection>& redirections, const Streams& base) const {
  OpenedStreams opened;
  std::array<int, 3> handles{base.in, base.out, base.err};
  for (const Redirection& redirection : redirections) {
    if (redirection.handle > 2) continue;
    int& handle = handles[std::size_t(redirection.handle)];
    if (redirection.kind == Redirection::Kind::Duplicate) {
      if (redirection.duplicateOf <= 2) handle = handles[std::size_t(redirection.duplicateOf)];
      continue;
    }
    const bool nothing = redirection.target.compare(u"nul", Qt::CaseInsensitive) == 0;
    const QString host = nothing ? u"/dev/null"_s : HostFiles::ToHost(redirection.target);
    int flags = O_RDONLY;
    if (redirection.kind == Redirection::Kind::Write) flags = O_WRONLY | O_CREAT | O_TRUNC;
    if (redirection.kind == Redirection::Kind::Append) flags = O_WRONLY | O_CREAT | O_APPEND;
    OwnedFd file(open(QFile::encodeName(host).constData(), flags | O_CLOEXEC, 0666));
    if (!file) {
      opened.error = u"%1: %2"_s.arg(host, QString::fromLocal8Bit(std::strerror(errno)));
      return opened;
    }
    handle = file.Get();
    opened.owned.push_back(std::move(file));
    if (redirection.kind == Redirection::Kind::Read && redirection.handle == 0) opened.input = host;
    if (redirection.kind == Redirection::Kind::Write && redirection.handle == 1) opened.created << host;
  }
  // A text of errors in the same file is worth keeping.
  if (handles[1] == handles[2]) opened.created.clear();
  opened.streams = {handles[0], handles[1], handles[2]};
  return opened;
}

RunKind Shell::KindOfRun() const {
  if (frames_.empty()) return RunKind::Real;
  QString name = frames_.back()->script->path;
  name.replace(u'/', u'\\');
  name = name.sliced(name.lastIndexOf(u'\\') + 1);
  return name.compare(u"testrun.bat", Qt::CaseInsensitive) == 0 ? RunKind::SyntaxCheck : RunKind::Real;
}

void Shell::RunPrograms(const QList<CommandText>& commands) {
  PrivateFolder folder;
  std::vector<OpenedStreams> opened;
  QList<ToolCommand> tools;
  std::vector<OwnedFd> pipes;
  QStringList created;
  Streams next = streams_;
  for (qsizetype i = 0; i < commands.size(); ++i) {
    Streams base{next.in, streams_.out, streams_.err};
    if (i + 1 < commands.size()) {
      PipeEnds ends = MakePipe();
      base.out = ends.write.Get();
      next.in = ends.read.Get();
      pipes.push_back(std::move(ends.read));
      pipes.push_back(std::move(ends.write));
    }
    opened.push_back(Open(commands[i].redirections, base));
    QString error = opened.back().error;
    const QString text = FromFirstWord(commands[i].text);
    const QList<CommandWord> words = SplitWords(text);
    ToolCommand tool;
    if (error.isEmpty() && (LanguageCommand(text) || BatchOf(words.first().text))) {
      tool.stage.inside = [this, text](const Streams& streams) {
        streams_ = streams;
        RunInShell(text);
        return errorLevel_;
      };
    } else if (error.isEmpty()) {
      Result<ToolCommand> made = MakeToolCommand(words, opened.back().input, KindOfRun(), folder);
      if (made) {
        tool = *made;
      } else {
        error = made.Error();
      }
    }
    created << opened.back().created;
    if (!error.isEmpty()) {
      errorLevel_ = kNoSuchProgram;
      Report(error);
      for (const QString& path : created) QFile::remove(path);
      return;
    }
    for (auto change = variables_.Changes().cbegin(); change != variables_.Changes().cend(); ++change) {
      const bool own = tool.stage.environment.contains(change.key());
      // PATH holds folders of the other system there.
      if (!own && change.key().toUpper() != u"PATH") tool.stage.environment[change.key()] = change.value();
    }
    tool.stage.streams = opened.back().streams;
    tools << tool;
  }
  QList<ProcessStage> stages;
  for (const ToolCommand& tool : tools) stages << tool.stage;
  const QList<ProcessEnd> ends = RunProcesses(stages, [&] {
    pipes.clear();
    opened.clear();
  });
  Judge(tools, ends, created);
}

void Shell::Judge(const QList<ToolCommand>& tools, const QList<ProcessEnd>& ends, const QStringList& created) {
  bool failed = StopSignal() != 0;
  for (qsizetype i = 0; i < ends.size(); ++i) {
    const ProcessEnd& end = ends[i];
    const bool last = i + 1 == ends.size();
    if (last) errorLevel_ = end.signal ? 128 + end.signal : end.exitStatus;
    if (tools[i].stage.inside) continue;
    QString complaint;
    if (!end.failure.isEmpty()) {
      complaint = u"%1 could not be started: %2"_s.arg(tools[i].name, end.failure);
    } else if (end.signal == SIGPIPE && !last) {
      // The stage behind it went first, and has told why if that was a failure.
      continue;
    } else if (end.signal != 0) {
      complaint = u"%1 was ended by signal %2 (%3)"_s.arg(tools[i].name)
                      .arg(end.signal)
                      .arg(QString::fromLocal8Bit(strsignal(end.signal)));
    } else if (end.exitStatus != 0) {
      complaint = u"%1 ended with status %2"_s.arg(tools[i].name).arg(end.exitStatus);
    } else if (tools[i].addsSubpictures && SubpicturesAdded(end.watchedOutput) == 0) {
      complaint = u"%1 added no subpicture"_s.arg(tools[i].name);
      if (last) errorLevel_ = 1;
    }
    if (complaint.isEmpty()) continue;
    failed = true;
    // The program may have stopped within a line.
    if (StopSignal() == 0) PrintText(streams_.out, u"\n*ERROR: %1\n"_s.arg(complaint));
  }
  if (!failed) return;
  for (const QString& path : created) {
    struct stat status = {};
    const QByteArray host = QFile::encodeName(path);
    if (stat(host.constData(), &status) == 0 && S_ISREG(status.st_mode)) unlink(host.constData());
  }
}

void Shell::Report(const QString& text) {
  PrintText(streams_.out, u"*ERROR: %1\n"_s.arg(text));
}

}  // namespace torvane
