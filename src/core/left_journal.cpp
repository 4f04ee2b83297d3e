#include "core/left_journal.h"

#include <QFileInfo>
#include <utility>

#include "core/journal_place.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

Result<JournalHead> HeadOf(const QString& path) {
  const Result<QByteArray> content = HostFiles::Read(path);
  if (!content) return Failure{content.Error()};
  Result<JournalHead> head = ReadJournalHead(*content);
  if (head) return head;
  return Failure{u"%1 %2"_s.arg(HostFiles::ToHost(path), head.Error())};
}

}  // namespace

LeftJournal::LeftJournal(const QString& path, std::unique_ptr<QLockFile> lock)
    : name_(SplitFileName(path).name),
      path_(path),
      changed_(QFileInfo(HostFiles::ToHost(path)).lastModified()),
      head_(HeadOf(path)),
      lock_(std::move(lock)) {}

Result<JournalReplay> LeftJournal::Recover(Project& project) const {
  const Result<QByteArray> content = HostFiles::Read(path_);
  if (!content) return Failure{content.Error()};
  Result<JournalReplay> replay = ReplayJournal(*content, project);
  if (replay) return replay;
  return Failure{u"%1 %2"_s.arg(HostFiles::ToHost(path_), replay.Error())};
}

bool LeftJournal::Discard() { return HostFiles::RemoveFile(path_); }

std::vector<LeftJournal> TakeLeftJournals(const QString& dir) {
  std::vector<LeftJournal> journals;
  for (QString name : HostFiles::FileNames(dir)) {
    for (const QStringView ending : {kNewEnding, kLockEnding}) {
      if (name.endsWith(ending)) name.chop(ending.size());
    }
    if (!name.endsWith(kJournalEnding)) continue;
    const QString path = dir + u'\\' + name;
    std::unique_ptr<QLockFile> lock = LockJournal(path);
    if (!lock) continue;
    HostFiles::RemoveFile(path + kNewEnding);
    if (HostFiles::FileExists(path)) journals.push_back(LeftJournal(path, std::move(lock)));
  }
  return journals;
}

}  // namespace torvane
