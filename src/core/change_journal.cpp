#include "core/change_journal.h"

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/journal_place.h"
#include "core/project_difference.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

// A journal grows with every edit; beyond this it is cheaper to write the project once more.
constexpr qint64 kGrowth = 4;
constexpr qint64 kLeastLimit = 4 << 20;
constexpr int kMostOfAProcess = 1000;

std::filesystem::path HostPath(const QString& path) { return path.toStdU16String(); }

}  // namespace

qint64 ChangeJournal::MonotonicMilliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

ChangeJournal::ChangeJournal(Project& project, const QString& dir, Clock clock)
    : project_(project), dir_(dir), clock_(std::move(clock)) {
  project_.Tree.AddObserver(this);
  project_.History.AddObserver(this);
  if (!project_.ProjectSaved()) MarkChanged();
}

ChangeJournal::~ChangeJournal() {
  project_.History.RemoveObserver(this);
  project_.Tree.RemoveObserver(this);
  Remove();
}

Status ChangeJournal::Poll() {
  if (!changed_ || clock_() < flushAt_) return {};
  return Flush();
}

Status ChangeJournal::Flush() {
  if (!changed_ || project_.History.InEdit()) return {};
  if (project_.ProjectSaved()) {
    Remove();
    return {};
  }
  const Status done = file_.isOpen() && size_ < most_ ? Append() : Begin();
  if (done) {
    changed_ = failed_ = false;
    return {};
  }
  // What stands in the file may be torn at its end, so that nothing can follow it; but it is the best there is until a
  // new one is whole.
  file_.close();
  if (lock_) HostFiles::RemoveFile(path_ + kNewEnding);
  block_ = {};
  flushAt_ = clock_() + kRetryMs;
  if (std::exchange(failed_, true)) return {};
  return Failure{u"Unsaved work cannot be kept safe from a crash: "_s + done.Error()};
}

Status ChangeJournal::Lock() {
  if (lock_) return {};
  if (!HostFiles::MakeDir(dir_)) return Failure{u"the directory %1 cannot be made"_s.arg(dir_)};
  for (int i = 1; i <= kMostOfAProcess; ++i) {
    path_ = u"%1\\%2-%3%4"_s.arg(dir_).arg(QCoreApplication::applicationPid()).arg(i).arg(kJournalEnding);
    if (HostFiles::FileExists(path_)) continue;  // left by an earlier process of this number
    lock_ = LockJournal(path_);
    if (lock_) return {};
  }
  return Failure{u"no file can be locked in %1"_s.arg(dir_)};
}

Status ChangeJournal::Begin() {
  if (const Status locked = Lock(); !locked) return locked;
  block_ = {};
  block_.AddWhole(project_);
  const QByteArray bytes = kJournalMark.toByteArray() + block_.Take();
  most_ = std::max(kLeastLimit, kGrowth * qint64(bytes.size()));

  // The former file counts until the new one is whole.
  const QString path = HostFiles::ToHost(path_);
  if (const Status written = Open(path + kNewEnding, QIODevice::Truncate); !written) return written;
  if (const Status written = Write(bytes); !written) return written;
  file_.close();
  std::error_code error;
  std::filesystem::rename(HostPath(path + kNewEnding), HostPath(path), error);
  if (error) return Failure{path + u": "_s + QString::fromStdString(error.message())};
  if (const Status opened = Open(path, QIODevice::Append); !opened) return opened;
  written_ = std::make_unique<ProjectSnapshot>(project_);
  return {};
}

Status ChangeJournal::Append() {
  block_.AddDifference(ProjectDifference(*written_, project_));
  written_ = std::make_unique<ProjectSnapshot>(project_);
  return block_.IsEmpty() ? Status() : Write(block_.Take());
}

Status ChangeJournal::Open(const QString& hostPath, QIODevice::OpenMode mode) {
  file_.close();
  file_.setFileName(hostPath);
  if (file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered | mode)) return {};
  return Failure{hostPath + u": "_s + file_.errorString()};
}

Status ChangeJournal::Write(const QByteArray& bytes) {
  size_ = file_.pos() + bytes.size();
  if (file_.write(bytes) == bytes.size()) return {};
  return Failure{file_.fileName() + u": "_s + file_.errorString()};
}

void ChangeJournal::Remove() {
  file_.close();
  if (lock_) {
    HostFiles::RemoveFile(path_ + kNewEnding);
    HostFiles::RemoveFile(path_);
  }
  lock_.reset();
  block_ = {};
  written_.reset();
  changed_ = false;
}

void ChangeJournal::MarkChanged() {
  if (changed_) return;
  changed_ = true;
  flushAt_ = std::max(flushAt_, clock_() + kDelayMs);
}

void ChangeJournal::TreeChanged(const TreeChange& change) {
  MarkChanged();
  if (file_.isOpen()) block_.AddChange(project_.Tree, change);
}

void ChangeJournal::HistoryChanged(HistoryEvent event) {
  if (event == HistoryEvent::Saved || event == HistoryEvent::Reset) {
    Remove();
  } else {
    MarkChanged();
  }
}

}  // namespace torvane
