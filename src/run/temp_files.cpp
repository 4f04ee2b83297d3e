#include "run/temp_files.h"

#include <fcntl.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/generated_file.h"
#include "platform/host_files.h"
#include "platform/owned_fd.h"
#include "platform/real_place.h"
#include "platform/removal.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QByteArrayView kHead = "Torvane temporary files 1\n";
const QString kList = u".torvane-files"_s;
const QString kSubtitleFolder = u"TempSub.d"_s;

bool IsPlainName(const QString& name) {
  const QStringList parts = name.split(u'/');
  return parts.size() <= 2 && std::ranges::none_of(parts, [](const QString& part) {
           return part.isEmpty() || part == u"." || part == u".." || part.contains(u'\n');
         });
}

/// What sup2png makes in its folder.
bool IsSubtitlePicture(const QString& name) {
  static const QRegularExpression picture(u"^tempsub\\.d/(sub\\d{5}\\.png|spumux\\.xml)$"_s);
  return picture.match(name).hasMatch();
}

/// Made for a moment and gone with the tool, unless it was killed.
bool IsPrivateFolder(const QString& name) {
  return name.startsWith(u"torvane-cmd-");
}

QString Dos(QString name) {
  return name.replace(u'/', u'\\');
}

}  // namespace

TempFiles::TempFiles(QString tempDir) : tempDir_(std::move(tempDir)) {
  if (IsLink(ListPath())) return;
  const Result<QByteArray> list = HostFiles::Read(ListPath());
  if (!list || !list->startsWith(kHead)) return;
  hasList_ = true;
  // A last line without its end was cut off, and might name something else now.
  for (const QByteArray& line : list->left(list->lastIndexOf('\n')).mid(kHead.size()).split('\n')) {
    const QString name = QString::fromUtf8(line);
    if (IsPlainName(name)) names_.insert(name.toLower(), name);
  }
}

QString TempFiles::ListPath() const {
  return tempDir_ + u'\\' + kList;
}

bool TempFiles::IsFromFormerVersion() const {
  const QString batch = tempDir_ + u"\\batchrun0.bat"_s;
  if (hasList_ || IsLink(batch)) return false;
  const Result<QByteArray> text = HostFiles::Read(batch);
  return text && text->startsWith("@echo off\r\necho.\r\necho (shrink and) mux video and audio files\r\n");
}

void TempFiles::Adopt(const QStringList& names) {
  for (const QString& name : names) {
    if (IsPlainName(name)) names_.insert(name.toLower(), name);
  }
}

bool TempFiles::IsNoted(const QString& name) const {
  const QString folded = name.toLower();
  if (names_.contains(folded)) return true;
  return folded.endsWith(kUnfinishedEnding) && names_.contains(folded.chopped(kUnfinishedEnding.size()));
}

bool TempFiles::IsOurs(const QString& name) const {
  const QString folded = name.toLower();
  if (folded == kList) return hasList_;
  return IsNoted(name) || folded == u"spumux.exe.stackdump" ||
         (IsSubtitlePicture(folded) && names_.contains(kSubtitleFolder.toLower()));
}

/// Names of all that lies in the directory, or in a folder of it.
QStringList TempFiles::Entries(const QString& folder) const {
  const QString dir = folder.isEmpty() ? tempDir_ : tempDir_ + u'\\' + folder;
  if (!folder.isEmpty() && IsLink(dir)) return {};
  QStringList names = QDir(HostFiles::ToHost(dir))
                          .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
  if (!folder.isEmpty()) {
    for (QString& name : names) name = folder + u'/' + name;
  }
  return names;
}

QStringList TempFiles::Others(const SourceGuard& known) const {
  QStringList others;
  for (const QString& name : Entries({})) {
    QStringList found{name};
    if (IsOurs(name)) found = HostFiles::DirExists(tempDir_ + u'\\' + name) ? Entries(name) : QStringList();
    for (const QString& entry : found) {
      const bool left = IsOurs(entry) || IsPrivateFolder(entry) || known.Protects(tempDir_ + u'\\' + Dos(entry));
      if (!left) others << entry;
    }
  }
  return others;
}

