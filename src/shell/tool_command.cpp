#include "shell/tool_command.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "media/palette.h"
#include "media/palette_file.h"
#include "media/text_encoding.h"
#include "platform/host_files.h"
#include "shell/control_file.h"
#include "shell/current_directory.h"
#include "shell/font_name.h"
#include "shell/mplex_sound.h"
#include "shell/syntax_check.h"
#include "shell/title_palette.h"
#include "shell/tool_program.h"
#include "shell/video_norm.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class CommandMaker {
 public:
  CommandMaker(const QList<CommandWord>& words, const RedirectedFiles& files, RunKind kind, PrivateFolder& folder)
      : words_(words), files_(files), kind_(kind), folder_(folder) {}

  Result<ToolCommand> Run() {
    const Result<ToolProgram> found = FindToolProgram(words_.first().text);
    if (!found) return Failure{found.Error()};
    command_.name = found->name;
    command_.stage.program = found->program;
    command_.stage.arguments = found->arguments;
    tool_ = found->entry;
    wine_ = found->wine;
    firstArgument_ = found->arguments.size();
    command_.stage.environment[u"LC_ALL"_s] = u"C.UTF-8"_s;
    AddArguments();
    Promise();
    if (tool_ && tool_->own && !wine_) BringOwn();
    if (tool_ && tool_->isMplex) {
      if (const Status prepared = PrepareSound(); !prepared) return Failure{prepared.Error()};
    }
    if (tool_ && tool_->controlFile != ToolEntry::ControlFile::None) {
      if (const Status copied = UsePrivateCopy(); !copied) return Failure{copied.Error()};
    }
    return command_;
  }

 private:
  /// The path as the program is given it. Wine knows drive Z only. A file whose name begins with "-" is no option.
  QString Map(const QString& dosPath) {
    QString host = HostFiles::ToHost(dosPath);
    if (wine_) return HostFiles::ToDos(QDir::current().absoluteFilePath(host));
    return host.startsWith(u'-') ? QString(u"./" + host) : host;
  }

  /// The same for a path in a control file. There the tools take a name that ends in "|" for a command, one that begins
  /// with "&" for a number of an open file and "-" for their input, so none is relative.
  QString MapInside(const QString& dosPath) {
    QString mapped = Map(dosPath);
    if (!wine_) mapped = QDir::cleanPath(QDir::current().absoluteFilePath(mapped));
    if (!mapped.endsWith(u'|')) return mapped;
    const Result<QString> folder = folder_.Path();
    if (!folder) return mapped + u'/';
    const QString link = u"%1/link%2"_s.arg(*folder).arg(++links_);
    QFile::link(QDir::current().absoluteFilePath(HostFiles::ToHost(dosPath)), link);
    return wine_ ? HostFiles::ToDos(link) : link;
  }

  void AddArguments() {
    static const QRegularExpression kPath(u"[A-Za-z]:[\\\\/]"_s);
    QString option;
    for (qsizetype i = 1; i < words_.size(); ++i) {
      const CommandWord& word = words_[i];
      QString argument = word.text;
      if (tool_ && !word.quoted && tool_->dropped.contains(argument) && !wine_) continue;
      const bool isOption = !word.quoted && argument.startsWith(u'-');
      const bool plain = tool_ && tool_->plainValue.contains(option);
      const qsizetype drive = plain ? -1 : argument.indexOf(kPath);
      if (drive == 0 || (drive > 0 && argument.startsWith(u'-'))) {
        argument = argument.left(drive) + Map(ResolveDosPath(argument.sliced(drive)));
      } else if (!plain && !isOption && (word.quoted || argument.contains(u'\\'))) {
        argument = Map(ResolveDosPath(argument));
      }
      if (!isOption) {
        const bool isOutput =
            tool_ && (i == tool_->outputPlace || (!option.isEmpty() && option == tool_->outputOption));
        (isOutput ? command_.outputs : command_.inputs) << HostFiles::ToHost(ResolveDosPath(word.text));
      }
      if (tool_ && !wine_ && IsPattern(option, argument)) argument.replace(u'%', u"%%"_s);
      if (!isOption && NamesControlFile(option)) {
        controlFileAt_ = command_.stage.arguments.size();
        controlFile_ = ResolveDosPath(word.text);
      }
      command_.stage.arguments << argument;
      option = isOption ? word.text : QString();
    }
  }

  void Promise() {
    if (!files_.input.isEmpty()) command_.inputs << files_.input;
    if (!tool_) return;
    for (const QString& output : command_.outputs) {
      command_.promised << PromisedFile{output, wine_ ? QByteArray() : tool_->ending};
    }
    if (tool_->streamsOutput && !files_.output.isEmpty()) command_.promised << PromisedFile{files_.output};
    command_.streamsOutput = tool_->streamsOutput && files_.output.isEmpty();
    command_.patience = tool_->patience;
  }

  bool IsPattern(const QString& option, const QString& argument) const {
    for (const QString& pattern : tool_->patternValue) {
      if (option == pattern || (argument.startsWith(pattern) && argument.size() > pattern.size())) return true;
    }
    return false;
  }

  /// dvdauthor names its control file behind -x; that of spumux is the argument that belongs to no option.
  bool NamesControlFile(const QString& optionBefore) const {
    if (!tool_ || tool_->controlFile == ToolEntry::ControlFile::None) return false;
    if (tool_->controlFile == ToolEntry::ControlFile::Dvdauthor) return optionBefore == u"-x";
    return optionBefore != u"-s" && optionBefore != u"-m" && optionBefore != u"-v";
  }

  void BringOwn() {
    const OwnTool* own = tool_->own;
    command_.stage.inside = [own, name = command_.name, arguments = command_.stage.arguments](const Streams&) {
      return RunOwnTool(*own, name, arguments);
    };
    command_.discard = [own, arguments = command_.stage.arguments] { own->discard(arguments); };
  }

  Status PrepareSound() {
    QStringList& arguments = command_.stage.arguments;
    const Result<MplexArguments> prepared = PrepareMplexSound(
        arguments.sliced(firstArgument_), command_.outputs.value(0), wine_ ? MplexKind::Wine : MplexKind::Native);
    if (!prepared) return Failure{prepared.Error()};
    arguments = arguments.first(firstArgument_) + prepared->arguments;
    command_.scratch = prepared->scratch;
    return {};
  }

  Status UsePrivateCopy() {
    if (controlFileAt_ < 0) return {};
    const Result<QByteArray> bytes = HostFiles::Read(controlFile_);
    if (!bytes) return Failure{bytes.Error()};
    const Result<QString> folder = folder_.Path();
    if (!folder) return Failure{folder.Error()};
    ControlFile file(*bytes);
    QString format = file.StatedVideoFormat();
    if (tool_->controlFile == ToolEntry::ControlFile::Dvdauthor) {
      for (const QString& film : format.isEmpty() ? file.Films() : QStringList()) {
        format = VideoNormOf(HostFiles::ToHost(film));
        if (!format.isEmpty()) break;
      }
      if (format.isEmpty() && kind_ == RunKind::SyntaxCheck) format = u"PAL"_s;
    } else if (format.isEmpty()) {
      format = VideoNormOf(files_.input);
    }
    if (!format.isEmpty()) command_.stage.environment[u"VIDEO_FORMAT"_s] = format;

    const PathMapper map = [this](const QString& path) { return MapInside(path); };
    if (tool_->controlFile == ToolEntry::ControlFile::Spumux) {
      command_.addsSubpictures = true;
      command_.stage.watched = true;
      if (const Status replaced = ReplaceTexts(file, *folder); !replaced) return replaced;
      file.MapSpumuxPaths(map, NativeFontName);
      if (const Status colored = UsePaletteColors(file); !colored) return colored;
    } else {
      if (kind_ == RunKind::SyntaxCheck) {
        // The stand-ins are 4:3 films, for which dvdauthor refuses what 16:9 menus exclude.
        if (Status reduced = ReduceToCheck(file, format, *folder); !reduced) return reduced;
      } else {
        file.ExcludePanScan();
        const QString disc = file.Disc();
        if (!disc.isEmpty()) command_.promised << PromisedFile{HostFiles::ToHost(disc) + u"/VIDEO_TS/VIDEO_TS.IFO"_s};
        if (const Status replaced = ReplacePalettes(file, *folder); !replaced) return replaced;
      }
      file.MapAuthorPaths(map);
    }
    return WriteCopy(*folder, file.ToBytes());
  }

  /// A text that says by itself what its bytes are is not left to the character set that the file states. spumux
  /// knows no UTF-16, and takes the mark of UTF-8 for a sign of the first line.
  Status ReplaceTexts(ControlFile& file, const QString& folder) const {
    int copies = 0;
    return file.ReplaceTexts([&](const QString& dosPath) -> Result<SubtitleText> {
      const Result<QByteArray> text = HostFiles::Read(ResolveDosPath(dosPath));
      if (!text || EncodingOfText(*text) == TextEncoding::Unstated) return SubtitleText{};
      const QByteArray converted = TextAsUtf8(*text);
      if (converted == *text) return SubtitleText{.characterSet = u"UTF-8"_s};
      const QString copy = HostFiles::ToDos(u"%1/text%2"_s.arg(folder).arg(++copies));
      if (const Status written = HostFiles::WriteAtomically(copy, converted); !written) return Failure{written.Error()};
      return SubtitleText{.file = copy, .characterSet = u"UTF-8"_s};
    });
  }

  Status ReplacePalettes(ControlFile& file, const QString& folder) const {
    int copies = 0;
    return file.ReplacePalettes([&](const QString& dosPath) -> Result<QString> {
      const QString path = HostFiles::ToHost(ResolveDosPath(dosPath));
      const Result<QList<int>> colors = ReadTitlePalette(path);
      // dvdauthor tells of a palette that is none.
      if (!colors || wine_ || FindablePalette(*colors) == *colors) return dosPath;
      const QString copy = HostFiles::ToDos(u"%1/palette%2.pal"_s.arg(folder).arg(++copies));
      const Status written = HostFiles::WriteAtomically(copy, PaletteFileText(PaletteList(FindablePalette(*colors))));
      return written ? Result<QString>(copy) : Failure{written.Error()};
    });
  }

  Status UsePaletteColors(ControlFile& file) const {
    static const QRegularExpression kStream(u"_SUB[1-3]\\.mpg$"_s, QRegularExpression::CaseInsensitiveOption);
    const bool asked = std::any_of(words_.cbegin(), words_.cend(),
                                   [](const CommandWord& word) { return !word.quoted && word.text == u"-ma"; });
    const QString path = QString(files_.output).replace(kStream, u".pal"_s);
    if (!asked || wine_ || !path.endsWith(u".pal") || !QFileInfo::exists(path)) return {};
    const Result<QList<int>> colors = ReadTitlePalette(path);
    if (!colors) return Failure{colors.Error()};
    const auto text = [&](int index) -> QString {
      return u"#%1"_s.arg(DrawnColor(colors->at(index)), 6, 16, QChar(u'0'));
    };
    file.SetTextColors(text(1), text(2));
    return {};
  }

  /// A command that cannot be parsed is told by itself; without one the whole is checked as far as it goes without
  /// films.
  Status ReduceToCheck(ControlFile& file, const QString& format, const QString& folder) const {
    ControlFile commands = CommandsAlone(file, folder);
    if (!wine_ && HasParseError(commands, command_.stage.program, command_.stage.environment, folder)) {
      file = commands;
      return {};
    }
    return UseStandIns(file, format, folder);
  }

  Status WriteCopy(const QString& folder, const QByteArray& bytes) {
    QString name = controlFile_;
    name.replace(u'\\', u'/');
    name = name.sliced(name.lastIndexOf(u'/') + 1);
    QFile copy(folder + u'/' + name);
    if (!copy.open(QIODevice::WriteOnly) || copy.write(bytes) != bytes.size() || !copy.flush()) {
      return Failure{copy.fileName() + u": "_s + copy.errorString()};
    }
    command_.stage.arguments[controlFileAt_] = wine_ ? HostFiles::ToDos(copy.fileName()) : copy.fileName();
    return {};
  }

  const QList<CommandWord>& words_;
  const RedirectedFiles& files_;
  RunKind kind_;
  PrivateFolder& folder_;
  const ToolEntry* tool_ = nullptr;
  ToolCommand command_;
  bool wine_ = false;
  qsizetype firstArgument_ = 0;   // behind what starts the program
  qsizetype controlFileAt_ = -1;  // its place among the arguments
  QString controlFile_;
  int links_ = 0;
};

}  // namespace

Result<QString> PrivateFolder::Path() {
  if (!folder_) folder_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/torvane-cmd-XXXXXX"_s);
  if (!folder_->isValid())
    return Failure{u"no private folder in %1: %2"_s.arg(QDir::tempPath(), folder_->errorString())};
  return folder_->path();
}

Result<ToolCommand> MakeToolCommand(const QList<CommandWord>& words, const RedirectedFiles& files, RunKind kind,
                                    PrivateFolder& folder) {
  return CommandMaker(words, files, kind, folder).Run();
}

}  // namespace torvane
