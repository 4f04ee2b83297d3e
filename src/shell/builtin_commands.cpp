#include "shell/builtin_commands.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/host_files.h"
#include "platform/removal.h"
#include "shell/command_parser.h"
#include "shell/current_directory.h"
#include "shell/dos_wildcard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;

/// The words of a command, its "/X" switches apart.
struct FileArguments {
  QStringList paths;
  QString switches;  // the letters, in capitals

  explicit FileArguments(const QString& text) {
    // A switch may follow its command or another word without a blank: "erase/q", "x.txt/q".
    QString spaced;
    bool quoted = false;
    for (const QChar c : text) {
      if (c == u'"') quoted = !quoted;
      if (c == u'/' && !quoted) spaced += u' ';
      spaced += !quoted && (c == u',' || c == u';' || c == u'=') ? QChar(u' ') : c;
    }
    for (const CommandWord& word : SplitWords(spaced)) {
      if (!word.quoted && word.text.startsWith(u'/')) {
        switches += word.text.mid(1, 1).toUpper();
      } else {
        paths << ResolveDosPath(word.text);
      }
    }
  }

  bool Has(QChar letter) const { return switches.contains(letter); }
};

int Fail(const BuiltinCall& call, const QString& text) {
  PrintText(call.streams.err, text + u'\n');
  return 1;
}

int BadSyntax(const BuiltinCall& call) {
  return Fail(call, u"The syntax of the command is incorrect."_s);
}

QString Reason() {
  return QString::fromLocal8Bit(std::strerror(errno));
}

bool IsReadOnly(const QString& hostPath) {
  struct stat status = {};
  return lstat(QFile::encodeName(hostPath).constData(), &status) == 0 && S_ISREG(status.st_mode) &&
         (status.st_mode & S_IWUSR) == 0;
}

int Erase(const BuiltinCall& call) {
  const FileArguments arguments(call.arguments);
  if (arguments.paths.isEmpty()) return BadSyntax(call);
  if (arguments.Has(u'S')) return Fail(call, u"*ERROR: erase /S is not available on this system"_s);
  int level = 0;
  for (const QString& named : arguments.paths) {
    const QString path = HostFiles::DirExists(named) ? named + u"\\*"_s : named;
    if (HasWildcard(path) && LiesInMachineRoot(path)) {
      return Fail(call, u"*ERROR: erase takes no wildcard in the root of this machine"_s);
    }
    const QStringList files = FilesOf(path);
    if (files.isEmpty()) PrintText(call.streams.err, u"Could Not Find %1\n"_s.arg(named));
    for (const QString& file : files) {
      const QString host = HostFiles::ToHost(file);
      if ((IsReadOnly(host) && !arguments.Has(u'F')) || unlink(QFile::encodeName(host).constData()) != 0) {
        level = Fail(call, file + u"\nAccess is denied."_s);
      }
    }
  }
  return level;
}

int MakeDirectory(const BuiltinCall& call) {
  const FileArguments arguments(call.arguments);
  if (arguments.paths.isEmpty()) return BadSyntax(call);
  int level = 0;
  for (const QString& path : arguments.paths) {
    if (HostFiles::DirExists(path) || HostFiles::FileExists(path)) {
      level = Fail(call, u"A subdirectory or file %1 already exists."_s.arg(path));
    } else if (!HostFiles::MakeDir(path)) {
      level = Fail(call, u"The system cannot find the path specified."_s);
    }
  }
  return level;
}

int RemoveDirectory(const BuiltinCall& call) {
  const FileArguments arguments(call.arguments);
  if (arguments.paths.isEmpty()) return BadSyntax(call);
  int level = 0;
  for (const QString& path : arguments.paths) {
    if (!HostFiles::DirExists(path)) {
      level = Fail(call, u"The system cannot find the file specified."_s);
    } else if (arguments.Has(u'S') && arguments.Has(u'Q')) {
      const QFileInfo info(HostFiles::ToHost(path));
      if (info.canonicalFilePath() == u"/" || LiesInMachineRoot(path)) {
        return Fail(call, u"*ERROR: rmdir /S does not work in the root of this machine"_s);
      }
      if (!RemoveTree(path)) level = Fail(call, path + u"\nAccess is denied."_s);
    } else if (arguments.Has(u'S')) {
      level = Fail(call, u"*ERROR: rmdir /S asks a question; it needs /Q here"_s);
    } else if (!HostFiles::RemoveDir(path)) {
      level = Fail(call, errno == ENOTEMPTY || errno == EEXIST ? u"The directory is not empty."_s : Reason());
    }
  }
  return level;
}

