#include "core/node_writer.h"

namespace torvane {

void WriteChildren(ProjectTree& tree, const QString& parent, const std::vector<WantedNode>& children) {
  QString previous;
  for (const auto& [node, present] : children) {
    if (!present) {
      tree.Remove(node.Key);
      continue;
    }
    if (tree.Contains(node.Key)) {
      tree.SetCaption(node.Key, node.Caption);
      tree.SetTag(node.Key, node.Tag);
    } else if (!previous.isEmpty()) {
      tree.Add(node, previous, Relation::Next);
    } else if (const ProjectNode* head = tree.Find(parent); head && head->FirstChild()) {
      tree.Add(node, head->FirstChild()->Key(), Relation::First);
    } else {
      tree.Add(node, parent, Relation::Child);
    }
    previous = node.Key;
  }
}

}  // namespace torvane
