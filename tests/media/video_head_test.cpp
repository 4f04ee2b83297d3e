#include "media/video_head.h"

#include <gtest/gtest.h>

#include "media/media_block.h"
#include "mpeg_pieces.h"
#include "platform/host_files.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using namespace test;

TEST(VideoProbe, TellsWhetherTheClockCanBeUsed) {
  SparseFile sound = DvdStream(3000000, 40);
  EXPECT_EQ(ProbeVideoFile(sound), (VideoProbe{.Found = true, .Fps = 25, .FirstSCR = kFirstSCR, .ScrUsable = true}));

  SparseFile slow = DvdStream(3000000, 40);
  slow.Put(2996000, Pack(kFirstSCR + 41 * 90000) + Gop(0, 0, 39, 0) + Pictures(25));
  EXPECT_EQ(ProbeVideoFile(slow), (VideoProbe{.Found = true, .Fps = 25, .FirstSCR = kFirstSCR, .ScrUsable = false}));

  SparseFile elementary(Sequence(720, 480, 2, 4));
  EXPECT_EQ(ProbeVideoFile(elementary), (VideoProbe{.Found = true, .Fps = 29.97F}));

  // A pack header counts even in the last bytes: what follows then lies in no video packet.
  SparseFile late(Sequence(720, 480, 2, 4) + Pack(5).first(10));
  EXPECT_EQ(ProbeVideoFile(late), VideoProbe{});
}

class CopyHead : public testing::Test {
 protected:
  /// Number of bytes that the head of a stream has.
  qint64 HeadSize(const QByteArray& stream, int frames) {
    EXPECT_TRUE(HostFiles::WriteAtomically(u"C:\\in.mpg"_s, stream));
    EXPECT_TRUE(CopyVideoHead(frames, u"C:\\in.mpg"_s, u"C:\\out.mpg"_s));
    const QByteArray head = *HostFiles::Read(u"C:\\out.mpg"_s);
    EXPECT_EQ(head, stream.first(head.size()));
    return head.size();
  }

  DriveC drive_;
};

/// Blocks of ten pictures each, the last one shorter.
QByteArray ElementaryBlocks(int blocks) {
  QByteArray stream = Sequence(720, 576, 2, 3);
  for (int i = 1; i <= blocks; ++i) {
    stream += Pictures(10);
    stream.resize(i * kBlockSize, 'x');
  }
  return stream + Pictures(5);
}

TEST_F(CopyHead, CopiesBlocksUntilThereAreEnoughPictures) {
  const QByteArray stream = ElementaryBlocks(4);
  for (const auto& [frames, size] : {std::pair(0, kBlockSize), std::pair(10, kBlockSize), std::pair(11, 2 * kBlockSize),
                                     std::pair(41, stream.size()), std::pair(1000, stream.size())}) {
    EXPECT_EQ(HeadSize(stream, frames), size) << frames;
  }
  for (const qsizetype size : {kBlockSize, qsizetype(99), qsizetype(0)})
    EXPECT_EQ(HeadSize(stream.first(size), 1000), size);
}

TEST_F(CopyHead, GoesOnUntilTheClockAgrees) {
  // 100 pictures a block at 25 a second, but a clock that passes only one second a block.
  QByteArray stream = Pack(kFirstSCR) + VideoPacket() + Sequence(720, 576, 2, 3) + Gop(0, 0, 0, 0);
  for (int i = 1; i <= 8; ++i) {
    stream += Pictures(100);
    stream.resize(i * kBlockSize - 1000, 'x');
    stream += Pack(kFirstSCR + i * 90000) + VideoPacket();
    if (i == 8) stream += Gop(0, 0, 7, 0) + Pictures(25);
    stream.resize(i * kBlockSize, '\0');
  }
  EXPECT_EQ(HeadSize(stream, 75), 3 * kBlockSize);
  EXPECT_EQ(HeadSize(stream, 76), 4 * kBlockSize);
}

TEST_F(CopyHead, RemovesTheIndexAndFailsCleanly) {
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\out.d2v"_s, "old"));
  HeadSize(Sequence(720, 576, 2, 3), 1);
  EXPECT_FALSE(HostFiles::FileExists(u"C:\\out.d2v"_s));
  EXPECT_FALSE(CopyVideoHead(1, u"C:\\missing.mpg"_s, u"C:\\out.mpg"_s));
  EXPECT_TRUE(HostFiles::FileExists(u"C:\\out.mpg"_s));
  EXPECT_FALSE(CopyVideoHead(1, u"C:\\in.mpg"_s, u"C:\\no such dir\\out.mpg"_s));
}

}  // namespace
}  // namespace torvane
