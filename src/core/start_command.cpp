#include "core/start_command.h"

#include <algorithm>
#include <array>

#include "core/engine.h"
#include "core/messages.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// An option /name="value". `window` is how far behind its start the quote that counts may stand.
struct Option {
  QStringView name;
  qsizetype window;
};

constexpr Option kFormat{u"/format=", 16};
constexpr Option kUseTitleSets{u"/usetitlesets=", 21};
constexpr Option kChapters{u"/chapters=", 13};
constexpr Option kChapterFile{u"/chapterfile=", 16};
constexpr std::array kOptions{kFormat, kUseTitleSets, kChapters, kChapterFile};

constexpr auto kAudioEnds = std::to_array<QStringView>({u"/form", u"/chapt", u"/usetitle"});
constexpr auto kVideoExtensions = std::to_array<QStringView>({u"MPG", u"VOB", u"M2V", u"M1V", u"MPV"});

/// A text between double quotes, by the places of the quotes in the command line.
struct Quoted {
  qsizetype open = -1;
  qsizetype close = -1;

  explicit operator bool() const { return close >= 0; }
  QString Of(const QString& text) const { return text.sliced(open + 1, close - open - 1); }
};

Quoted FindQuoted(const QString& text, qsizetype from) {
  const qsizetype open = text.indexOf(u'"', from);
  return {open, open < 0 ? -1 : text.indexOf(u'"', open + 1)};
}

/// Which quote of a value must stand within the window of its option.
enum class Within { Opening, Closing };

std::optional<QString> FindValue(const QString& text, const Option& option, Within within) {
  const qsizetype start = text.indexOf(option.name, 0, Qt::CaseInsensitive);
  if (start < 0) return std::nullopt;
  const Quoted value = FindQuoted(text, start);
  if (!value || (within == Within::Opening ? value.open : value.close) - start >= option.window) return std::nullopt;
  return value.Of(text);
}

/// The flag that a word in the value of an option clears or sets; with both words it is set.
std::optional<bool> FindFlag(const QString& text, const Option& option, QStringView clears, QStringView sets) {
  const std::optional<QString> value = FindValue(text, option, Within::Closing);
  if (value && value->contains(sets, Qt::CaseInsensitive)) return true;
  if (value && value->contains(clears, Qt::CaseInsensitive)) return false;
  return std::nullopt;
}

QString WithCommandLine(const QString& message, const QString& commandLine) {
  return message + u"\r\n" + GetMessage(102, {{u"|1", commandLine}});
}

QString WithoutQuotes(QString text) {
  if (text.startsWith(u'"')) text.remove(0, 1);
  if (text.endsWith(u'"')) text.chop(1);
  return text;
}

/// The name under which the source browser shows a file: of that name in any case, and of one of its patterns.
std::optional<QString> FindSource(const PathParts& wanted, const Settings& settings) {
  const QStringList patterns = SourcePatterns(settings);
  for (const QString& name : HostFiles::FileNames(wanted.dir)) {
    if (name.compare(wanted.name + wanted.ext, Qt::CaseInsensitive) != 0) continue;
    if (patterns.contains(u"*." + GetExtensionUpper(name), Qt::CaseInsensitive)) return name;
  }
  return std::nullopt;
}

void ReadAudio(const StartCommand& command, const FileJudge& isAudio, Prompter& prompter, FilmRecord& film) {
  const QString& text = command.commandLine;
  qsizetype end = text.size();
  for (const QStringView option : kAudioEnds) {
    const qsizetype start = text.indexOf(option, 0, Qt::CaseInsensitive);
    if (start >= 0) end = std::min(end, start);
  }
  qsizetype from = command.videoEnd + 1;
  for (QString& audio : film.Audio) {
    const Quoted quoted = FindQuoted(text, from);
    if (!quoted || quoted.close > end) return;
    from = quoted.close + 1;
    if (IsMultiplexedFile(film.VideoFile)) {
      prompter.Warn(GetMessage(151) + u"\r\n" + GetMessage(152, {{u"|1", film.VideoFile}}));
      return;
    }
    const QString path = quoted.Of(text);
    if (HostFiles::FileExists(path) && isAudio(path)) {
      audio = path;
    } else {
      prompter.Warn(WithCommandLine(GetMessage(153, {{u"|1", path}}), text));
    }
  }
}

