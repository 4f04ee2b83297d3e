#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <random>

#include "shell/insnav.h"
#include "shell/mpeg_pack.h"
#include "shell/sup2png.h"
#include "sup_writer.h"

namespace torvane::test {

using namespace Qt::Literals::StringLiterals;

/// Damaged input for the console's own tools, which must end with a result or a message and leave nothing unfinished.
class ToolMutations {
 public:
  explicit ToolMutations(quint64 seed) : random_(seed) {}

  /// One damaged file for each tool. Returns what was broken, "" for nothing.
  QString Round() {
    return Tool(kSup2Png, Sup(), {u"in"_s}, {u"in.d"_s}) +
           Tool(kInsnav, Film(), {u"-o"_s, u"out"_s, u"in"_s}, {u"out"_s});
  }

  int Succeeded() const { return succeeded_; }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  QString Tool(const OwnTool& tool, QByteArray input, QStringList arguments, const QStringList& results) {
    for (int i = Below(6); i > 0; --i) input[Below(int(input.size()))] = char(Below(256));
    if (Below(8) == 0) input.truncate(Below(int(input.size())));
    QFile file(dir_.filePath(u"in"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(input) != input.size()) return u"cannot write"_s;
    file.close();
    for (QString& argument : arguments) {
      if (!argument.startsWith(QChar(u'-'))) argument = dir_.filePath(argument);
    }
    const Result<QString> done = tool.run(arguments);
    succeeded_ += done ? 1 : 0;
    const QStringList expected = QStringList{u"in"_s} + (done ? results : QStringList());
    const QStringList left = QDir(dir_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    if (left != expected) return u"left "_s + left.join(QChar(u' '));
    if (!done && !done.Error().startsWith(file.fileName())) return u"said "_s + done.Error();
    for (const QString& result : results) {
      QFile::remove(dir_.filePath(result));
      QDir(dir_.filePath(result)).removeRecursively();
    }
    return {};
  }

  QByteArray Sup() {
    QByteArray sup;
    for (int i = 0; i < 3; ++i) {
      Subpicture picture{
          QRect(Below(600), Below(500), 1 + Below(100), 1 + Below(60)), {}, {0, 1, 2, 3}, {0, 15, 15, 15}};
      for (int p = 0; p < picture.area.width() * picture.area.height(); ++p)
        picture.pixels += char(Below(20) ? 1 : Below(4));
      picture.start = 1024 * Below(3);
      picture.end = 1024 * (5 + Below(100));
      sup += SupWriter::Record(quint32(i * 200000), SupWriter::Unit(picture));
    }
    return sup;
  }

  QByteArray Film() {
    QByteArray film;
    for (int i = 0; i < 40; ++i) {
      QByteArray pack = QByteArray::fromHex("000001ba4400040004010189c3f8");
      const bool video = i < 4;
      pack += video ? QByteArray::fromHex("000001e007ec") : QByteArray::fromHex("000001c007ec");
      const quint32 pts = quint32(video ? 14400 : 14400 + i * 9000);
      pack += QByteArray::fromHex("818005") + char(0x21 | (pts >> 29 & 14)) + char(pts >> 22) + char(pts >> 14 | 1) +
              char(pts >> 7) + char(pts << 1 | 1) + QByteArray::fromHex("000001b32d024033");
      film += pack.leftJustified(MpegPack::kSize, '\xFF');
    }
    return film;
  }

  std::mt19937_64 random_;
  QTemporaryDir dir_;
  int succeeded_ = 0;
};

}  // namespace torvane::test
