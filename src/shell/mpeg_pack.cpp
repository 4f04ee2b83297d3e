#include "shell/mpeg_pack.h"

#include <algorithm>

namespace torvane {
namespace {

constexpr quint8 kPack = 0xBA;
constexpr quint8 kSystemHeader = 0xBB;
constexpr quint8 kPrivate1 = 0xBD;
constexpr quint8 kPadding = 0xBE;
constexpr quint8 kPrivate2 = 0xBF;
constexpr quint8 kSequence = 0xB3;

constexpr qsizetype kPci = 38;  // behind the pack header and a system header of 24 bytes
constexpr qsizetype kDsi = 1024;

}  // namespace

bool MpegPack::HasStartCode(qsizetype position, quint8 code) const {
  return position + 4 <= bytes_.size() && At(position) == 0 && At(position + 1) == 0 && At(position + 2) == 1 &&
         At(position + 3) == code;
}

bool MpegPack::IsWhole() const {
  return bytes_.size() == kSize && HasStartCode(0, kPack) && (At(4) & 0xC0) == 0x40;
}

qint64 MpegPack::Scr() const {
  const qint64 base = qint64((At(4) >> 3) & 7) << 30 | qint64(At(4) & 3) << 28 | qint64(At(5)) << 20 |
                      qint64(At(6) >> 3) << 15 | qint64(At(6) & 3) << 13 | qint64(At(7)) << 5 | At(8) >> 3;
  return base * 300 + ((At(8) & 3) << 7 | At(9) >> 1);
}

void MpegPack::SetScr(qint64 ticks) {
  const qint64 base = ticks / 300;
  const qint64 extension = ticks % 300;
  bytes_[4] = char(0x44 | ((base >> 30) & 7) << 3 | ((base >> 28) & 3));
  bytes_[5] = char(base >> 20);
  bytes_[6] = char(((base >> 15) & 0x1F) << 3 | 4 | ((base >> 13) & 3));
  bytes_[7] = char(base >> 5);
  bytes_[8] = char((base & 0x1F) << 3 | 4 | extension >> 7);
  bytes_[9] = char((extension & 0x7F) << 1 | 1);
}

qint64 MpegPack::TransferTicks() const {
  const qint64 rate = std::max<qint64>(1, qint64(At(10)) << 14 | qint64(At(11)) << 6 | At(12) >> 2);
  // The rate counts 50 bytes a second.
  return kSize * 27000000 / (rate * 50);
}

bool MpegPack::IsNavigation() const {
  return HasStartCode(14, kSystemHeader) && HasStartCode(kPci, kPrivate2) && HasStartCode(kDsi, kPrivate2);
}

PesPacket MpegPack::PacketAt(qsizetype position, qsizetype end) const {
  PesPacket packet{At(position + 3), position + 6, end};
  const bool hasHeader = packet.stream == kPrivate1 || (packet.stream >= 0xC0 && packet.stream <= 0xEF);
  if (!hasHeader || packet.payload + 3 > end || (At(packet.payload) & 0xC0) != 0x80) return packet;
  const bool hasPts = (At(packet.payload + 1) & 0x80) != 0;
  const qsizetype stamp = packet.payload + 3;
  packet.payload = std::min(stamp + At(packet.payload + 2), end);
  if (hasPts && stamp + 5 <= packet.payload) {
    packet.pts = qint64((At(stamp) >> 1) & 7) << 30 | qint64(At(stamp + 1)) << 22 | qint64(At(stamp + 2) >> 1) << 15 |
                 qint64(At(stamp + 3)) << 7 | At(stamp + 4) >> 1;
  }
  return packet;
}

QList<PesPacket> MpegPack::Packets() const {
  QList<PesPacket> packets;
  for (qsizetype position = 14 + (At(13) & 7); position + 6 <= bytes_.size();) {
    const quint8 stream = At(position + 3);
    if (!HasStartCode(position, stream) || stream < kSystemHeader) break;
    const qsizetype end = position + 6 + (At(position + 4) << 8 | At(position + 5));
    if (end > bytes_.size()) break;
    if (stream != kSystemHeader && stream != kPadding) packets << PacketAt(position, end);
    position = end;
  }
  return packets;
}

bool MpegPack::IsSound(const PesPacket& packet) const {
  if (packet.stream >= 0xC0 && packet.stream <= 0xDF) return true;
  if (packet.stream != kPrivate1 || packet.payload >= packet.end) return false;
  const quint8 substream = At(packet.payload);
  return (substream >= 0x80 && substream <= 0x8F) || (substream >= 0xA0 && substream <= 0xA7);
}

bool MpegPack::BeginsSequence(const PesPacket& packet) const {
  return IsVideo(packet) && packet.payload + 4 <= packet.end && HasStartCode(packet.payload, kSequence);
}

}  // namespace torvane
