#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

#include "compilers/former_disc.h"
#include "core/settings.h"
#include "platform/result.h"
#include "run/run_keeper.h"

namespace torvane {

/// Keeps the former disc and image until the new ones are whole: the disc is judged at the end of author.bat, the image
/// at that of makeiso.bat, each by itself. What is whole replaces the former one; otherwise that one comes back, also
/// when the run ends before.
class DiscKeeper : public RunKeeper {
 public:
  /// `titlesets` is the number that the disc must have; nothing when no project tells it.
  DiscKeeper(const Settings& settings, std::optional<int> titlesets);

  /// Takes the former disc and image out of the way of a run. Without this call the run's results are only looked at.
  /// On failure everything is as it was.
  Status Begin(FormerFate fate);

  QStringList StepEnded(const QString& batch, bool failed) override;
  void RunEnded() override;

  /// What a user should know about disc and image after a run that failed or was aborted: a sentence each.
  QStringList Summary() const { return summary_; }

 private:
  struct ImageStamp {
    qint64 size = -1;
    QDateTime changed;
    bool operator==(const ImageStamp&) const = default;
  };

  QStringList Judge(DiscPart part, bool failed);
  QStringList FaultsOf(DiscPart part) const;
  Status GiveBack(DiscPart part);
  ImageStamp StampOfImage() const;

  QString outDir_;
  QString videoTs_;
  QString image_;
  bool makesImage_;
  std::optional<int> titlesets_;
  ImageStamp before_;
  FormerDisc former_;
  bool discSettled_ = false;
  bool imageSettled_ = false;
  QStringList summary_;
};

}  // namespace torvane
