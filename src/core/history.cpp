#include "core/history.h"

#include <utility>

#include "core/project.h"
#include "core/project_difference.h"

namespace torvane {
namespace {

using Side = ProjectDifference::Side;

/// Takes one change back; the tree must be as it was right after it.
void Reverse(ProjectTree& tree, const TreeChange& change) {
  switch (change.kind) {
    case TreeChange::Added:
      tree.Remove(change.key);
      return;
    case TreeChange::Removed:
      tree.Add(change.removed.front(), change.formerPlace);
      for (std::size_t i = 1; i < change.removed.size(); ++i) {
        tree.Add(change.removed[i], change.removedParents[i], Relation::Child);
      }
      return;
    case TreeChange::Moved:
      tree.Move(change.key, change.formerPlace);
      return;
    case TreeChange::CaptionSet:
      tree.SetCaption(change.key, change.former);
      return;
    case TreeChange::TagSet:
      tree.SetTag(change.key, change.former);
      return;
    case TreeChange::Cleared:
      for (const ProjectNode* node = change.cleared->NextInOrder(nullptr); node;
           node = change.cleared->NextInOrder(node)) {
        const NodeData data{node->Key(), node->Caption(), node->Tag(), node->Image()};
        if (node->Parent()) {
          tree.Add(data, node->Parent()->Key(), Relation::Child);
        } else {
          tree.Add(data);
        }
      }
      return;
  }
}

/// Takes the changes from the last one to that at `first` back.
void TakeBack(ProjectTree& tree, const std::vector<TreeChange>& changes, std::size_t first) {
  for (std::size_t i = changes.size(); i-- > first;) Reverse(tree, changes[i]);
}

}  // namespace

History::History(Project& project) : project_(project) { project_.Tree.AddObserver(this); }

History::~History() { project_.Tree.RemoveObserver(this); }

QString History::UndoName() const { return CanUndo() ? done_.back().name : QString(); }

QString History::RedoName() const { return CanRedo() ? undone_.back().name : QString(); }

bool History::Undo() {
  if (!CanUndo() || InNotice()) return false;
  const ChangeGroup group(project_.Tree);
  Revert(done_, undone_);
  undone_.back().difference->Apply(project_, Side::Before);
  Tell(HistoryEvent::Undone);
  return true;
}

bool History::Redo() {
  if (!CanRedo() || InNotice()) return false;
  const ChangeGroup group(project_.Tree);
  Revert(undone_, done_);
  done_.back().difference->Apply(project_, Side::After);
  Tell(HistoryEvent::Redone);
  return true;
}

void History::MarkSaved() {
  saved_ = done_.size();
  Tell(HistoryEvent::Saved);
}

void History::MarkUnsaved() {
  saved_ = kNever;
  Tell(HistoryEvent::Changed);
}

void History::Reset() {
  const std::vector<Level> open = std::exchange(levels_, {});  // whose group ends when all is done
  ForgetSteps();
  changes_.clear();
  added_.clear();
  saved_ = 0;
  changedOutside_ = false;
  Tell(HistoryEvent::Reset);
}

std::size_t History::Begin(const QString& name) {
  if (InNotice()) return kNever;
  auto group = std::make_unique<ChangeGroup>(project_.Tree);
  if (levels_.empty()) name_ = name;
  levels_.push_back({changes_.size(), std::make_unique<ProjectSnapshot>(project_), std::move(group)});
  added_.clear();
  return levels_.size();
}

void History::Commit(std::size_t depth) {
  if (depth != levels_.size()) return;
  const Level level = CloseLevel();
  if (!levels_.empty()) return;
  auto difference = std::make_unique<ProjectDifference>(*level.before, project_);
  if (changes_.empty() && difference->IsEmpty()) return;

  if (saved_ > done_.size()) saved_ = kNever;
  undone_.clear();
  changes_.shrink_to_fit();
  done_.push_back({name_, std::exchange(changes_, {}), std::move(difference)});
  Tell(HistoryEvent::Committed);
}

void History::Rollback(std::size_t depth) {
  if (depth != levels_.size()) return;
  watch_ = Watch::Nothing;
  TakeBack(project_.Tree, changes_, levels_.back().mark);
  watch_ = Watch::Edits;
  const Level level = CloseLevel();
  changes_.resize(level.mark);
  ProjectDifference(*level.before, project_).Apply(project_, Side::Before);
  if (levels_.empty()) Tell(HistoryEvent::RolledBack);
}

History::Level History::CloseLevel() {
  Level level = std::move(levels_.back());
  levels_.pop_back();
  added_.clear();
  return level;
}

void History::Revert(std::vector<Step>& from, std::vector<Step>& to) {
  Step step = std::move(from.back());
  from.pop_back();
  watch_ = Watch::Reversal;
  TakeBack(project_.Tree, step.changes, 0);
  watch_ = Watch::Edits;
  added_.clear();
  changes_.shrink_to_fit();
  step.changes = std::exchange(changes_, {});
  to.push_back(std::move(step));
}

void History::TreeChanged(const TreeChange& change) {
  if (watch_ == Watch::Nothing) return;
  if (InEdit() || watch_ == Watch::Reversal) {
    Record(change);
    return;
  }
  const bool told = done_.empty() && undone_.empty() && saved_ == kNever;
  ForgetSteps();
  saved_ = kNever;
  changedOutside_ |= !told;
}

void History::EditEnded() {
  // Not earlier, as the other observers of the tree are in the middle of the change before.
  if (std::exchange(changedOutside_, false)) Tell(HistoryEvent::Changed);
}

void History::Record(const TreeChange& change) {
  const std::size_t mark = InEdit() ? levels_.back().mark : 0;
  switch (change.kind) {
    case TreeChange::Added: {
      // A node below one that this edit added needs no mention: it goes, whatever happens to it, with that one.
      const ProjectNode* parent = project_.Tree.Find(change.key)->Parent();
      const bool goesWithParent = parent && added_.contains(parent->Key());
      added_.insert(change.key);
      if (goesWithParent) return;
      break;
    }
    case TreeChange::CaptionSet:
    case TreeChange::TagSet: {
      if (added_.contains(change.key)) return;
      const TreeChange* last = changes_.size() > mark ? &changes_.back() : nullptr;
      if (last && last->kind == change.kind && last->key == change.key) return;
      break;
    }
    case TreeChange::Removed:
    case TreeChange::Moved:
    case TreeChange::Cleared:
      break;
  }
  changes_.push_back(change);
}

void History::ForgetSteps() {
  done_.clear();
  undone_.clear();
}

bool History::InNotice() const {
  return project_.Tree.IsTelling() || observers_.IsTelling();
}

void History::Tell(HistoryEvent event) {
  observers_.Tell(observers_.Now(), [event](HistoryObserver& observer) { observer.HistoryChanged(event); });
}

}  // namespace torvane
