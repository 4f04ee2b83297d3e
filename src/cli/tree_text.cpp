#include "cli/tree_text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString Escaped(QString text) {
  return text.replace(u'\\', u"\\\\"_s).replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s).replace(u'\t', u"\\t"_s);
}

}  // namespace

QString TreeText(const ProjectTree& tree) {
  QString text;
  int depth = 0;
  for (const ProjectNode* node = tree.FirstRoot(); node; node = tree.NextInOrder(node)) {
    text += QString::number(depth) + u'\t' + Escaped(node->Key()) + u'\t' + QString::number(node->Image()) + u'\t' +
            Escaped(node->Tag()) + u'\t' + Escaped(node->Caption()) + u'\n';
    if (node->FirstChild()) ++depth;
    for (const ProjectNode* above = node; !node->FirstChild() && above && !above->Next(); above = above->Parent()) {
      if (above->Parent()) --depth;
    }
  }
  return text;
}

}  // namespace torvane
