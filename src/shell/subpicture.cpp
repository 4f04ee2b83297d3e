#include "shell/subpicture.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kWidth = 720;
constexpr int kHeight = 576;

enum Command {
  ForcedStart = 0,
  Start = 1,
  Stop = 2,
  Colors = 3,
  Contrast = 4,
  Area = 5,
  Fields = 6,
  Changes = 7,
  End = 255
};

struct BrokenUnit {
  QString reason;
};

class UnitReader {
 public:
  explicit UnitReader(const QByteArray& unit) : unit_(unit) {}

  SubpictureUnit Run() {
    if (unit_.size() < 4 || Number(0) != unit_.size()) throw BrokenUnit{u"has a wrong size"_s};
    for (int at = Number(2);;) {
      const int next = Number(at + 2);
      // 1024 ticks of 90 kHz each.
      ReadCommands(at + 4, Number(at) * 1024);
      if (next == at) break;
      if (next < at) throw BrokenUnit{u"has commands in a circle"_s};
      at = next;
    }
    SubpictureUnit result;
    result.end = picture_.end;
    if (!shown_) return result;
    if (picture_.end && *picture_.end <= picture_.start) picture_.end.reset();
    result.end.reset();
    DrawField(0);
    DrawField(1);
    result.picture = picture_;
    return result;
  }

 private:
  int Byte(qsizetype at) const {
    if (at < 0 || at >= unit_.size()) throw BrokenUnit{u"ends too early"_s};
    return quint8(unit_[at]);
  }
  int Number(qsizetype at) const { return Byte(at) << 8 | Byte(at + 1); }
  int Nibble(qsizetype at) const { return at % 2 == 0 ? Byte(at / 2) >> 4 : Byte(at / 2) & 15; }

  std::array<int, 4> Nibbles(qsizetype at) const {
    return {Byte(at + 1) & 15, Byte(at + 1) >> 4, Byte(at) & 15, Byte(at) >> 4};
  }

  void ReadCommands(qsizetype at, int date) {
    for (;; ++at) {
      switch (Byte(at)) {
        case ForcedStart:
        case Start:
          if (!shown_) picture_.start = date;
          picture_.forced = picture_.forced || Byte(at) == ForcedStart;
          shown_ = true;
          break;
        case Stop:
          if (!picture_.end) picture_.end = date;
          break;
        case Colors:
          if (!Visible()) picture_.colors = Nibbles(at + 1);
          at += 2;
          break;
        case Contrast:
          if (!Visible()) picture_.contrast = Nibbles(at + 1);
          at += 2;
          break;
        case Area:
          ReadArea(at + 1);
          at += 6;
          break;
        case Fields:
          fields_ = {Number(at + 1), Number(at + 3)};
          at += 4;
          break;
        case Changes:
          at += std::max(2, Number(at + 1));
          break;
        case End:
          return;
        default:
          throw BrokenUnit{u"has an unknown command %1"_s.arg(Byte(at))};
      }
    }
  }

  bool Visible() const {
    return shown_ &&
           std::any_of(picture_.contrast.begin(), picture_.contrast.end(), [](int value) { return value > 0; });
  }

  void ReadArea(qsizetype at) {
    const int left = Byte(at) << 4 | Byte(at + 1) >> 4;
    const int right = (Byte(at + 1) & 15) << 8 | Byte(at + 2);
    const int top = Byte(at + 3) << 4 | Byte(at + 4) >> 4;
    const int bottom = (Byte(at + 4) & 15) << 8 | Byte(at + 5);
    if (right < left || bottom < top || right >= kWidth || bottom >= kHeight) {
      throw BrokenUnit{u"draws outside the picture, at %1,%2 to %3,%4"_s.arg(left).arg(top).arg(right).arg(bottom)};
    }
    picture_.area = QRect(QPoint(left, top), QPoint(right, bottom));
  }

  /// Draws the even or the odd lines. A run is coded in one to four half bytes, the more zero bits it begins with; one
  /// of length 0 goes to the line's end. Each line begins at a byte.
  void DrawField(int field) {
    const int width = picture_.area.width();
    const int height = picture_.area.height();
    if (width <= 0 || height <= 0) throw BrokenUnit{u"shows a picture without telling where"_s};
    if (picture_.pixels.isEmpty()) picture_.pixels.resize(qsizetype(width) * height);
    qsizetype nibble = qsizetype(fields_[size_t(field)]) * 2;
    for (int y = field; y < height; y += 2) {
      char* line = picture_.pixels.data() + qsizetype(y) * width;
      for (int x = 0; x < width;) {
        int code = Nibble(nibble++);
        for (int limit = 4; code < limit && limit <= 64; limit *= 4) code = code << 4 | Nibble(nibble++);
        const int length = code >> 2;
        const int end = length == 0 ? width : std::min(width, x + length);
        std::fill(line + x, line + end, char(code & 3));
        x = end;
      }
      nibble += nibble % 2;
    }
  }

  const QByteArray& unit_;
  Subpicture picture_;
  std::array<int, 2> fields_{};
  bool shown_ = false;
};

}  // namespace

Result<SubpictureUnit> ReadSubpicture(const QByteArray& unit) {
  try {
    return UnitReader(unit).Run();
  } catch (const BrokenUnit& broken) {
    return Failure{broken.reason};
  }
}

}  // namespace torvane
