#pragma once

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <functional>

#include "core/edit.h"
#include "support/project_state.h"

namespace torvane::test {

/// Random primitive changes on few keys, so that nodes come, go, move into each other and come again.
class RandomChanges {
 public:
  RandomChanges(Project& project, quint32 seed) : project_(project), random_(seed) {}

  int Below(int bound) { return int(random_.bounded(bound)); }

  void Make(int count, int depth = 0) {
    for (int i = 0; i < count; ++i) {
      if (depth < 3 && Below(12) == 0) {
        MakeInner(depth + 1);
      } else {
        MakeOne();
      }
    }
  }

 private:
  void MakeInner(int depth) {
    const WholeProject before(project_);
    {
      Edit inner(project_, QStringLiteral("inner"));
      Make(Below(8), depth);
      if (Below(2) == 0) {
        inner.Commit();
        return;
      }
    }
    ASSERT_TRUE(WholeProject(project_) == before);
  }

  void MakeOne() {
    ProjectTree& tree = project_.Tree;
    const auto key = [this] { return QString::number(Below(40)); };
    const auto text = [this] { return QString::number(Below(5)); };
    const auto relation = static_cast<Relation>(Below(5));
    const auto setCaption = [&] { tree.SetCaption(key(), text()); };
    const auto move = [&] { tree.Move(key(), key(), relation); };
    const auto addBeside = [&] { tree.Add({key(), text(), text(), 1 + Below(7)}, key(), relation); };
    const std::function<void()> changes[] = {
        [&] {
          if (Below(40) == 0) tree.Clear();
        },
        [&] { tree.Remove(key()); },
        setCaption,
        setCaption,
        [&] { tree.SetTag(key(), text()); },
        move,
        move,
        move,
        [&] {
          tree.Add({key(), text(), text(), 1 + Below(7)});
        },
        [&] {
          project_.SubMenuTable[Below(1000)] = {true, Below(9), key(), text(), key()};
        },
        [&] { project_.FilmCount = Below(99); },
        [&] { project_.Settings.DefBackButtonText = text(); },
        addBeside,
        addBeside,
        addBeside,
        addBeside,
    };
    changes[Below(int(std::size(changes)))]();
  }

  Project& project_;
  QRandomGenerator random_;
};

}  // namespace torvane::test
