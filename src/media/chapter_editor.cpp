#include "media/chapter_editor.h"

#include "media/chapters.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kLeastCropText = 4;

QString Quoted(const QString& text) {
  return u'"' + text + u'"';
}

}  // namespace

QString ChapterEditorCommand(const ChapterEditorCall& call, const Settings& settings) {
  QString command = Quoted(settings.AppPath + u'\\' + kChapterEditor) + u' ' + Quoted(call.Video) + u" /outdir=" +
                    Quoted(settings.OutDir);
  if (!call.Chapters.isEmpty() && call.Chapters != kFirstChapter) command += u" /chapters=" + Quoted(call.Chapters);
  if (settings.AnimatedMainMenu) command += u" /Clips=" + Quoted(QString::number(settings.AnimationDuration));
  if (settings.AutoCrop && settings.AutoCropVal.size() >= kLeastCropText) command += u" /crop=" + settings.AutoCropVal;
  if (call.Mode == ChapterEditorMode::Automatic) {
    command += u" /auto";
  } else if (settings.ChapEditMarkOnly) {
    command += u" /markonly";
  }
  return command;
}

}  // namespace torvane
