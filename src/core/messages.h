#pragma once

#include <QList>
#include <QString>
#include <initializer_list>

namespace torvane {

/// The languages of the message texts; the values are the bases of the text ids, as the setting `LangID` holds them.
inline constexpr int kEnglish = 1000;
inline constexpr int kGerman = 2000;

/// A mark such as "|1" and what stands in its place: a value, or in many messages a line break.
struct MessagePair {
  QStringView mark;
  QString value;
};

/// The text of message n in the language in force, after replacing, pair by pair in the order given, every occurrence
/// of the mark by its value; a value that holds a later mark is replaced too. "" for a number that is not used.
///
///     GetMessage(132, {{u"|1", QString::number(36)}})
QString GetMessage(int n, std::initializer_list<MessagePair> pairs = {});

/// Chooses the language of the whole process, from the next lookup on: kGerman, or English for any other value.
void SetLanguage(int langId);

/// The language in force: kEnglish (at start) or kGerman.
int CurrentLanguage();

/// The numbers of all messages of one language in ascending order.
QList<int> MessageNumbers(int langId);

}  // namespace torvane
