#pragma once

#include <QString>

#include "core/project.h"

namespace torvane {

/// The one way to change a project: `Edit edit(project, u"Align buttons"_s); ... edit.Commit();`
///
/// Everything done to the tree, the menu tables, the counters and the project's settings between the two is one step
/// of undo under that name. Leaving the scope without `Commit` takes all of it back. An edit within another one joins
/// it: committed, its changes belong to the outer step; left without, only its own are taken back. An edit that
/// changed nothing leaves no step; showing another menu alone is no change.
class [[nodiscard]] Edit {
 public:
  Edit(Project& project, const QString& name) : history_(project.History), depth_(history_.Begin(name)) {}
  ~Edit() {
    if (open_) history_.Rollback(depth_);
  }
  Edit(const Edit&) = delete;
  Edit& operator=(const Edit&) = delete;

  /// Keeps the changes. What is done afterwards in the scope is no part of the edit.
  void Commit() {
    if (open_) history_.Commit(depth_);
    open_ = false;
  }

 private:
  History& history_;
  std::size_t depth_;
  bool open_ = true;
};

}  // namespace torvane
