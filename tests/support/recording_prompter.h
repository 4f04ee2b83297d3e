#pragma once

#include <QStringList>
#include <deque>
#include <utility>
#include <vector>

#include "core/prompter.h"

namespace torvane::test {

/// Records every box and answers from a script; beyond its end with the preselected button.
class RecordingPrompter : public Prompter {
 public:
  explicit RecordingPrompter(std::deque<Answer> answers = {}) : answers_(std::move(answers)) {}

  Answer Show(const Box& box) override {
    boxes.push_back(box);
    if (answers_.empty()) return box.preselected;
    const Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }

  /// Texts of all boxes shown so far, which are then forgotten.
  QStringList Told() {
    QStringList texts;
    for (const Box& box : std::exchange(boxes, {})) texts << box.text;
    return texts;
  }

  std::vector<Box> boxes;

 private:
  std::deque<Answer> answers_;
};

}  // namespace torvane::test
