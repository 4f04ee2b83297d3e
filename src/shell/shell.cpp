#include "shell/shell.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "platform/host_files.h"
#include "shell/builtin_commands.h"
#include "shell/condition.h"
#include "shell/current_directory.h"
#include "shell/language_command.h"
#include "shell/tool_chain.h"
#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::size_t kDeepest = 64;      // batches that call each other
constexpr int kDeepestConditional = 100;  // IFs within IFs
constexpr int kNoSuchProgram = 9009;

/// Host paths of the files that ">" makes anew, and of all others that the commands may name.
std::pair<QStringList, QStringList> NamedFiles(const QList<CommandText>& commands) {
  QStringList made;
  QStringList others;
  for (const CommandText& command : commands) {
    for (const Redirection& redirection : command.redirections) {
      if (redirection.kind == Redirection::Kind::Duplicate) continue;
      (redirection.kind == Redirection::Kind::Write ? made : others) << RedirectionTarget(redirection);
    }
    for (const CommandWord& word : SplitWords(command.text)) others << HostFiles::ToHost(ResolveDosPath(word.text));
  }
  return {made, others};
}

bool IsStatusQuestion(const QString& conditional) {
  return conditional.contains(u"errorlevel", Qt::CaseInsensitive);
}

}  // namespace

Shell::Shell(const Streams& streams, double patience) : streams_(streams), console_(streams.out), patience_(patience) {
  variables_.dynamic = [this](const QString& name) -> std::optional<QString> {
    if (name == u"CD") return HostFiles::CurrentDirectory();
    if (name == u"ERRORLEVEL") return QString::number(errorLevel_);
    return std::nullopt;
  };
}

bool Shell::IsExiting() const {
  pollfd reader{console_, 0, 0};
  const bool unread = poll(&reader, 1, 0) > 0 && (reader.revents & POLLERR) != 0;
  return exiting_ || unread || StopSignal() != 0;
}

void Shell::RunLine(const QString& line) {
  RunParsed(ParseCommandLine(ExpandVariables(line, variables_, {}, ExpansionRule::Prompt)));
}

void Shell::PrintPrompt() {
  PrintText(streams_.out, HostFiles::CurrentDirectory() + u'>');
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
  if (echo_ && !parsed.quiet) PrintText(streams_.out, u'\n' + HostFiles::CurrentDirectory() + u'>' + line + u'\n');
  RunParsed(parsed);
}

