#pragma once

#include <algorithm>
#include <map>

#include "media/media_file.h"

namespace torvane::test {

/// A file of any size that holds pieces of bytes at some places and zeros everywhere else. Counts what is read of it.
class SparseFile : public MediaFile {
 public:
  explicit SparseFile(qint64 size = 0) : size_(size) {}
  explicit SparseFile(const QByteArray& bytes) : size_(bytes.size()) { Put(0, bytes); }

  void Put(qint64 at, const QByteArray& bytes) {
    longest_ = std::max(longest_, qint64(bytes.size()));
    pieces_[at] = bytes;
  }

  std::optional<qint64> Size() override { return size_; }

  std::optional<QByteArray> Read(qint64 position, qsizetype count) override {
    ++reads;
    const qint64 end = std::min(position + count, size_);
    if (position < 0 || position >= end) return QByteArray();
    QByteArray bytes(qsizetype(end - position), '\0');
    bytesRead += bytes.size();
    for (auto piece = pieces_.lower_bound(position - longest_); piece != pieces_.end() && piece->first < end; ++piece) {
      const qint64 from = std::max(piece->first, position);
      const qint64 to = std::min(piece->first + piece->second.size(), end);
      if (from < to) bytes.replace(from - position, to - from, piece->second.mid(from - piece->first, to - from));
    }
    return bytes;
  }

  int reads = 0;
  qint64 bytesRead = 0;

 private:
  qint64 size_;
  qint64 longest_ = 0;
  std::map<qint64, QByteArray> pieces_;
};

/// A file that cannot be opened.
class MissingFile : public MediaFile {
 public:
  std::optional<qint64> Size() override { return std::nullopt; }
  std::optional<QByteArray> Read(qint64, qsizetype) override { return std::nullopt; }
};

}  // namespace torvane::test
