#include "media/video_title.h"

#include "core/action_strings.h"
#include "core/engine.h"
#include "core/messages.h"
#include "core/project.h"
#include "core/text.h"
#include "core/timecode.h"
#include "media/chapters.h"
#include "media/media_advice.h"
#include "media/special_characters.h"
#include "media/video_analysis.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

const QString kLineBreak = u"\r\n"_s;

QString DefaultIfEmpty(const QString& action) {
  return action.isEmpty() ? u"Default"_s : action;
}

/// One line of the warning of another format: " XRes = " and the like stand between the words and the values.
QString FormatLine(const QString& name, const QString& before, const QString& now) {
  return GetMessage(476) + u' ' + name + before + u"   " + GetMessage(477) + u"  " + name + now;
}

/// False when no film can come of the file; the user has been told what it is and how to convert it.
bool AnalyseForFilm(const QString& path, const Settings& settings, MpegInfo& video, Prompter& prompter) {
  const bool found = AnalyseVideoFile(path, video, prompter);
  const std::optional<Finding> fault = MediaFault(path, MediaUse::Film, settings);
  const bool isRefused = fault && fault->severity == Severity::Error;
  if (!found) prompter.Fail(GetMessage(373));
  if (isRefused) prompter.Fail(fault->text);
  return found && !isRefused;
}

}  // namespace

void TakeVideo(FilmRecord& film, const MpegInfo& video) {
  film.VideoFile = video.VideoFile;
  film.SizeMB = video.SizeMB;
  film.ResH = video.ResH;
  film.ResV = video.ResV;
  film.FPS = FormatNumberDot(video.FPS).toDouble();  // 29.97, not the float next to it
  film.Aspect = video.Aspect;
  film.Duration = video.Duration;
  film.DurationSec = video.DurationSec;
  film.MpegVersion = video.MpegVersion;
  film.MuxOK = video.MuxOK;
  film.AddSubStream = 0;
}

std::optional<FilmRecord> NewFilm(FilmRecord film, const Settings& settings, Prompter& prompter) {
  const QString path = film.VideoFile;
  const bool minds = settings.Engine == kEngineDvdauthor || IsMultiplexedFile(path);
  if (minds && HasSpecialCharacters(path)) WarnOfSpecialCharacters(settings, prompter);
  MpegInfo video;
  if (!AnalyseForFilm(path, settings, video, prompter)) return std::nullopt;
  TakeVideo(film, video);
  film.VideoFile = path;
  if (film.Name.isEmpty()) film.Name = SplitFileName(path).name;
  return film;
}

VideoTitle::VideoTitle(Project& project, FilmRecord film, Prompter& prompter)
    : project_(project), prompter_(prompter), film_(std::move(film)) {}

void VideoTitle::Open(const QString& chapterFile) {
  CheckChangedProperties();
  Fields = {.VideoName = film_.Name,
            .Audio = film_.Audio,
            .Subtitle = film_.SubTitel,
            .Languages = ParseLanguageTags(film_.LanguageTags),
            .AudioDelay = QString::number(film_.AudioDelay),
            .Chapters = film_.Chapters,
            .AutoStartSubs = film_.AutoStartSubs,
            .Animated = film_.Animated != 0};
  ShowVideo();
  Fields.Animated = Fields.Animated && labels_.AnimatedEnabled;
  DetectAudioFiles(!Fields.Audio.front().isEmpty());
  if (!chapterFile.isEmpty()) {
    const auto chapters = LoadChapterList(chapterFile, FPS(), prompter_);
    if (!chapters) prompter_.Fail(chapters.Error());
    if (chapters && *chapters != kFirstChapter) Fields.Chapters = *chapters;
  }
  if (Fields.Chapters == kFirstChapter) SetAutomaticChapters();
  opened_ = true;
}

void VideoTitle::ShowVideo() {
  labels_ = UpdateVideoLabels(film_, project_.Settings);
  Fields.AddStreamNumber = QString::number(labels_.Multiplexed ? film_.AddSubStream : 0);
  ClearShrink();
  if (labels_.Multiplexed) {
    Fields.VideoName = labels_.FileName;
    Fields.Audio.front().clear();
  } else if (labels_.ShrinkEnabled && film_.ShrinkTo != -1) {
    shrinkTo_ = film_.ShrinkTo;
    Fields.Shrink = true;
    ShowShrinkTarget();
  }
}

