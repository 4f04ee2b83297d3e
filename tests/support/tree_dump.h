#pragma once

#include <QString>

#include "core/project_tree.h"

namespace torvane::test {

/// A subtree (of the whole tree with an empty key), one node a line: key, caption, tag and image behind as many blanks
/// as it has ancestors below the subtree's root.
inline QString DumpTree(const ProjectTree& tree, const QString& key = {}) {
  const ProjectNode* root = tree.Find(key);
  if (!key.isEmpty() && !root) return {};
  QString text;
  for (const ProjectNode* node = root ? root : tree.NextInOrder(nullptr); node; node = tree.NextInOrder(node)) {
    QString indent;
    bool inside = !root || node == root;
    for (const ProjectNode* above = node == root ? nullptr : node->Parent(); above; above = above->Parent()) {
      indent += u' ';
      if (above == root) {
        inside = true;
        break;
      }
    }
    if (!inside) break;
    text += indent + node->Key() + u'|' + node->Caption() + u'|' + node->Tag() + u'|' + QString::number(node->Image()) +
            u'\n';
  }
  return text;
}

}  // namespace torvane::test
