#pragma once

#include <QAbstractItemModel>

#include "core/project_tree.h"

namespace torvane::test {

/// The tree as an item model that keeps nothing of its own: one column of captions, with the keys behind them.
class TreeModel : public QAbstractItemModel, private TreeObserver {
 public:
  explicit TreeModel(ProjectTree& tree) : tree_(tree) { tree_.AddObserver(this); }
  ~TreeModel() override { tree_.RemoveObserver(this); }
  Q_DISABLE_COPY_MOVE(TreeModel)

  static const ProjectNode* NodeAt(const QModelIndex& index) {
    return static_cast<const ProjectNode*>(index.constInternalPointer());
  }
  static QString Text(const ProjectNode* node) { return node->Caption() + u' ' + node->Key(); }
  QModelIndex IndexOf(const ProjectNode* node) const {
    return node ? createIndex(node->Row(), 0, node) : QModelIndex();
  }
  QModelIndex IndexOf(const QString& key) const { return IndexOf(tree_.Find(key)); }

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override {
    if (column != 0) return {};
    return IndexOf(parent.isValid() ? NodeAt(parent)->ChildAt(row) : tree_.RootAt(row));
  }
  QModelIndex parent(const QModelIndex& child) const override {
    return child.isValid() ? IndexOf(NodeAt(child)->Parent()) : QModelIndex();
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? NodeAt(parent)->ChildCount() : tree_.RootCount();
  }
  int columnCount(const QModelIndex& /*parent*/ = {}) const override { return 1; }
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    return Text(NodeAt(index));
  }

 private:
  void TreeWillChange(const TreeChange& change) override {
    const TreePlace& from = change.formerPlace;
    switch (change.kind) {
      case TreeChange::Added:
        return beginInsertRows(IndexOf(change.place.parent), change.place.row, change.place.row);
      case TreeChange::Removed:
        return beginRemoveRows(IndexOf(from.parent), from.row, from.row);
      case TreeChange::Moved:
        moves_ = beginMoveRows(IndexOf(from.parent), from.row, from.row, IndexOf(change.place.parent),
                               change.DestinationRow());
        return;
      case TreeChange::Cleared:
        return beginResetModel();
      case TreeChange::CaptionSet:
      case TreeChange::TagSet:
        return;
    }
  }

  void TreeChanged(const TreeChange& change) override {
    const QModelIndex index = IndexOf(change.key);
    switch (change.kind) {
      case TreeChange::Added:
        return endInsertRows();
      case TreeChange::Removed:
        return endRemoveRows();
      case TreeChange::Moved:
        if (!moves_) qFatal("not a move that a model can make");
        return endMoveRows();
      case TreeChange::Cleared:
        return endResetModel();
      case TreeChange::CaptionSet:
      case TreeChange::TagSet:
        Q_EMIT dataChanged(index, index);
        return;
    }
  }

  ProjectTree& tree_;
  bool moves_ = false;
};

}  // namespace torvane::test
