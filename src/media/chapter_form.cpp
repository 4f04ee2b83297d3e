#include "media/chapter_form.h"

#include "core/text.h"
#include "core/timecode.h"
#include "media/chapters.h"

namespace torvane {

ChapterForm::ChapterForm(const QString& chapters, float fps, double duration)
    : Text(QString(chapters).replace(QStringLiteral(","), QStringLiteral("\r\n"))), fps_(fps), duration_(duration) {}

void ChapterForm::CreateEach(const QString& minutes) {
  Text = ChapterListByMinutes(ValToInt(minutes), duration_);
}

void ChapterForm::CreateCount(int count) {
  Text = ChapterListByCount(count, duration_);
}

QString ChapterForm::Chapters() const {
  return ChapterListFromLines(Text, fps_);
}

}  // namespace torvane
