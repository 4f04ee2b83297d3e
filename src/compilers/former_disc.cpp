#include "compilers/former_disc.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "core/text.h"
#include "platform/generated_file.h"
#include "platform/host_files.h"
#include "platform/real_place.h"
#include "platform/removal.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QByteArrayView kHead = "Torvane former disc 1\n";
const QString kRecord = u"former.txt"_s;
const QString kDisc = u"VIDEO_TS"_s;
const QString kReplaced = u"replaced"_s;  ///< what stood where the former disc was put back
const QString kDropped = u"dropped"_s;    ///< a former disc of which not all is deleted yet
const QString kBeside = u".former"_s;

QString NameIn(const QString& path) {
  return path.sliced(path.lastIndexOf(u'\\') + 1);
}

/// Never over something that is there.
Status Rename(const QString& from, const QString& to) {
  if (NameExists(to)) return Failure{u"%1 is in the way of %2"_s.arg(HostFiles::ToHost(to), HostFiles::ToHost(from))};
  const QByteArray source = QFile::encodeName(HostFiles::ToHost(from));
  if (std::rename(source.constData(), QFile::encodeName(HostFiles::ToHost(to)).constData()) == 0) return {};
  return Failure{u"%1: %2"_s.arg(HostFiles::ToHost(from), QString::fromLocal8Bit(std::strerror(errno)))};
}

bool IsEmptyFolder(const QString& path) {
  return !IsLink(path) && HostFiles::DirExists(path) && HostFiles::FileNames(path).isEmpty() &&
         HostFiles::DirNames(path).isEmpty();
}

}  // namespace

FormerDisc::FormerDisc(QString outDir) : outDir_(std::move(outDir)), folder_(outDir_ + u"\\DVD.former"_s) {}

QString FormerDisc::PlaceOfPart(DiscPart part) const {
  return part == DiscPart::Disc ? outDir_ + u"\\DVD\\"_s + kDisc : image_;
}

QString FormerDisc::KeptPath(DiscPart part) const {
  if (part == DiscPart::Disc) return Aside(kDisc);
  if (image_.isEmpty()) return {};
  const QString aside = Aside(NameIn(image_));
  return NameExists(aside) ? aside : image_ + kBeside;
}

bool FormerDisc::ReadRecord() {
  if (IsLink(folder_) || IsLink(Aside(kRecord))) return false;
  const Result<QByteArray> record = HostFiles::Read(Aside(kRecord));
  if (!record || !record->startsWith(kHead)) return false;
  const QString image = QString::fromUtf8(record->mid(kHead.size())).trimmed();
  if (image.endsWith(u".ISO", Qt::CaseInsensitive) && HostFiles::HasDrive(image)) image_ = image;
  return true;
}

Status FormerDisc::WriteRecord() {
  const QString host = HostFiles::ToHost(folder_);
  if (!NameExists(folder_) && !QDir().mkdir(host)) return Failure{u"The folder %1 cannot be made."_s.arg(host)};
  if (NameExists(Aside(kRecord)) || IsEmptyFolder(folder_)) {
    return WriteGeneratedFile(Aside(kRecord), kHead.toByteArray() + image_.toUtf8() + '\n');
  }
  return Failure{
      u"%1 is needed for the former disc, and Torvane did not make it. Please move it elsewhere."_s.arg(host)};
}

bool FormerDisc::IsLeft() const {
  return FormerDisc(outDir_).ReadRecord();
}

Status FormerDisc::Keep(DiscPart part, const QString& place) {
  if (!NameExists(place) || (part == DiscPart::Disc && IsEmptyFolder(place))) return {};
  if (part == DiscPart::Image) image_ = HostFiles::ToDos(ResolvedPath(SplitPath(place).dir)) + u'\\' + NameIn(place);
  if (Status recorded = WriteRecord(); !recorded) return recorded;
  Status kept = Rename(place, Aside(part == DiscPart::Disc ? kDisc : NameIn(place)));
  if (!kept && part == DiscPart::Image) kept = Rename(place, image_ + kBeside);  // it lies on another file system
  if (!kept) Tidy();
  return kept;
}

bool FormerDisc::IsAside(DiscPart part) const {
  return NameExists(KeptPath(part));
}

Status FormerDisc::PutBack(DiscPart part) {
  const QString kept = KeptPath(part);
  if (!NameExists(kept)) return {};
  const QString place = PlaceOfPart(part);
  if (part == DiscPart::Disc) {
    if (Status removed = RemoveTree(Aside(kReplaced)); !removed) return removed;
    if (NameExists(place)) {
      if (Status moved = Rename(place, Aside(kReplaced)); !moved) return moved;
    }
    HostFiles::MakeDir(outDir_ + u"\\DVD"_s);
  } else if (NameExists(place)) {
    if (Status removed = RemoveBelow(SplitPath(place).dir, NameIn(place)); !removed) return removed;
  }
  Status back = Rename(kept, place);
  if (back) Tidy();
  return back;
}

void FormerDisc::Drop(DiscPart part) {
  const QString kept = KeptPath(part);
  if (!NameExists(kept)) return;
  if (part == DiscPart::Image) {
    (void)RemoveBelow(SplitPath(kept).dir, NameIn(kept));
  } else if (RemoveTree(Aside(kDropped))) {
    // From here on it is no disc that could be put back: a program killed while deleting must not bring back half of
    // it.
    (void)Rename(kept, Aside(kDropped));
  }
  Tidy();
}

/// Deletes what is to go in any case, and the folder when nothing is aside any more.
void FormerDisc::Tidy() {
  for (const QString& name : {kReplaced, kDropped}) (void)RemoveTree(Aside(name));
  if (IsAside(DiscPart::Disc) || IsAside(DiscPart::Image)) return;
  (void)RemoveBelow(folder_, kRecord);
  (void)RemoveBelow(outDir_, NameIn(folder_));
}

Result<QStringList> FormerDisc::PutBackAll() {
  QStringList places;
  if (!ReadRecord()) return places;
  for (const DiscPart part : {DiscPart::Disc, DiscPart::Image}) {
    if (!IsAside(part)) continue;
    if (Status back = PutBack(part); !back) return Failure{back.Error()};
    places << PlaceOfPart(part);
  }
  Tidy();
  return places;
}

}  // namespace torvane
