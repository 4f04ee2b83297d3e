#pragma once

#include <QDateTime>
#include <QLockFile>
#include <QString>
#include <memory>
#include <vector>

#include "core/journal_format.h"
#include "core/project.h"
#include "platform/result.h"

namespace torvane {

/// A journal that a killed program left. It is this process's own as long as the object lives; no other one is offered
/// it meanwhile.
class LeftJournal {
 public:
  /// File name without directory and ending, by which it is told from others.
  const QString& Name() const { return name_; }
  /// DOS path.
  const QString& Path() const { return path_; }
  /// When the last change was written.
  const QDateTime& Changed() const { return changed_; }
  /// Whose work it holds; a failure for a file from which nothing can be taken.
  const Result<JournalHead>& Head() const { return head_; }

  /// Replaces the project by the one that the journal holds, as ReplayJournal does. The file stays: it is discarded
  /// when the work stands elsewhere, in a project file or in the journal of the running program.
  Result<JournalReplay> Recover(Project& project) const;

  /// Deletes the file. False when it cannot be deleted.
  bool Discard();

 private:
  friend std::vector<LeftJournal> TakeLeftJournals(const QString& dir);
  LeftJournal(const QString& path, std::unique_ptr<QLockFile> lock);

  QString name_;
  QString path_;
  QDateTime changed_;
  Result<JournalHead> head_;
  std::unique_ptr<QLockFile> lock_;
};

/// Takes all journals of a directory (DOS path) that no living process holds, by name. Clears away what a process left
/// that was killed while it began a journal.
std::vector<LeftJournal> TakeLeftJournals(const QString& dir);

}  // namespace torvane
