#pragma once

#include <QString>

namespace torvane {

/// The chapters of a film under edit, one a line.
class ChapterForm {
 public:
  /// `fps` and `duration` (in seconds) are the film's.
  ChapterForm(const QString& chapters, float fps, double duration);

  QString Text;

  void CreateEach(const QString& minutes);
  void CreateCount(int count);

  /// The chapter list of what stands there.
  QString Chapters() const;

 private:
  float fps_;
  double duration_;
};

}  // namespace torvane
