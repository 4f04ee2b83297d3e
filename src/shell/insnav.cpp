#include "shell/insnav.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <cstdio>

#include "shell/mpeg_pack.h"
#include "shell/vobu_plan.h"
#include "shell/written_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

struct NavigationData {
  qint64 scr = 0;  // 27 MHz
  quint32 place = 0;
  quint32 lastPack = 0;  // distance of the unit's last pack
  quint32 start = 0;
  quint32 end = 0;
  quint32 toNext = 0;  // distances of the neighbours; 0: none
  quint32 toPrevious = 0;
};

void Put(QByteArray& bytes, qsizetype position, quint32 value) {
  qToBigEndian(value, bytes.data() + position);
}

/// A navigation pack in the form of DVD-Video: pack header, system header, presentation control information (PCI) and
/// data search information (DSI). `like` is a pack of the stream, whose rate it states.
MpegPack NavigationPack(const MpegPack& like, const NavigationData& data) {
  constexpr qsizetype kPci = 45;  // the begin of each kind of data, behind its substream number
  constexpr qsizetype kDsi = 1031;
  constexpr qsizetype kSearch = kDsi + 234;
  constexpr quint32 kExists = 0x80000000;
  constexpr quint32 kNowhere = 0x3FFFFFFF;
  QByteArray bytes(MpegPack::kSize, '\0');
  bytes.replace(0, 13, like.Bytes().first(13));
  bytes[13] = char(0xF8);
  // Bounds of the buffers: video 232 KiB, MPEG sound 4 KiB, private streams 58 KiB and 2 KiB.
  bytes.replace(14, 24, QByteArray::fromHex("000001bb001280000104e1ffb9e0e8b8c020bde03abfe002"));
  const quint32 rate = quint32(quint8(bytes[10])) << 14 | quint32(quint8(bytes[11])) << 6 | quint8(bytes[12]) >> 2;
  bytes[20] = char(0x80 | rate >> 15);
  bytes[21] = char(rate >> 7);
  bytes[22] = char(rate << 1 | 1);
  bytes.replace(kPci - 7, 7, QByteArray::fromHex("000001bf03d400"));
  Put(bytes, kPci, data.place);
  Put(bytes, kPci + 12, data.start);
  Put(bytes, kPci + 16, data.end);
  bytes.replace(kDsi - 7, 7, QByteArray::fromHex("000001bf03fa01"));
  Put(bytes, kDsi, quint32(data.scr / 300));
  Put(bytes, kDsi + 4, data.place);
  Put(bytes, kDsi + 8, data.lastPack);
  for (int i = 0; i < 42; ++i) Put(bytes, kSearch + 4 * i, kNowhere);
  if (data.toNext) Put(bytes, kSearch + 4 * 20, kExists | data.toNext);
  if (data.toPrevious) Put(bytes, kSearch + 4 * 21, kExists | data.toPrevious);
  MpegPack pack(bytes);
  pack.SetScr(data.scr);
  return pack;
}

class Writer {
 public:
  Writer(const VobuPlan& plan, QFile& input, QFile& output) : plan_(plan), input_(input), output_(output) {}

  Status Run() {
    for (qint64 number = 0; number < plan_.packs; ++number) {
      MpegPack pack(input_.read(MpegPack::kSize));
      if (!pack.IsWhole()) return Failure{u"%1: changed while it was read"_s.arg(input_.fileName())};
      const bool begins = next_ < plan_.vobus.size() && plan_.vobus[next_].pack == number;
      if (begins && !Write(Navigation(pack))) return Failed();
      if (begins && plan_.vobus[next_ - 1].replaces) continue;
      if (!Write(pack)) return Failed();
    }
    return output_.flush() ? Status() : Failed();
  }

  qint64 Added() const { return added_; }

 private:
  Status Failed() const { return Failure{output_.fileName() + u": "_s + output_.errorString()}; }

  /// The place that a planned unit has in the output.
  qint64 PlaceOf(size_t index, qint64 addedBefore) const {
    if (index >= plan_.vobus.size()) return plan_.packs + addedBefore;
    return plan_.vobus[index].pack + addedBefore;
  }

  MpegPack Navigation(const MpegPack& before) {
    const PlannedVobu& vobu = plan_.vobus[next_];
    const qint64 place = PlaceOf(next_, added_);
    if (!vobu.replaces) ++added_;
    const qint64 nextPlace = PlaceOf(next_ + 1, added_);
    const bool last = next_ + 1 == plan_.vobus.size();
    NavigationData data;
    data.scr = vobu.replaces ? before.Scr() : std::max<qint64>(0, before.Scr() - before.TransferTicks());
    data.scr = std::max(data.scr, earliest_);
    data.place = quint32(place);
    data.lastPack = quint32(nextPlace - place - 1);
    data.start = quint32(vobu.start);
    data.end = quint32(last ? plan_.end : plan_.vobus[next_ + 1].start);
    data.toNext = last ? 0 : quint32(nextPlace - place);
    data.toPrevious = quint32(next_ == 0 ? 0 : place - previousPlace_);
    previousPlace_ = place;
    ++next_;
    return NavigationPack(before, data);
  }

  /// No pack may be sent before the one in front of it has been.
  bool Write(MpegPack pack) {
    if (pack.Scr() < earliest_) pack.SetScr(earliest_);
    earliest_ = pack.Scr() + pack.TransferTicks();
    return output_.write(pack.Bytes()) == MpegPack::kSize;
  }

  const VobuPlan& plan_;
  QFile& input_;
  QFile& output_;
  size_t next_ = 0;
  qint64 added_ = 0;
  qint64 previousPlace_ = 0;
  qint64 earliest_ = 0;
};

/// The two names of the command line, output first; none where they are not there.
QStringList Names(const QStringList& arguments) {
  if (arguments.size() != 3) return {};
  if (arguments[0] == u"-o") return {arguments[1], arguments[2]};
  return arguments[1] == u"-o" ? QStringList{arguments[2], arguments[0]} : QStringList{};
}

void Discard(const QStringList& arguments) {
  const QStringList names = Names(arguments);
  if (!names.isEmpty()) RemoveOrdinaryFile(UnfinishedName(names[0]));
}

Result<QString> InsertNavigation(const QString& outputName, const QString& inputName) {
  const Result<VobuPlan> plan = PlanVobus(inputName);
  if (!plan) return Failure{plan.Error()};
  QFile input(inputName);
  if (!input.open(QIODevice::ReadOnly)) return Failure{inputName + u": "_s + input.errorString()};
  QFile output(UnfinishedName(outputName));
  if (!output.open(QIODevice::WriteOnly)) return Failure{output.fileName() + u": "_s + output.errorString()};
  Writer writer(*plan, input, output);
  if (Status written = writer.Run(); !written) return Failure{written.Error()};
  output.close();
  if (std::rename(QFile::encodeName(output.fileName()).constData(), QFile::encodeName(outputName).constData()) != 0) {
    return Failure{outputName + u": "_s + qt_error_string()};
  }
  return u"%1 units, %2 navigation packs added"_s.arg(plan->vobus.size()).arg(writer.Added());
}

Result<QString> Run(const QStringList& arguments) {
  const QStringList names = Names(arguments);
  if (names.isEmpty()) return Failure{u"usage: insnav -o OUTPUT INPUT"_s};
  Result<QString> done = InsertNavigation(names[0], names[1]);
  if (!done) Discard(arguments);
  return done;
}

}  // namespace

const OwnTool kInsnav{Run, Discard};

}  // namespace torvane
