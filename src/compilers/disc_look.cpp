#include "compilers/disc_look.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <algorithm>

#include "platform/host_files.h"
#include "platform/real_place.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qint64 kSector = 2048;
constexpr int kMostVobs = 9;
/// dvdauthor gives VIDEO_TS.IFO, its backup and its video files so many bytes at least; the image has a gap for the
/// rest.
constexpr qint64 kLeastDiscPart = 32 * kSector;
constexpr qint64 kLastSectorAt = 0x0C;  ///< of an IFO: number of the last sector of all that it stands for
constexpr qint64 kTitlesetCountAt = 0x3E;
constexpr qint64 kVolumeAt = 16 * kSector;
constexpr qint64 kVolumeBlocksAt = 80;
constexpr qint64 kBlockSizeAt = 128;

QByteArray ReadPart(const QString& path, qint64 from, qint64 count) {
  QFile file(HostFiles::ToHost(path));
  return file.open(QIODevice::ReadOnly) && file.seek(from) ? file.read(count) : QByteArray();
}

qint64 SizeOf(const QString& path) {
  return IsLink(path) ? 0 : HostFiles::FileSizeOf(path).value_or(0);
}

/// Looks at one IFO and what it stands for.
class IfoLook {
 public:
  IfoLook(const QString& dir, const QString& stem, QByteArrayView magic) : stem_(dir + u'\\' + stem) {
    head_ = ReadPart(Ifo(), 0, kSector);
    if (head_.size() < kSector || !head_.startsWith(magic)) {
      faults_ << u"The disc is not whole: %1 is missing or no IFO file."_s.arg(HostFiles::ToHost(Ifo()));
    } else if (SizeOf(Ifo()) != SizeOf(Bup())) {
      faults_ << u"The disc is not whole: %1 is missing or differs from its IFO file."_s.arg(HostFiles::ToHost(Bup()));
    }
  }

  QString Ifo() const { return stem_ + u".IFO"; }
  QString Bup() const { return stem_ + u".BUP"; }

  /// The video files of an IFO take the sectors that it and its backup leave of what it tells, at least `least` bytes.
  void Compare(const QStringList& vobs, qint64 least = 0) {
    if (!faults_.isEmpty()) return;
    qint64 size = SizeOf(Ifo()) + SizeOf(Bup());
    for (const QString& vob : vobs) {
      size += SizeOf(vob);
      if (NameExists(vob) && SizeOf(vob) == 0) {
        faults_ << u"The disc is not whole: %1 is empty."_s.arg(HostFiles::ToHost(vob));
      }
    }
    const qint64 told = (qint64(qFromBigEndian<quint32>(head_.constData() + kLastSectorAt)) + 1) * kSector;
    if (faults_.isEmpty() && std::max(size, least) != told) {
      faults_ << u"The disc is not whole: the files of %1 should have %2 bytes and have %3."_s.arg(
          HostFiles::ToHost(Ifo()), QString::number(told), QString::number(size));
    }
  }

  int TitlesetCount() const { return qFromBigEndian<quint16>(head_.constData() + kTitlesetCountAt); }
  QStringList& Faults() { return faults_; }

 private:
  QString stem_;
  QByteArray head_;
  QStringList faults_;
};

QStringList TitlesetFaults(const QString& dir, int number) {
  const QString stem = u"VTS_%1_"_s.arg(number, 2, 10, QChar(u'0'));
  IfoLook titleset(dir, stem + u'0', "DVDVIDEO-VTS");
  QStringList vobs;
  for (int part = 0; part <= kMostVobs; ++part) vobs << dir + u'\\' + stem + QString::number(part) + u".VOB";
  titleset.Compare(vobs);
  if (SizeOf(vobs[1]) == 0 && titleset.Faults().isEmpty()) {
    titleset.Faults() << u"The disc is not whole: %1 is missing or empty."_s.arg(HostFiles::ToHost(vobs[1]));
  }
  return titleset.Faults();
}

}  // namespace

QStringList DiscFaults(const QString& videoTsDir, std::optional<int> titlesets) {
  IfoLook disc(videoTsDir, u"VIDEO_TS"_s, "DVDVIDEO-VMG");
  disc.Compare({videoTsDir + u"\\VIDEO_TS.VOB"}, kLeastDiscPart);
  QStringList faults = disc.Faults();
  if (!faults.isEmpty()) return faults;
  const int count = titlesets.value_or(disc.TitlesetCount());
  if (count != disc.TitlesetCount()) {
    faults << u"The disc is not whole: %1 tells of %2 titlesets, the project has %3."_s
                  .arg(HostFiles::ToHost(disc.Ifo()))
                  .arg(disc.TitlesetCount())
                  .arg(count);
  }
  for (int number = 1; number <= count; ++number) faults += TitlesetFaults(videoTsDir, number);
  return faults;
}

QStringList ImageFaults(const QString& image, const QString& dvdDir) {
  const QString host = HostFiles::ToHost(image);
  const qint64 size = SizeOf(image);
  if (size == 0) return {u"The image %1 is missing or empty."_s.arg(host)};
  const QByteArray volume = ReadPart(image, kVolumeAt, kSector);
  if (volume.size() < kSector || !volume.startsWith("\1CD001")) return {u"%1 is no ISO image."_s.arg(host)};
  const qint64 told = qint64(qFromLittleEndian<quint32>(volume.constData() + kVolumeBlocksAt)) *
                      qFromLittleEndian<quint16>(volume.constData() + kBlockSizeAt);
  const qint64 least = std::max(told, TreeSize(dvdDir));
  if (size >= least && size % kSector == 0 && told > 0) return {};
  return {u"The image %1 is not whole: it has %2 bytes of at least %3."_s.arg(host).arg(size).arg(least)};
}

qint64 TreeSize(const QString& dosDir) {
  qint64 size = 0;
  QDirIterator files(HostFiles::ToHost(dosDir), QDir::Files | QDir::Hidden | QDir::NoSymLinks,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    files.next();
    size += files.fileInfo().size();
  }
  return size;
}

}  // namespace torvane
