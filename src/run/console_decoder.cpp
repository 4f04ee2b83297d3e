#include "run/console_decoder.h"

#include <algorithm>
#include <utility>

#include "platform/dos_code_page.h"

namespace torvane {
namespace {

/// Number of bytes at the end that are the beginning of a UTF-8 sequence whose rest is missing.
qsizetype UnfinishedLength(QByteArrayView bytes) {
  const qsizetype reach = std::min<qsizetype>(3, bytes.size());
  for (qsizetype length = 1; length <= reach; ++length) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - length]);
    if (byte < 0x80) return 0;
    if (byte < 0xC0) continue;
    const qsizetype needed = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
    return length < needed ? length : 0;
  }
  return 0;
}

}  // namespace

QString ConsoleDecoder::Decode(QByteArrayView bytes) {
  held_.append(bytes);
  const qsizetype unfinished = UnfinishedLength(held_);
  const QByteArray whole = held_.first(held_.size() - unfinished);
  held_ = held_.last(unfinished);
  return FromDosCodePage(whole);
}

QString ConsoleDecoder::Flush() {
  return FromDosCodePage(std::exchange(held_, {}));
}

}  // namespace torvane
