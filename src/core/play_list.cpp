#include "core/play_list.h"

#include <algorithm>

#include "core/keys.h"
#include "core/node_writer.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Number of a playlist from its key, 0 for a key of another form.
int NumberOf(const ProjectNode& node, int film) {
  const QString group = PlayListsKey(film);
  return node.Key().startsWith(group) ? QStringView(node.Key()).sliced(group.size()).toInt() : 0;
}

}  // namespace

void AddPlayListNode(ProjectTree& tree, const PlayList& playList) {
  const QString group = PlayListsKey(playList.Film);
  if (!tree.Contains(group)) {
    tree.Add({group, u"PlayLists"_s}, FilmNodeKey(film_node::Name, playList.Film), Relation::Child);
  }
  const QString key = PlayListKey(playList.Film, playList.Number);
  const NodeData head{key, u"PlayList%1"_s.arg(playList.Number), PlayListTag(playList.Film, playList.Number),
                      kHeadNode};
  if (!tree.Contains(key)) {
    const ProjectNode* next = tree.Find(group)->FirstChild();
    while (next && NumberOf(*next, playList.Film) < playList.Number) next = next->Next();
    if (next) {
      tree.Add(head, next->Key(), Relation::Previous);
    } else {
      tree.Add(head, group, Relation::Child);
    }
  }
  const auto node = [&key](Attribute attribute, const QString& value, const QString& tag, bool present) {
    return WantedNode{{.Key = key + attribute.Suffix, .Caption = attribute.Label + value, .Tag = tag}, present};
  };
  const auto optional = [&node](Attribute attribute, const QString& value) {
    return node(attribute, value, {}, !value.isEmpty());
  };
  WriteChildren(
      tree, key,
      {node(playlist_node::List, playList.List, u"0"_s, true), optional(playlist_node::PreAction, playList.PreAction),
       optional(playlist_node::PostAction, playList.PostAction), optional(playlist_node::UOP, playList.UOP)});
}

PlayList ReadPlayList(const ProjectTree& tree, const QString& key) {
  const ProjectNode* head = tree.Find(key);
  if (!head) return {};
  const auto text = [&tree, &key](Attribute attribute) {
    const ProjectNode* node = tree.Find(key + attribute.Suffix);
    return node ? node->Value(attribute.Label.size()) : QString();
  };
  return {.Film = ValToInt(head->Tag().section(u' ', 0, 0)),
          .Number = ValToInt(head->Tag().section(u' ', 1, 1)),
          .List = text(playlist_node::List),
          .PreAction = text(playlist_node::PreAction),
          .PostAction = text(playlist_node::PostAction),
          .UOP = text(playlist_node::UOP)};
}

int NextPlayListNumber(const ProjectTree& tree, int film) {
  int highest = 0;
  const ProjectNode* node = tree.Find(PlayListsKey(film));
  for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) {
    highest = std::max(highest, NumberOf(*node, film));
  }
  return highest + 1;
}

}  // namespace torvane