bool CopyFile(const QString& from, const QString& to) {
  const OwnedFd source(open(QFile::encodeName(from).constData(), O_RDONLY | O_CLOEXEC));
  if (!source) return false;
  const OwnedFd target(open(QFile::encodeName(to).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!target) return false;
  std::array<char, 65536> buffer;
  ssize_t got = 0;
  while ((got = read(source.Get(), buffer.data(), buffer.size())) > 0) {
    if (!WriteAll(target.Get(), QByteArray::fromRawData(buffer.data(), got))) break;
  }
  if (got == 0) return true;
  const int reason = errno;
  unlink(QFile::encodeName(to).constData());
  errno = reason;
  return false;
}

int Copy(const BuiltinCall& call) {
  const FileArguments arguments(call.arguments);
  if (arguments.paths.isEmpty() || arguments.paths.size() > 2) return BadSyntax(call);
  if (arguments.paths.first().contains(u'+')) {
    if (FilesOf(arguments.paths.first()).isEmpty()) {
      return Fail(call, u"*ERROR: copy cannot join files on this system"_s);
    }
  }
  const QStringList files = FilesOf(arguments.paths.first());
  if (files.isEmpty()) {
    if (HasWildcard(arguments.paths.first())) PrintText(call.streams.err, arguments.paths.first() + u'\n');
    return Fail(call, u"The system cannot find the file specified."_s);
  }
  const QString target = arguments.paths.value(1, u"."_s);
  const bool intoDirectory = HostFiles::DirExists(target);
  int copied = 0;
  int level = 0;
  for (const QString& file : files) {
    const QString from = HostFiles::ToHost(file);
    const QString to = HostFiles::ToHost(intoDirectory ? target + u'\\' + QFileInfo(from).fileName() : target);
    if (QFileInfo(from).canonicalFilePath() == QFileInfo(to).canonicalFilePath()) {
      level = Fail(call, u"The file cannot be copied onto itself."_s);
    } else if (CopyFile(from, to)) {
      ++copied;
    } else {
      level = Fail(call, u"%1: %2"_s.arg(to, Reason()));
    }
  }
  PrintText(call.streams.out, u"%1 file(s) copied.\n"_s.arg(copied, 9));
  return level;
}

/// Of the attributes a file of this machine has read-only alone; the others are accepted and come to nothing.
int Attributes(const BuiltinCall& call) {
  mode_t add = 0;
  mode_t take = 0;
  int level = 0;
  for (const CommandWord& word : SplitWords(call.arguments)) {
    if (!word.quoted && word.text.size() == 2 && (word.text[0] == u'+' || word.text[0] == u'-')) {
      if (word.text[1].toUpper() != u'R') continue;
      (word.text[0] == u'+' ? take : add) = word.text[0] == u'+' ? kAnyWrite : mode_t(S_IWUSR);
      continue;
    }
    if (!word.quoted && word.text.startsWith(u'/')) continue;
    const QStringList files = FilesOf(ResolveDosPath(word.text));
    if (files.isEmpty()) level = Fail(call, u"File not found - %1"_s.arg(word.text));
    for (const QString& file : files) {
      const QByteArray host = QFile::encodeName(HostFiles::ToHost(file));
      struct stat status = {};
      if (stat(host.constData(), &status) != 0 ||
          chmod(host.constData(), ((status.st_mode & 07777) | add) & ~take) != 0) {
        level = Fail(call, u"%1: %2"_s.arg(file, Reason()));
      }
    }
  }
  return level;
}

int Type(const BuiltinCall& call) {
  int level = 0;
  for (const QString& path : FileArguments(call.arguments).paths) {
    const QStringList files = FilesOf(path);
    if (files.isEmpty()) level = Fail(call, u"The system cannot find the file specified."_s);
    for (const QString& file : files) {
      const OwnedFd source(open(QFile::encodeName(HostFiles::ToHost(file)).constData(), O_RDONLY | O_CLOEXEC));
      std::array<char, 65536> buffer;
      ssize_t got = source ? 0 : -1;
      while (source && (got = read(source.Get(), buffer.data(), buffer.size())) > 0) {
        if (!WriteAll(call.streams.out, QByteArray::fromRawData(buffer.data(), got))) return 1;
      }
      if (got < 0) level = Fail(call, u"%1: %2"_s.arg(file, Reason()));
    }
  }
  return level;
}

int ChangeDirectory(const BuiltinCall& call) {
  QString path = call.arguments.trimmed();
  if (path.startsWith(u"/d", Qt::CaseInsensitive) && (path.size() == 2 || IsDelimiter(path[2]))) {
    path = path.sliced(2).trimmed();
  }
  path.remove(u'"');
  if (path.isEmpty()) {
    PrintText(call.streams.out, HostFiles::CurrentDirectory() + u'\n');
    return 0;
  }
  if (QDir::setCurrent(HostFiles::ToHost(ResolveDosPath(path)))) return 0;
  return Fail(call, u"The system cannot find the path specified."_s);
}

int Set(const BuiltinCall& call) {
  QString text = call.arguments;
  while (!text.isEmpty() && IsDelimiter(text[0])) text.remove(0, 1);
  if (text.startsWith(u"/a", Qt::CaseInsensitive) || text.startsWith(u"/p", Qt::CaseInsensitive)) {
    return Fail(call, u"*ERROR: set %1 is not available on this system"_s.arg(text.left(2)));
  }
  if (text.startsWith(u'"')) {
    const qsizetype end = text.lastIndexOf(u'"');
    text = text.sliced(1, end > 0 ? end - 1 : text.size() - 1);
  }
  const qsizetype equals = text.indexOf(u'=');
  if (equals > 0) {
    call.variables.Set(text.left(equals), text.sliced(equals + 1));
    return 0;
  }
  if (equals == 0) return BadSyntax(call);
  const QStringList lines = call.variables.Listing(text.trimmed());
  if (lines.isEmpty()) return Fail(call, u"Environment variable %1 not defined"_s.arg(text.trimmed()));
  for (const QString& line : lines) PrintText(call.streams.out, line + u'\n');
  return 0;
}

int Version(const BuiltinCall& call) {
  PrintText(call.streams.out, u"\nTorvane console\n"_s);
  return 0;
}

using Function = int (*)(const BuiltinCall&);

Function FindBuiltin(const QString& name) {
  static const QHash<QString, Function> kBuiltins{{u"attrib"_s, Attributes},
                                                  {u"cd"_s, ChangeDirectory},
                                                  {u"chdir"_s, ChangeDirectory},
                                                  {u"copy"_s, Copy},
                                                  {u"del"_s, Erase},
                                                  {u"erase"_s, Erase},
                                                  {u"md"_s, MakeDirectory},
                                                  {u"mkdir"_s, MakeDirectory},
                                                  {u"rd"_s, RemoveDirectory},
                                                  {u"rmdir"_s, RemoveDirectory},
                                                  {u"set"_s, Set},
                                                  {u"type"_s, Type},
                                                  {u"ver"_s, Version}};
  return kBuiltins.value(name.toLower(), nullptr);
}

}  // namespace

std::optional<int> RunBuiltin(const QString& name, const BuiltinCall& call) {
  const Function function = FindBuiltin(name);
  if (!function) return std::nullopt;
  return function(call);
}

bool IsBuiltin(const QString& name) {
  return FindBuiltin(name) != nullptr;
}

void PrintText(int fd, const QString& text) {
  QString lines = text;
  WriteAll(fd, lines.replace(u'\n', u"\r\n"_s).toUtf8());
}

}  // namespace torvane
