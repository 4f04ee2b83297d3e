#include "cli/media_commands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "cli/cli_prompter.h"
#include "cli/commands.h"
#include "core/messages.h"
#include "core/text.h"
#include "media/audio_analysis.h"
#include "media/chapters.h"
#include "media/media_advice.h"
#include "media/palette.h"
#include "media/palette_check.h"
#include "media/palette_file.h"
#include "media/video_analysis.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Keeps the messages of an analysis for its record.
class MessageList : public Prompter {
 public:
  Answer Show(const Box& box) override {
    const bool isError = box.kind == BoxKind::Error;
    messages_ << QJsonObject{{u"Kind"_s, isError ? u"error"_s : u"warning"_s}, {u"Text"_s, box.text}};
    return box.preselected;
  }

  const QJsonArray& Messages() const { return messages_; }

 private:
  QJsonArray messages_;
};

/// The number that a float was written as, not the double next to it.
double AsWritten(float value) {
  return FormatNumberDot(value).toDouble();
}

QJsonObject VideoRecord(const QString& path) {
  MpegInfo info;
  MessageList messages;
  const bool found = AnalyseVideoFile(path, info, messages);
  QJsonObject record{{u"Kind"_s, u"video"_s},
                     {u"Result"_s, found},
                     {u"VideoFile"_s, info.VideoFile},
                     {u"Size(MB)"_s, info.SizeMB},
                     {u"Mux"_s, info.Mux},
                     {u"MuxOK"_s, info.MuxOK},
                     {u"Messages"_s, messages.Messages()}};
  if (!found) return record;
  record[u"ResH"_s] = info.ResH;
  record[u"ResV"_s] = info.ResV;
  record[u"Aspect"_s] = info.Aspect;
  record[u"FPS"_s] = AsWritten(info.FPS);
  record[u"Duration"_s] = info.Duration;
  record[u"DurationSec"_s] = info.DurationSec;
  record[u"MpegVersion"_s] = info.MpegVersion;
  return record;
}

QJsonObject AudioRecord(const QString& path) {
  AudioInfo info;
  QJsonObject record{{u"Kind"_s, u"audio"_s}, {u"Result"_s, AnalyseAudioFile(path, info)}, {u"AudioFile"_s, path}};
  if (!record[u"Result"_s].toBool()) return record;
  record[u"Bitrate"_s] = info.Bitrate;
  record[u"SampleFreq"_s] = info.SampleFreq;
  record[u"Duration"_s] = info.Duration;
  record[u"AudioSeconds"_s] = info.AudioSeconds;
  record[u"Size(MB)"_s] = info.SizeMB;
  return record;
}

bool LooksLikeAudio(const QString& path) {
  return IsAudioFile(path) || GetExtensionUpper(path) == u"MP3";
}

int Analyse(const CommandLine& line, Prompter& prompter) {
  int code = kExitDone;
  for (const QString& typed : line.arguments) {
    const QString path = HostFiles::FromUser(typed);
    if (!HostFiles::FileExists(path)) {
      prompter.Fail(u"There is no file "_s + path);
      code = kExitFailed;
      continue;
    }
    const bool isAudio = LooksLikeAudio(path);
    QJsonObject record = isAudio ? AudioRecord(path) : VideoRecord(path);
    const std::optional<Finding> fault = MediaFault(path, isAudio ? MediaUse::Sound : MediaUse::Film, Settings());
    if (fault && fault->severity == Severity::Error) record[u"Advice"_s] = fault->text;
    PrintOut(QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact)) + u'\n');
    if (record[u"Result"_s].toBool()) continue;
    prompter.Fail((isAudio ? u"The kind of this audio file is not known: "_s : GetMessage(373) + u' ') + path);
    code = kExitFailed;
  }
  return code;
}

/// Seconds of a chapter in its stored form.
double SecondsOf(const QString& chapter) {
  return Val(chapter.first(2)) * 3600 + Val(QStringView(chapter).mid(3, 2)) * 60 + Val(QStringView(chapter).mid(6));
}

}  // namespace

void WarnOfLateChapters(const QString& list, double duration, Prompter& prompter) {
  for (const QString& chapter : list.split(u',')) {
    if (SecondsOf(chapter) < duration || SecondsOf(chapter) == 0) continue;
    prompter.Warn(u"The chapter "_s + chapter + u" lies behind the end of the film."_s);
  }
}

namespace {

int Chapters(const CommandLine& line, Prompter& prompter) {
  CliPrompter frames(line.frames.value_or(AnswerPolicy::Default));
  const Result<QString> list =
      LoadChapterList(HostFiles::FromUser(line.arguments.front()), line.fps, line.frames ? frames : prompter);
  if (!list) {
    prompter.Fail(list.Error());
    return kExitFailed;
  }
  PrintOut(*list + u'\n');
  if (line.duration) WarnOfLateChapters(*list, *line.duration, prompter);
  return kExitDone;
}

int Palette(const CommandLine& line, Prompter& prompter) {
  const Result<QString> read = ReadPaletteFile(HostFiles::FromUser(line.arguments.front()));
  if (!read) {
    prompter.Fail(read.Error());
    return kExitFailed;
  }
  QString list = *read;
  if (!CheckPaletteRoundTrip(list, prompter)) return kExitFailed;
  QString text = list + u'\n';
  for (const int color : PaletteColors(list)) text += PaletteColorToRgbText(color) + u'\n';
  PrintOut(text);
  return kExitDone;
}

}  // namespace

bool IsMediaCommand(QStringView command) {
  return command == u"analyse" || command == u"chapters" || command == u"palette";
}

int RunMediaCommand(const CommandLine& line, Prompter& prompter) {
  if (line.command == u"analyse") return Analyse(line, prompter);
  if (line.command == u"chapters") return Chapters(line, prompter);
  return Palette(line, prompter);
}

}  // namespace torvane
