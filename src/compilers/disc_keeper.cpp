#include "compilers/disc_keeper.h"

#include <QFileInfo>

#include "compilers/disc_checks.h"
#include "compilers/disc_look.h"
#include "compilers/run_batches.h"
#include "platform/host_files.h"
#include "platform/real_place.h"
#include "platform/removal.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

DiscKeeper::DiscKeeper(const Settings& settings, std::optional<int> titlesets)
    : outDir_(settings.OutDir),
      videoTs_(VideoTsDir(settings)),
      image_(IsoFile(settings)),
      makesImage_(settings.CreateISO),
      titlesets_(titlesets),
      before_(StampOfImage()),
      former_(settings.OutDir) {}

DiscKeeper::ImageStamp DiscKeeper::StampOfImage() const {
  const QFileInfo info(HostFiles::ToHost(image_));
  return info.exists() ? ImageStamp{info.size(), info.lastModified()} : ImageStamp{};
}

Status DiscKeeper::Begin(FormerFate fate) {
  Status status = former_.Keep(DiscPart::Disc, videoTs_);
  if (status && makesImage_) status = former_.Keep(DiscPart::Image, image_);
  if (!status) {
    RunEnded();
    summary_.clear();
    return status;
  }
  before_ = {};
  if (fate == FormerFate::DeletedFirst) {
    former_.Drop(DiscPart::Disc);
    former_.Drop(DiscPart::Image);
  }
  return {};
}

QStringList DiscKeeper::StepEnded(const QString& batch, bool failed) {
  if (batch == kAuthorBatch) return Judge(DiscPart::Disc, failed);
  return batch == kIsoBatch ? Judge(DiscPart::Image, failed) : QStringList();
}

QStringList DiscKeeper::Judge(DiscPart part, bool failed) {
  QStringList faults = failed ? QStringList() : FaultsOf(part);
  bool& settled = part == DiscPart::Disc ? discSettled_ : imageSettled_;
  settled = true;
  if (failed || !faults.isEmpty()) {
    if (const Status back = GiveBack(part); !back) faults << back.Error();
    return faults;
  }
  former_.Drop(part);
  summary_ << (part == DiscPart::Disc ? u"The disc in %1 is whole; it was made before the run ended."_s
                                      : u"The image %1 is whole; it was made before the run ended."_s)
                  .arg(HostFiles::ToHost(part == DiscPart::Disc ? videoTs_ : image_));
  return {};
}

QStringList DiscKeeper::FaultsOf(DiscPart part) const {
  if (part == DiscPart::Disc) return DiscFaults(videoTs_, titlesets_);
  if (StampOfImage() == before_) return {u"The image %1 was not made anew."_s.arg(HostFiles::ToHost(image_))};
  return ImageFaults(image_, outDir_ + u"\\DVD");
}

Status DiscKeeper::GiveBack(DiscPart part) {
  const bool isAside = former_.IsAside(part);
  const Status back = former_.PutBack(part);
  if (!back || !isAside) return back;
  summary_ << (part == DiscPart::Disc ? u"The former disc is back in %1."_s : u"The former image %1 is back."_s)
                  .arg(HostFiles::ToHost(part == DiscPart::Disc ? videoTs_ : image_));
  return {};
}

void DiscKeeper::RunEnded() {
  for (const DiscPart part : {DiscPart::Disc, DiscPart::Image}) {
    if (part == DiscPart::Disc ? discSettled_ : imageSettled_) continue;
    if (const Status back = GiveBack(part); !back) summary_ << back.Error();
  }
}

}  // namespace torvane