void Shell::RunParsed(const ParsedLine& parsed) {
  if (!parsed.wellFormed) {
    errorLevel_ = 1;
    Report(u"The syntax of the command is incorrect."_s);
    return;
  }
  const int jumpsBefore = jumps_;
  for (qsizetype i = 0; i < parsed.chains.size(); ++i) {
    const CommandChain& chain = parsed.chains[i];
    if (chain.joint == CommandChain::Joint::AfterSuccess && errorLevel_ != 0) continue;
    if (chain.joint == CommandChain::Joint::AfterFailure && errorLevel_ == 0) continue;
    nextChain_ = i + 1 < parsed.chains.size() ? &parsed.chains[i + 1] : nullptr;
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
  const RedirectedStreams opened = OpenRedirections(command.redirections, streams_);
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
  const Result<BatchScript> script = LoadBatchScript(ResolveDosPath(path));
  if (!script) {
    errorLevel_ = 1;
    Report(u"the batch cannot be read: "_s + script.Error());
    return;
  }
  RunFrame({&*script, arguments});
}

RunKind Shell::KindOfRun() const {
  if (frames_.empty()) return RunKind::Real;
  QString name = frames_.back()->script->path;
  name.replace(u'/', u'\\');
  name = name.sliced(name.lastIndexOf(u'\\') + 1);
  return name.compare(u"testrun.bat", Qt::CaseInsensitive) == 0 ? RunKind::SyntaxCheck : RunKind::Real;
}

void Shell::RunPrograms(const QList<CommandText>& commands) {
  const auto [made, others] = NamedFiles(commands);
  if (const QString both = WrittenWhileRead(made, others); !both.isEmpty()) {
    errorLevel_ = 1;
    Report(u"%1 would be overwritten while it is read"_s.arg(both));
    return;
  }
  PrivateFolder folder;
  std::vector<RedirectedStreams> opened;
  std::vector<OwnedFd> pipes;
  QList<ToolCommand> tools;
  QStringList created;
  int nextInput = streams_.in;
  for (qsizetype i = 0; i < commands.size(); ++i) {
    Streams base{nextInput, streams_.out, streams_.err};
    if (i + 1 < commands.size()) {
      PipeEnds ends = MakePipe();
      base.out = ends.write.Get();
      nextInput = ends.read.Get();
      pipes.push_back(std::move(ends.read));
      pipes.push_back(std::move(ends.write));
    }
    opened.push_back(OpenRedirections(commands[i].redirections, base));
    created << opened.back().created;
    const Result<ToolCommand> tool = MakeStage(commands[i].text, opened.back(), folder);
    if (!tool) {
      errorLevel_ = opened.back().error.isEmpty() ? kNoSuchProgram : 1;
      Report(tool.Error());
      for (const QString& path : created) RemoveOrdinaryFile(path);
      return;
    }
    tools << *tool;
  }
  const ChainOutcome outcome = RunToolChain(tools, created, patience_, [&] {
    pipes.clear();
    opened.clear();
  });
  errorLevel_ = outcome.errorLevel;
  if (StopSignal() != 0) return;
  QStringList complaints = outcome.complaints;
  if (!outcome.statusComplaint.isEmpty() && !AsksForStatus()) complaints << outcome.statusComplaint;
  for (const QString& complaint : complaints) {
    PrintText(console_, u"\n"_s);  // a program may have stopped within a line
    Report(complaint);
  }
}

/// Whether the command that comes next deals with the status of the one that has ended.
bool Shell::AsksForStatus() const {
  if (nextChain_) {
    return nextChain_->joint == CommandChain::Joint::AfterFailure || IsStatusQuestion(nextChain_->conditional);
  }
  if (frames_.empty()) return false;
  const Frame& frame = *frames_.back();
  for (qsizetype i = frame.next; i < frame.script->lines.size(); ++i) {
    const QString line = FromFirstWord(frame.script->lines[i]);
    if (line.isEmpty() || line.startsWith(u':')) continue;
    const QList<CommandChain> chains = ParseCommandLine(line).chains;
    return !chains.isEmpty() && IsStatusQuestion(chains.first().conditional);
  }
  return false;
}

Result<ToolCommand> Shell::MakeStage(const QString& commandText, const RedirectedStreams& opened,
                                     PrivateFolder& folder) {
  if (!opened.error.isEmpty()) return Failure{opened.error};
  const QString text = FromFirstWord(commandText);
  const QList<CommandWord> words = SplitWords(text);
  if (words.isEmpty()) return Failure{u"The syntax of the command is incorrect."_s};
  ToolCommand tool;
  if (LanguageCommand(text) || BatchOf(words.first().text)) {
    tool.stage.inside = [this, text](const Streams& streams) {
      streams_ = streams;
      console_ = streams.err;
      RunInShell(text);
      return errorLevel_;
    };
  } else {
    Result<ToolCommand> made = MakeToolCommand(words, {opened.input, opened.created.value(0)}, KindOfRun(), folder);
    if (!made) return made;
    tool = *made;
    for (auto change = variables_.Changes().cbegin(); change != variables_.Changes().cend(); ++change) {
      const bool own = tool.stage.environment.contains(change.key());
      // PATH holds folders of the other system there.
      if (!own && change.key().toUpper() != u"PATH") tool.stage.environment[change.key()] = change.value();
    }
  }
  tool.stage.streams = opened.streams;
  return tool;
}

void Shell::Report(const QString& text) {
  complained_ = true;
  PrintText(console_, u"*ERROR: %1\n"_s.arg(text));
}

}  // namespace torvane