void VideoTitle::SetAutomaticChapters() {
  const Settings& settings = project_.Settings;
  QString lines;
  if (settings.AutoChapter == 1) lines = ChapterListByMinutes(settings.AutoChapterMinutes, film_.DurationSec);
  if (settings.AutoChapter == 2) lines = ChapterListByCount(settings.AutoChapterNum, film_.DurationSec);
  if (!lines.isEmpty()) Fields.Chapters = lines.replace(kLineBreak, u","_s);
}

void VideoTitle::CheckChangedProperties() {
  const Project& norm = project_;
  if (!norm.Settings.NoTitleSets || norm.FilmCount == 0) return;
  if (film_.FPS == norm.ProjectFps && film_.ResH == norm.ProjectResH && film_.ResV == norm.ProjectResV &&
      film_.Aspect == norm.ProjectAspect) {
    return;
  }
  const QStringList lines{GetMessage(475),
                          FormatLine(u"XRes = "_s, QString::number(norm.ProjectResH), QString::number(film_.ResH)),
                          FormatLine(u"YRes = "_s, QString::number(norm.ProjectResV), QString::number(film_.ResV)),
                          FormatLine(u"FPS =  "_s, FormatNumberDot(norm.ProjectFps), FormatNumberDot(film_.FPS)),
                          FormatLine(u"AR =   "_s, norm.ProjectAspect, film_.Aspect)};
  prompter_.Fail(lines.join(kLineBreak));
}

bool VideoTitle::SetVideo(const QString& path) {
  MpegInfo video;
  if (!AnalyseForFilm(path, project_.Settings, video, prompter_)) return false;
  TakeVideo(film_, video);
  film_.VideoFile = path;
  film_.ShrinkTo = -1;
  film_.SubColors.clear();
  film_.SubFormatStr = {};
  Fields = {.VideoName = SplitFileName(path).name, .Chapters = kFirstChapter.toString(), .Animated = Fields.Animated};
  audioInfo_ = {};
  SetAutomaticChapters();
  ShowVideo();
  DetectAudioFiles(false);
  CheckChangedProperties();
  videoReplaced_ = videoReplaced_ || opened_;
  return true;
}

bool VideoTitle::LoadChapters(const QString& path) {
  const auto chapters = LoadChapterList(path, FPS(), prompter_);
  if (!chapters) {
    prompter_.Fail(chapters.Error());
    return false;
  }
  Fields.Chapters = *chapters;
  return true;
}

void VideoTitle::ResetChapters() {
  Fields.Chapters = kFirstChapter.toString();
}

bool VideoTitle::EditChapters(ChapterEditorMode mode, ChapterEditorHost& host) {
  Settings& settings = project_.Settings;
  if (!HostFiles::FileExists(settings.AppPath + u'\\' + kChapterEditor)) {
    prompter_.Inform(GetMessage(417, {{u"|1", kChapterEditor.toString()}, {u"|2", settings.AppPath}}));
    return false;
  }
  host.RunAndWait(SplitFileName(kChapterEditor.toString()).name,
                  ChapterEditorCommand({film_.VideoFile, Fields.Chapters, mode}, settings));
  settings.AutoCropVal = host.StoredAutoCropVal();
  const QString result = CelltimesFile(settings.OutDir, film_.VideoFile);
  return !HostFiles::FileExists(result) || LoadChapters(result);
}

void VideoTitle::SetActions(const QString& preAction, const QString& postAction, const QString& uop) {
  film_.PreAction = preAction;
  film_.PostAction = postAction;
  film_.UOP = uop;
}

QString VideoTitle::PreActionText() const {
  return DefaultIfEmpty(film_.PreAction);
}

QString VideoTitle::PostActionText() const {
  return DefaultIfEmpty(film_.PostAction);
}

}  // namespace torvane
