#include "media/media_block.h"

#include <algorithm>
#include <cstring>

namespace torvane {
namespace {

constexpr qsizetype kStartCodeSize = 4;
constexpr qsizetype kSearchedForSCR = 99990;

}  // namespace

MediaBlock::MediaBlock(MediaFile& file, qint64 offset, qsizetype count) {
  std::optional<QByteArray> bytes = file.Read(offset, count);
  if (!bytes) return;
  bytes_ = *std::move(bytes);
  bytesRead_ = bytes_.size();
  bytes_.resize(count, '\0');
}

quint8 MediaBlock::At(qsizetype position) const {
  return position < 1 || position > bytes_.size() ? 0 : quint8(bytes_[position - 1]);
}

qsizetype MediaBlock::Find(StartCode code, qsizetype from) const {
  const char* data = bytes_.constData();
  const qsizetype last = bytes_.size() - 1;  // the 01 of a start code stands in front of it
  for (qsizetype at = std::max<qsizetype>(from, 1) + 1; at < last; ++at) {
    const auto* one = static_cast<const char*>(std::memchr(data + at, 1, size_t(last - at)));
    if (one == nullptr) return 0;
    at = one - data;
    if (data[at - 1] == 0 && data[at - 2] == 0 && quint8(data[at + 1]) == quint8(code)) return at - 1;
  }
  return 0;
}

qsizetype MediaBlock::FindBack(StartCode code, qsizetype end) const {
  const char* data = bytes_.constData();
  for (qsizetype at = std::min(end, bytes_.size()) - kStartCodeSize; at >= 0; --at) {
    if (data[at + 2] == 1 && data[at] == 0 && data[at + 1] == 0 && quint8(data[at + 3]) == quint8(code)) return at + 1;
  }
  return 0;
}

int MediaBlock::Count(StartCode code, qsizetype from) const {
  int count = 0;
  for (qsizetype at = Find(code, from); at != 0; at = Find(code, at + 1)) ++count;
  return count;
}

qint64 GetSCR(const MediaBlock& block, qsizetype position) {
  const auto b = [&](qsizetype i) { return qint64(block.At(position + kStartCodeSize + i)); };
  const bool isMpeg2 = (b(2) & 0x04) != 0 && (b(0) & 0x44) != 0 && (b(4) & 0x04) != 0 && (b(5) & 0x01) != 0;
  if (!isMpeg2) return 0;
  return (b(4) & 0xF8) / 8 + b(3) * 32 + (b(2) & 0x03) * 8192 + (b(2) & 0xF8) * 4096 + b(1) * 0x100000 +
         (b(0) & 0x03) * 0x10000000 + (b(0) & 0x38) * 0x8000000;
}

qint64 LastSCROf(const MediaBlock& block) {
  qsizetype at = block.FindBack(StartCode::Pack, kSearchedForSCR);
  while (at != 0) {
    const qint64 scr = GetSCR(block, at);
    if (scr != 0) return scr;
    if (at <= 20) return 0;
    at = block.FindBack(StartCode::Pack, at - 10);
  }
  return 0;
}

}  // namespace torvane
