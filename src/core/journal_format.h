#pragma once

#include <QByteArray>
#include <QString>

#include "core/project.h"
#include "core/project_difference.h"
#include "platform/result.h"

namespace torvane {

/// Whose work a journal holds.
struct JournalHead {
  QString ProjectFile = {};   ///< full DOS path
  bool ProjectNamed = false;  ///< the user chose that path
  bool operator==(const JournalHead&) const = default;
};

/// What came back from a journal.
struct JournalReplay {
  int groups = 0;           ///< groups of changes that were made again, behind the whole project at the journal's start
  qsizetype lostBytes = 0;  ///< at the end, torn or damaged: what stood there did not come back
  bool operator==(const JournalReplay&) const = default;
};

/// A journal is a mark and then blocks, each with its size and a checksum in front. The first block holds the head and
/// the whole project as it was when the journal began; each further one a group of changes that ends outside of any
/// edit. So a journal may be cut off anywhere: what counts are the blocks that are whole.
inline constexpr QByteArrayView kJournalMark("TorvaneJournal1\n");

/// Collects the records of one block.
class JournalBlock {
 public:
  /// The head and everything that an edit can change.
  void AddWhole(const Project& project);
  /// A change that has just been made in the tree.
  void AddChange(const ProjectTree& tree, const TreeChange& change);
  /// What differs beside the tree, with its state afterwards.
  void AddDifference(const ProjectDifference& difference);

  bool IsEmpty() const { return records_.isEmpty(); }
  /// The block as it stands in the file; this one is empty afterwards.
  QByteArray Take();

 private:
  QByteArray records_;
};

/// Fails for what is no journal, and for one whose first block is not whole; the text does not name the file.
Result<JournalHead> ReadJournalHead(const QByteArray& journal);

/// Replaces the project by the one that a journal holds. It counts as unsaved and has no steps to undo. Fails as
/// ReadJournalHead does, the project being left as it was; one whose checksums are right and whose records are not
/// leaves it reset.
Result<JournalReplay> ReplayJournal(const QByteArray& journal, Project& project);

}  // namespace torvane
