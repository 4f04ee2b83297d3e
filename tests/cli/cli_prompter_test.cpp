#include "cli/cli_prompter.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(CliPrompter, AnswersByThePolicy) {
  using enum BoxButtons;
  struct Case {
    BoxButtons buttons;
    Answer preselected, byDefault, yes, no;
  };
  for (const Case& c : {Case{Ok, Answer::Ok, Answer::Ok, Answer::Ok, Answer::Ok},
                        {OkCancel, Answer::Ok, Answer::Ok, Answer::Ok, Answer::Cancel},
                        {OkCancel, Answer::Cancel, Answer::Cancel, Answer::Ok, Answer::Cancel},
                        {YesNo, Answer::No, Answer::No, Answer::Yes, Answer::No},
                        {YesNo, Answer::Ok, Answer::Yes, Answer::Yes, Answer::No},
                        {YesNoCancel, Answer::Cancel, Answer::Cancel, Answer::Yes, Answer::No}}) {
    const Box box{.buttons = c.buttons, .preselected = c.preselected};
    EXPECT_EQ(AnswerByPolicy(box, AnswerPolicy::Default), c.byDefault);
    EXPECT_EQ(AnswerByPolicy(box, AnswerPolicy::Yes), c.yes);
    EXPECT_EQ(AnswerByPolicy(box, AnswerPolicy::No), c.no);
  }
}

TEST(CliPrompter, PrintsTheKindAndTheAnswerOfAQuestion) {
  EXPECT_EQ(MessageLine({.kind = BoxKind::Warning, .text = u"a\r\nb"_s}, Answer::Ok), u"warning: a\nb"_s);
  EXPECT_EQ(MessageLine({.text = u"done"_s}, Answer::Ok), u"info: done"_s);
  EXPECT_EQ(MessageLine({.kind = BoxKind::Error, .text = u"no"_s}, Answer::Ok), u"error: no"_s);
  EXPECT_EQ(MessageLine({.kind = BoxKind::Information, .buttons = BoxButtons::OkCancel, .text = u"go on?"_s}, Answer::Cancel),
            u"question: go on? [Cancel]"_s);
}

}  // namespace torvane