QStringList TempFiles::OthersAmong(const QStringList& names) const {
  QStringList others;
  for (const QString& name : names) {
    if (!IsOurs(name) && NameExists(tempDir_ + u'\\' + Dos(name))) others << name;
  }
  return others;
}

QStringList TempFiles::OthersMatching(const QStringList& masks) const {
  QStringList others;
  for (const QString& mask : masks) {
    const qsizetype slash = mask.indexOf(u'/');
    const QString folder = mask.left(std::max<qsizetype>(slash, 0));
    if (!folder.isEmpty() && IsLink(tempDir_ + u'\\' + folder) && !IsOurs(folder)) others << folder;
    const QString pattern = mask.endsWith(u"*.*") ? u"*"_s : mask.sliced(slash + 1);
    for (const QString& name : Entries(folder)) {
      const bool isFile = IsLink(tempDir_ + u'\\' + Dos(name)) || !HostFiles::DirExists(tempDir_ + u'\\' + Dos(name));
      if (isFile && !IsOurs(name) && QDir::match(pattern, name.sliced(slash + 1))) others << name;
    }
  }
  others.removeDuplicates();
  return others;
}

Status TempFiles::Note(const QStringList& names) {
  QByteArray lines;
  for (const QString& name : names) {
    if (!IsPlainName(name) || (hasList_ && names_.contains(name.toLower()))) continue;
    lines += name.toUtf8() + '\n';
    names_.insert(name.toLower(), name);
  }
  const QString path = HostFiles::ToHost(ListPath());
  if (!hasList_) {
    // What was adopted is noted with the first names of our own.
    if (NameExists(ListPath()))
      return Failure{u"%1 is not a list of Torvane's own; please move it elsewhere."_s.arg(path)};
    lines = kHead.toByteArray();
    for (const QString& name : std::as_const(names_)) lines += name.toUtf8() + '\n';
  }
  if (lines.isEmpty()) return {};
  const OwnedFd list(
      open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_CLOEXEC, 0666));
  if (!list || !WriteAllTo(list.Get(), lines)) {
    return Failure{u"%1: %2"_s.arg(path, QString::fromLocal8Bit(std::strerror(errno)))};
  }
  hasList_ = true;
  return {};
}

Status TempFiles::Claim(const QStringList& names) {
  QStringList forms = names;
  for (const QString& name : names) forms << name + kUnfinishedEnding;
  const QStringList others = OthersAmong(forms);
  if (others.isEmpty()) return Note(names);
  return Failure{
      u"%1 would be overwritten, and Torvane did not make it. Please move it elsewhere or choose another "
      u"temporary directory."_s.arg(HostFiles::ToHost(tempDir_ + u'\\' + Dos(others.first())))};
}

Status TempFiles::Write(const QString& name, const QByteArray& content) {
  if (Status claimed = Claim({name}); !claimed) return claimed;
  return WriteGeneratedFile(tempDir_ + u'\\' + Dos(name), content);
}

Status TempFiles::RemoveLinks(const QStringList& names) const {
  for (const QString& name : names) {
    if (!IsLink(tempDir_ + u'\\' + Dos(name))) continue;
    if (Status removed = RemoveBelow(tempDir_, name); !removed) return removed;
  }
  return {};
}

void TempFiles::Clean(const SourceGuard& guard) {
  QStringList doomed = names_.values();
  if (names_.contains(kSubtitleFolder.toLower())) {
    for (const QString& name : Entries(kSubtitleFolder)) {
      if (IsOurs(name)) doomed << name;
    }
  }
  // What lies in a folder goes before the folder.
  std::ranges::stable_partition(doomed, [](const QString& name) { return name.contains(u'/'); });
  bool isEmpty = true;
  for (const QString& name : std::as_const(doomed)) {
    for (const QString& form : {name, QString(name + kUnfinishedEnding)}) {
      const QString path = tempDir_ + u'\\' + Dos(form);
      if (guard.Protects(path) || !RemoveBelow(tempDir_, form)) isEmpty = false;
    }
  }
  if (isEmpty && hasList_) (void)RemoveBelow(tempDir_, kList);
}

}  // namespace torvane
