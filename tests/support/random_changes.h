#pragma once

#include <gtest/gtest.h>

#include <QRandomGenerator>

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
    switch (Below(16)) {
      case 0:
        if (Below(40) == 0) tree.Clear();
        break;
      case 1:
        tree.Remove(key());
        break;
      case 2:
      case 3:
        tree.SetCaption(key(), text());
        break;
      case 4:
        tree.SetTag(key(), text());
        break;
      case 5:
      case 6:
      case 7:
        tree.Move(key(), key(), relation);
        break;
      case 8:
        tree.Add({key(), text(), text(), 1 + Below(7)});
        break;
      case 9:
        project_.SubMenuTable[Below(1000)] = {true, Below(9), key(), text(), key()};
        break;
      case 10:
        project_.FilmCount = Below(99);
        break;
      case 11:
        project_.Settings.DefBackButtonText = text();
        break;
      default:
        tree.Add({key(), text(), text(), 1 + Below(7)}, key(), relation);
    }
  }

  Project& project_;
  QRandomGenerator random_;
};

}  // namespace torvane::test
