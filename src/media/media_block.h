#pragma once

#include <QByteArray>

#include "media/media_file.h"

namespace torvane {

/// The last byte of a start code 00 00 01 xx. ISO/IEC 13818-1, table 2-22, and 13818-2, table 6-1.
enum class StartCode : quint8 {
  Picture = 0x00,
  Sequence = 0xB3,
  Extension = 0xB5,
  Group = 0xB8,
  Pack = 0xBA,
  PrivateStream2 = 0xBF,
  Video = 0xE0
};

/// What a file has been sampled by: at most this many bytes at a time.
inline constexpr qsizetype kBlockSize = 100000;

/// Bytes of a file, searched for start codes. Positions count from 1 and are those of the first 00 of a start code; 0
/// is "none". Whatever lies outside reads as 00.
class MediaBlock {
 public:
  MediaBlock() = default;

  /// Reads `count` bytes from `offset` on. What lies behind the end of the file is 00; the block of a file that cannot
  /// be opened is empty.
  MediaBlock(MediaFile& file, qint64 offset, qsizetype count);

  /// The bytes given, as a block.
  explicit MediaBlock(QByteArray bytes) : bytes_(std::move(bytes)), bytesRead_(bytes_.size()) {}

  qsizetype Size() const { return bytes_.size(); }

  /// The bytes that the file had.
  QByteArray Content() const { return bytes_.first(bytesRead_); }

  quint8 At(qsizetype position) const;

  /// The first start code at or behind `from`.
  qsizetype Find(StartCode code, qsizetype from = 1) const;

  /// The last start code that ends at or before `end`.
  qsizetype FindBack(StartCode code, qsizetype end) const;

  /// Number of the start codes at or behind `from`.
  int Count(StartCode code, qsizetype from = 1) const;

 private:
  QByteArray bytes_;
  qsizetype bytesRead_ = 0;
};

/// SCR base of the pack header at `position`: 90 kHz ticks, 33 bits; 0 where none can be used, as in an MPEG-1 pack
/// header. ISO/IEC 13818-1, 2.5.3.3.
qint64 GetSCR(const MediaBlock& block, qsizetype position);

/// The last usable SCR of a block of kBlockSize bytes, or 0. The last few bytes are not searched, since a pack header
/// there would be cut off.
qint64 LastSCROf(const MediaBlock& block);

}  // namespace torvane