StartCommand ReadProjectForm(const QString& commandLine, Prompter& prompter) {
  const QString path = WithoutQuotes(commandLine);
  if (HostFiles::FileExists(path)) {
    return {.kind = StartKind::LoadProject, .commandLine = commandLine, .projectFile = path};
  }
  prompter.Fail(GetMessage(627, {{u"|1", path}}));
  return {};
}

}  // namespace

QString JoinArguments(const QStringList& arguments) {
  QStringList joined;
  for (const QString& argument : arguments) {
    const auto option = std::ranges::find_if(kOptions, [&argument](const Option& each) {
      return argument.startsWith(each.name, Qt::CaseInsensitive);
    });
    const qsizetype nameLength = option == kOptions.end() ? 0 : option->name.size();
    QString value = WithoutQuotes(argument.sliced(nameLength));
    if (option == kOptions.end() || option->name == kChapterFile.name) value = HostFiles::FromUser(value);
    joined << argument.first(nameLength) + u'"' + value + u'"';
  }
  return joined.join(u' ');
}

StartCommand ParseStartCommand(const QString& commandLine, const FileJudge& isVideo, Prompter& prompter) {
  if (commandLine.isEmpty()) return {};
  if (commandLine.contains(u".tvn", Qt::CaseInsensitive) && !commandLine.contains(u'/')) {
    return ReadProjectForm(commandLine, prompter);
  }
  if (!commandLine.contains(u'"')) {
    prompter.Fail(WithCommandLine(GetMessage(101), commandLine));
    return {};
  }
  const Quoted quoted = FindQuoted(commandLine, 0);
  const QString video = quoted && quoted.close - quoted.open > 2 ? quoted.Of(commandLine) : QString();
  const bool hasVideoName = std::ranges::find(kVideoExtensions, GetExtensionUpper(video)) != kVideoExtensions.end();
  if (!hasVideoName || !HostFiles::FileExists(video) || !isVideo(video)) {
    prompter.Fail(WithCommandLine(GetMessage(103), commandLine));
    return {};
  }
  return {.kind = StartKind::AddFilm,
          .commandLine = commandLine,
          .videoFile = video,
          .videoEnd = quoted.close,
          .VideoNormPal = FindFlag(commandLine, kFormat, u"NTSC", u"PAL"),
          .NoTitleSets = FindFlag(commandLine, kUseTitleSets, u"ON", u"OFF")};
}

void ApplyStartCommand(const StartCommand& command, Settings& settings) {
  if (command.kind != StartKind::AddFilm) return;
  settings.InDir = SplitPath(command.videoFile).dir;
  settings.VideoNormPal = command.VideoNormPal.value_or(settings.VideoNormPal);
  FollowVideoNorm(settings);
  settings.NoTitleSets = command.NoTitleSets.value_or(settings.NoTitleSets);
}

std::optional<StartFilm> ReadStartFilm(const StartCommand& command, const Settings& settings, const FileJudge& isAudio,
                                       Prompter& prompter) {
  const PathParts video = SplitPath(command.videoFile);
  const std::optional<QString> name = FindSource(video, settings);
  if (!name) {
    prompter.Fail(GetMessage(150, {{u"|1", QString(video.name + video.ext)}}));
    return std::nullopt;
  }
  StartFilm start;
  start.film.Name = name->section(u'.', 0, 0);
  start.film.VideoFile = video.dir + u'\\' + *name;
  ReadAudio(command, isAudio, prompter, start.film);
  start.film.Chapters = FindValue(command.commandLine, kChapters, Within::Opening).value_or(start.film.Chapters);
  const QString chapterFile = FindValue(command.commandLine, kChapterFile, Within::Opening).value_or(QString());
  if (HostFiles::FileExists(chapterFile)) start.chapterFile = chapterFile;
  return start;
}

QStringList SourcePatterns(const Settings& settings) {
  QStringList patterns{u"*.mpv"_s, u"*.m2v"_s, u"*.m1v"_s};
  if (settings.Engine == kEngineMuxMan) return patterns;
  return QStringList{u"*.mpg"_s} + patterns + QStringList{u"*.vob"_s};
}

}  // namespace torvane
