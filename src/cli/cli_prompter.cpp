#include "cli/cli_prompter.h"

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

void Print(std::FILE* stream, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
  std::fflush(stream);
}

QString Word(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return u"OK"_s;
    case Answer::Cancel:
      return u"Cancel"_s;
    case Answer::Yes:
      return u"Yes"_s;
    case Answer::No:
      return u"No"_s;
  }
  return {};
}

QString Prefix(const Box& box) {
  if (box.buttons != BoxButtons::Ok) return u"question"_s;
  switch (box.kind) {
    case BoxKind::Information:
      return u"info"_s;
    case BoxKind::Warning:
      return u"warning"_s;
    case BoxKind::Error:
      return u"error"_s;
    case BoxKind::Question:
      break;
  }
  return u"question"_s;
}

}  // namespace

QString MessageLine(const Box& box, Answer answer) {
  QString text = box.text;
  text.replace(u"\r\n"_s, u"\n"_s);
  QString line = Prefix(box) + u": " + text;
  if (box.buttons != BoxButtons::Ok) line += u" [" + Word(answer) + u']';
  return line;
}

Answer AnswerByPolicy(const Box& box, AnswerPolicy policy) {
  if (box.buttons == BoxButtons::Ok) return Answer::Ok;
  const bool isOkCancel = box.buttons == BoxButtons::OkCancel;
  if (policy == AnswerPolicy::Yes) return isOkCancel ? Answer::Ok : Answer::Yes;
  if (policy == AnswerPolicy::No) return isOkCancel ? Answer::Cancel : Answer::No;
  // A box that says nothing else preselects its first button.
  return box.preselected == Answer::Ok && !isOkCancel ? Answer::Yes : box.preselected;
}

Answer CliPrompter::Show(const Box& box) {
  const Answer answer = AnswerByPolicy(box, answers_);
  PrintError(MessageLine(box, answer) + u'\n');
  return answer;
}

void PrintOut(const QString& text) { Print(stdout, text); }
void PrintError(const QString& text) { Print(stderr, text); }

}  // namespace torvane
