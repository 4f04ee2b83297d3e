#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>
#include <optional>

namespace torvane {

/// A packet within a pack: positions in bytes from the begin of the pack.
struct PesPacket {
  quint8 stream = 0;
  qsizetype payload = 0;  ///< behind the packet's header, so also behind its time stamps
  qsizetype end = 0;
  std::optional<qint64> pts = {};  ///< 90 kHz

  bool operator==(const PesPacket&) const = default;
};

/// One pack of an MPEG-2 program stream cut into packs of 2048 bytes, as DVD-Video has it. ISO/IEC 13818-1, 2.5.3.
class MpegPack {
 public:
  static constexpr qsizetype kSize = 2048;

  explicit MpegPack(QByteArray bytes) : bytes_(std::move(bytes)) {}

  const QByteArray& Bytes() const { return bytes_; }

  /// True when the bytes are a whole pack with an MPEG-2 pack header; nothing else may be asked of others.
  bool IsWhole() const;

  /// System clock reference in ticks of 27 MHz.
  qint64 Scr() const;
  void SetScr(qint64 ticks);

  /// How long the pack takes at the stated rate of the stream, in ticks of 27 MHz.
  qint64 TransferTicks() const;

  /// True for a system header with the two packets of navigation data behind it, filled or not.
  bool IsNavigation() const;

  /// The packets that carry data: no headers, no padding. A packet that is cut off or broken ends the list.
  QList<PesPacket> Packets() const;

  bool IsVideo(const PesPacket& packet) const { return packet.stream >= 0xE0 && packet.stream <= 0xEF; }
  bool IsSound(const PesPacket& packet) const;

  /// True when the payload begins with a sequence header, with which a group of pictures begins on a DVD.
  bool BeginsSequence(const PesPacket& packet) const;

 private:
  quint8 At(qsizetype position) const { return quint8(bytes_[position]); }
  bool HasStartCode(qsizetype position, quint8 code) const;
  PesPacket PacketAt(qsizetype position, qsizetype end) const;

  QByteArray bytes_;
};

}  // namespace torvane
