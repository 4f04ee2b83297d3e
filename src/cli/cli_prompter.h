#pragma once

#include "cli/command_line.h"
#include "core/prompter.h"

namespace torvane {

/// Prints each message of the program to the standard error output, as "info:", "warning:", "error:" or "question:"
/// with its text, and answers questions by a policy. Behind a question stands the answer in brackets.
class CliPrompter : public Prompter {
 public:
  explicit CliPrompter(AnswerPolicy answers) : answers_(answers) {}
  Answer Show(const Box& box) override;

 private:
  AnswerPolicy answers_;
};

/// The line that such a message is printed as, without the line break at its end.
QString MessageLine(const Box& box, Answer answer);

/// What a policy answers to a box.
Answer AnswerByPolicy(const Box& box, AnswerPolicy policy);

/// Writes UTF-8 text and flushes it.
void PrintOut(const QString& text);
void PrintError(const QString& text);

}  // namespace torvane
