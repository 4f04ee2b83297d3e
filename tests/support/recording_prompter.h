#pragma once

#include <deque>
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

  std::vector<Box> boxes;

 private:
  std::deque<Answer> answers_;
};

}  // namespace torvane::test
