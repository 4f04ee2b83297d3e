#include "run/console_decoder.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ConsoleDecoder, GivesTheSameTextWhereverThePiecesAreCut) {
  const QByteArray bytes = QByteArrayLiteral(
      "a\xC3\xA4 \x84\xE1 Stra\xE1"
      "e \xE1\x84\x94 \xE2\x82\xAC \xF0\x9F\x98\x80 \xFF \xC3\xE1");
  const QString text = u"aä äß Straße ßäö € \U0001F600 \uFFFD \uFFFDß"_s;
  for (qsizetype first = 0; first <= bytes.size(); ++first) {
    for (qsizetype second = first; second <= bytes.size(); ++second) {
      ConsoleDecoder decoder;
      const QByteArrayView view(bytes);
      QString decoded = decoder.Decode(view.first(first));
      decoded += decoder.Decode(view.sliced(first, second - first));
      decoded += decoder.Decode(view.sliced(second));
      decoded += decoder.Flush();
      ASSERT_EQ(decoded, text) << "cut at " << first << " and " << second;
    }
  }
}

}  // namespace
}  // namespace torvane
