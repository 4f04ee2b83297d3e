#pragma once

#include <QSet>
#include <QString>
#include <memory>
#include <vector>

#include "core/observer_list.h"
#include "core/project_tree.h"

namespace torvane {

struct Project;
struct ProjectSnapshot;
struct ProjectDifference;

/// What has just happened to a project's history.
enum class HistoryEvent {
  Committed,   ///< an edit was kept as a step
  RolledBack,  ///< an outermost edit was taken back
  Undone,
  Redone,
  Saved,    ///< the project is as on disk
  Changed,  ///< something changed outside of any edit; where it was the tree, there are no steps left
  Reset,    ///< another project is open; there are no steps
};

/// Is told after the event, of an edit, undo or redo before the tree tells its EditEnded. It must neither change the
/// project nor undo from inside the call, but may come and leave there as core/observer_list.h tells.
class HistoryObserver {
 public:
  virtual ~HistoryObserver() = default;
  virtual void HistoryChanged(HistoryEvent event) = 0;
};

/// Undo and redo of a project by named edit, without limit, and the knowledge whether the project is as saved.
///
/// It watches the project's tree and keeps, of each edit, the tree's changes and the differences of what stands beside
/// the tree. Changes are made through `Edit` (core/edit.h). A change of the tree outside of any edit cannot be placed
/// between the steps: all steps are forgotten then, and the project counts as unsaved.
class History : private TreeObserver {
 public:
  explicit History(Project& project);
  ~History() override;
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  /// Takes the latest step back, or makes the latest undone one again. False without such a step, inside an edit and
  /// inside a notice.
  /// The menu shown becomes the one that was shown before the edit, or after it.
  bool Undo();
  bool Redo();
  bool CanUndo() const { return !InEdit() && !done_.empty(); }
  bool CanRedo() const { return !InEdit() && !undone_.empty(); }
  /// Name of the edit that Undo or Redo would treat; "" without one.
  QString UndoName() const;
  QString RedoName() const;
  std::size_t UndoCount() const { return done_.size(); }
  std::size_t RedoCount() const { return undone_.size(); }
  bool InEdit() const { return !levels_.empty(); }

  /// True while the project is as it was at the last MarkSaved; undo and redo can lead back there.
  bool IsSaved() const { return saved_ == done_.size(); }
  void MarkSaved();
  /// For a change that is saved with the project but is no edit.
  void MarkUnsaved();

  /// Forgets all steps; the project counts as saved. An edit that is still open then ends without effect.
  void Reset();

  void AddObserver(HistoryObserver* observer) { observers_.Add(observer); }
  void RemoveObserver(HistoryObserver* observer) { observers_.Remove(observer); }

 private:
  friend class Edit;

  /// One named edit. Undoing it records the changes that redo takes back, and the other way round, so that no text is
  /// held twice.
  struct Step {
    QString name;
    std::vector<TreeChange> changes;
    std::unique_ptr<ProjectDifference> difference;
  };

  /// One open edit: how many changes there were and what stood beside the tree when it began.
  struct Level {
    std::size_t mark;
    std::unique_ptr<ProjectSnapshot> before;
    std::unique_ptr<ChangeGroup> group;
  };

  static constexpr std::size_t kNever = static_cast<std::size_t>(-1);

  std::size_t Begin(const QString& name);
  void Commit(std::size_t depth);
  void Rollback(std::size_t depth);

  void TreeChanged(const TreeChange& change) override;
  void EditEnded() override;
  void Record(const TreeChange& change);
  Level CloseLevel();
  void Revert(std::vector<Step>& from, std::vector<Step>& to);
  void ForgetSteps();
  bool InNotice() const;
  void Tell(HistoryEvent event);

  Project& project_;
  std::vector<Step> done_;
  std::vector<Step> undone_;
  std::size_t saved_ = 0;  ///< number of done steps at which the project is as saved, or kNever

  QString name_;  ///< of the outermost open edit
  std::vector<Level> levels_;
  std::vector<TreeChange> changes_;  ///< of the open edit, or of the step that is being undone
  QSet<QString> added_;  ///< nodes added by the innermost edit, whose children go with them when they are taken back
  enum class Watch { Nothing, Edits, Reversal } watch_ = Watch::Edits;
  bool changedOutside_ = false;  ///< by a change outside of any edit, which the observers have not heard of
  ObserverList<HistoryObserver> observers_;
};

}  // namespace torvane
