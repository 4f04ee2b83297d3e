#pragma once

#include <QFile>
#include <QLockFile>
#include <QString>
#include <functional>
#include <memory>

#include "core/history.h"
#include "core/journal_format.h"
#include "core/project.h"
#include "platform/result.h"

namespace torvane {

/// Keeps the unsaved work of a project on disk, so that a program that is killed can offer it at its next start
/// (core/left_journal.h).
///
/// It watches the tree and the history. There is a file exactly while there is unsaved work, but for the short time
/// until the next flush: it begins with the whole project, and each flush adds the changes made since. Saving, opening
/// another project and the end of this object remove it. A lock file with the id of the process stands beside it, so
/// that several running programs keep their journals apart. Texts written are handed to the system but not forced to
/// the disk: a killed program loses nothing, a machine without power may.
class ChangeJournal : private TreeObserver, private HistoryObserver {
 public:
  /// Milliseconds that never run backwards.
  using Clock = std::function<qint64()>;

  static constexpr int kPollMs = 250;    ///< how often the event loop calls Poll
  static constexpr int kDelayMs = 500;   ///< how long a change waits for others
  static constexpr int kRetryMs = 10000;  ///< how long a journal that cannot be written rests

  /// `dir` is a DOS path; it is made when there is something to write. The project must outlive the journal.
  ChangeJournal(Project& project, const QString& dir, Clock clock = MonotonicMilliseconds);
  ~ChangeJournal() override;
  ChangeJournal(const ChangeJournal&) = delete;
  ChangeJournal& operator=(const ChangeJournal&) = delete;

  /// Flushes when changes have waited long enough. Fails when the journal cannot be written, once until it can again.
  Status Poll();

  /// Brings the file up to date with the project, but not within an edit.
  Status Flush();

  /// DOS path of the file; "" while there is none.
  QString Path() const { return file_.isOpen() ? path_ : QString(); }

  static qint64 MonotonicMilliseconds();

 private:
  void TreeChanged(const TreeChange& change) override;
  void HistoryChanged(HistoryEvent event) override;

  void MarkChanged();
  Status Begin();
  Status Lock();
  Status Append();
  Status Open(const QString& hostPath, QIODevice::OpenMode mode);
  Status Write(const QByteArray& bytes);
  void Remove();

  Project& project_;
  QString dir_;
  Clock clock_;
  QString path_;
  std::unique_ptr<QLockFile> lock_;
  QFile file_;
  qint64 size_ = 0;
  qint64 most_ = 0;  ///< size at which the journal begins anew
  JournalBlock block_;
  std::unique_ptr<ProjectSnapshot> written_;  ///< what stands beside the tree, as the file has it
  bool changed_ = false;
  qint64 flushAt_ = 0;
  bool failed_ = false;
};

}  // namespace torvane
