#include "cli/film_commands.h"

#include <optional>

#include "cli/media_commands.h"
#include "cli/picture_check.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/messages.h"
#include "core/text.h"
#include "designer/edit_films.h"
#include "media/audio_analysis.h"
#include "media/chapters.h"
#include "media/language_list.h"
#include "media/media_advice.h"
#include "media/sub_format_form.h"
#include "media/video_title.h"
#include "platform/host_files.h"
#include "tools/audio_title_list.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kAllStreams = 2 * qsizetype(kFilmStreams);  ///< of sound and of subtitles

const QString kLineBreak = u"\r\n"_s;

/// The preparation of one film from the options of a command.
class TitleOptions {
 public:
  TitleOptions(const CommandLine& line, EditContext& context) : line_(line), context_(context) {}

  /// The film of a new video.
  std::optional<FilmRecord> Film() {
    const QString video = HostFiles::FromUser(line_.arguments.value(1));
    if (!HostFiles::FileExists(video)) {
      Refuse(u"There is no video "_s + video);
      return std::nullopt;
    }
    const auto film = NewFilm({.VideoFile = video}, context_.project.Settings, context_.prompter);
    return film ? Prepared(*film) : std::nullopt;
  }

  /// A film with what the options change.
  std::optional<FilmRecord> Prepared(const FilmRecord& film) {
    VideoTitle title(context_.project, film, context_.prompter);
    const QString chapterFile =
        Has(u"--chapter-file"_s) ? HostFiles::FromUser(line_.Option(u"--chapter-file"_s)) : QString();
    if (!chapterFile.isEmpty() && !HostFiles::FileExists(chapterFile)) {
      Refuse(u"There is no chapter file "_s + chapterFile);
      return std::nullopt;
    }
    title.Open(chapterFile);
    const bool taken = TakeVideoFile(title) && TakeName(title) && TakeSound(title) && TakeSubtitles(title) &&
                       TakeLanguages(title) && TakePalette(title) && TakeChapters(title) && TakeNumbers(title) &&
                       TakeCommands(title);
    if (!taken) return std::nullopt;
    WarnOfLateChapters(title.Fields.Chapters, title.DurationSec(), context_.prompter);
    return title.Accept();
  }

 private:
  bool Refuse(const QString& reason) {
    context_.prompter.Fail(reason);
    return false;
  }

  bool Has(const QString& name) const { return line_.options.contains(name); }

  bool TakeVideoFile(VideoTitle& title) {
    if (!Has(u"--video"_s)) return true;
    if (Has(u"--chapter-file"_s)) return Refuse(u"--video takes the chapters away; give --chapter-file afterwards."_s);
    const QString video = HostFiles::FromUser(line_.Option(u"--video"_s));
    return HostFiles::FileExists(video) ? title.SetVideo(video) : Refuse(u"There is no video "_s + video);
  }

  bool TakeName(VideoTitle& title) {
    if (!Has(u"--name"_s)) return true;
    if (title.Labels().Multiplexed) return Refuse(u"--name: a multiplexed film has the name of its file."_s);
    title.Fields.VideoName = line_.Option(u"--name"_s);
    return title.CheckVideoName();
  }

  bool TakeSound(VideoTitle& title) {
    const QStringList files = line_.options.value(u"--audio"_s);
    if (files.size() > kFilmStreams) return Refuse(u"A film has at most three sound tracks."_s);
    if (!files.isEmpty() && title.Labels().Multiplexed) {
      return Refuse(GetMessage(151) + kLineBreak + GetMessage(152, {{u"|1", title.VideoFile()}}));
    }
    for (qsizetype i = 0; i < files.size(); ++i) {
      if (files[i].isEmpty()) {
        title.ClearAudio(int(i) + 1);
        continue;
      }
      const QString path = HostFiles::FromUser(files[i]);
      if (!HostFiles::FileExists(path)) return Refuse(u"There is no audio file "_s + path);
      if (!IsAudioFile(path)) {
        const std::optional<Finding> fault = MediaFault(path, MediaUse::Sound, context_.project.Settings);
        Refuse(GetMessage(153, {{u"|1", path}}));
        return fault ? Refuse(fault->text) : false;
      }
      title.SetAudio(int(i) + 1, path);
    }
    return true;
  }

  bool TakeSubtitles(VideoTitle& title) {
    const QStringList files = line_.options.value(u"--sub"_s);
    const QStringList formats = line_.options.value(u"--sub-format"_s);
    if (files.size() > kFilmStreams) return Refuse(u"A film has at most three subtitle files."_s);
    if (formats.size() > files.size()) return Refuse(u"Each --sub-format belongs to a --sub."_s);
    for (qsizetype i = 0; i < files.size(); ++i) {
      if (files[i].isEmpty()) {
        title.ClearSubtitle(int(i) + 1);
        continue;
      }
      const QString path = HostFiles::FromUser(files[i]);
      if (!HostFiles::FileExists(path)) return Refuse(u"There is no subtitle file "_s + path);
      if (!title.SetSubtitle(int(i) + 1, path)) return Refuse(u"No subtitles can be read from "_s + path);
      if (i < formats.size() && !TakeFormat(title, int(i) + 1, formats[i])) return false;
    }
    if (line_.HasFlag(u"--start-sub"_s)) title.Fields.AutoStartSubs = true;
    return !title.Fields.AutoStartSubs || !title.Fields.Subtitle.front().isEmpty() ||
           Refuse(u"--start-sub needs a --sub."_s);
  }

  /// A format with all its fields, or with those that a stored default has.
  bool TakeFormat(VideoTitle& title, int stream, const QString& text) {
    const qsizetype fields = text.count(u'/') + 1;
    if (fields != kSubFields && fields != kStoredSubFields) {
      return Refuse(u"--sub-format takes 9 or 13 fields with \"/\" between them, not \"%1\"."_s.arg(text));
    }
    SubFormatForm form(title, stream, context_.project.Settings);
    form.Format = SubFormat(fields == kSubFields ? text : NewSubFormat(text, title.FPS(), title.ResV()));
    const QList<SubFieldFault> faults = form.Validate();
    for (const SubFieldFault& fault : faults) Refuse(u"--sub-format %1: %2"_s.arg(text, fault.Text));
    form.Accept(title);
    return faults.isEmpty();
  }

  bool TakeLanguages(VideoTitle& title) {
    if (!Has(u"--languages"_s)) return true;
    const QStringList tags = line_.Option(u"--languages"_s).split(u',');
    if (tags.size() > kAllStreams) return Refuse(u"--languages takes six tags: three of sound, three of subtitles."_s);
    for (qsizetype i = 0; i < tags.size(); ++i) {
      const QString tag = tags[i].trimmed().toUpper();
      const int language = LanguageOfTag(tag);
      if (language == 0 && !tag.isEmpty()) return Refuse(u"--languages: there is no language %1."_s.arg(tag));
      (i < kFilmStreams ? title.Fields.Languages.Audio[i] : title.Fields.Languages.Subtitle[i - kFilmStreams]) =
          language;
    }
    return true;
  }

  bool TakePalette(VideoTitle& title) {
    if (!Has(u"--palette"_s)) return true;
    if (line_.Option(u"--palette"_s).isEmpty()) {
      title.SetSubColors({});
      return true;
    }
    const QString path = HostFiles::FromUser(line_.Option(u"--palette"_s));
    return title.ReadPalette(path) || Refuse(u"No palette was taken from "_s + path);
  }

  bool TakeChapters(VideoTitle& title) {
    if (!Has(u"--chapters"_s)) return true;
    if (Has(u"--chapter-file"_s)) return Refuse(u"Either --chapters or --chapter-file, not both."_s);
    QStringList times = line_.Option(u"--chapters"_s).split(u',', Qt::SkipEmptyParts);
    for (QString& time : times) {
      ChapterFraction fraction = ChapterFraction::Unknown;
      if (NormalizeChapter(time, title.FPS(), fraction).isEmpty()) {
        return Refuse(u"--chapters: \"%1\" is no time."_s.arg(time));
      }
      if (time.size() == 1) time.prepend(u'0');  // a single digit would count as an empty line
    }
    title.Fields.Chapters = ChapterListFromLines(times.join(u'\n'), title.FPS());
    return true;
  }

  bool TakeNumbers(VideoTitle& title) {
    for (const QString& name : {u"--delay"_s, u"--shrink"_s, u"--inner-subs"_s}) {
      bool isNumber = false;
      line_.Option(name, u"0"_s).toInt(&isNumber);
      if (!isNumber) return Refuse(u"%1 takes a whole number, not \"%2\"."_s.arg(name, line_.Option(name)));
    }
    if (Has(u"--delay"_s)) title.Fields.AudioDelay = line_.Option(u"--delay"_s);
    if (Has(u"--inner-subs"_s)) {
      if (!title.Labels().Multiplexed) return Refuse(u"--inner-subs is for multiplexed films."_s);
      title.Fields.AddStreamNumber = line_.Option(u"--inner-subs"_s);
    }
    if (!Has(u"--shrink"_s)) return true;
    if (line_.Option(u"--shrink"_s).toInt() == 0) {
      title.Fields.Shrink = false;
      return true;
    }
    if (!title.Labels().ShrinkEnabled) return Refuse(u"--shrink is for elementary MPEG-2 films."_s);
    title.Fields.NewVideoSize = line_.Option(u"--shrink"_s);
    title.Fields.Shrink = true;
    return title.CheckShrink();
  }

  bool TakeCommands(VideoTitle& title) {
    if (Has(u"--pre"_s) || Has(u"--post"_s)) {
      if (!title.Labels().ActionsEnabled)
        return Refuse(u"--pre and --post are for projects made with AdvancedMode=1."_s);
      title.SetActions(line_.Option(u"--pre"_s, title.PreAction()), line_.Option(u"--post"_s, title.PostAction()),
                       title.UOP());
    }
    if (line_.HasFlag(u"--animated"_s)) title.Fields.Animated = true;
    return !title.Fields.Animated || title.Labels().AnimatedEnabled ||
           Refuse(u"--animated is for projects with animated menus."_s);
  }

  const CommandLine& line_;
  EditContext& context_;
};

bool Fail(EditContext& context, const QString& reason) {
  context.prompter.Fail(reason);
  return false;
}

/// Adds the files of each directory together, in the order given.
bool TakeFiles(const QStringList& typed, AudioTitleList& list, EditContext& context) {
  QStringList paths;
  for (const QString& file : typed) {
    const QString path = HostFiles::FromUser(file);
    if (!HostFiles::FileExists(path)) return Fail(context, u"There is no audio file "_s + path);
    if (paths.contains(path)) return Fail(context, u"This file is named twice: "_s + path);
    paths << path;
  }
  const auto dirOf = [&paths](qsizetype i) { return SplitPath(paths[i]).dir; };
  for (qsizetype first = 0; first < paths.size();) {
    QStringList names;
    qsizetype next = first;
    for (; next < paths.size() && dirOf(next) == dirOf(first); ++next) names << paths[next].mid(dirOf(next).size() + 1);
    list.AddFiles(dirOf(first), names);
    first = next;
  }
  return qsizetype(list.Rows().size()) == paths.size();
}

}  // namespace

bool AddTitleOf(const CommandLine& line, EditContext& context, const ElementPlace& place) {
  if (!CheckFilmPlace(context, place)) return false;
  const std::optional<FilmRecord> film = TitleOptions(line, context).Film();
  return film && AddFilm(context, *film, place);
}

bool EditTitleOf(const CommandLine& line, EditContext& context) {
  const int film = line.arguments.value(1).toInt();
  const Project& project = context.project;
  if (!project.Tree.Contains(FilmKey(film)) || FilmView(project.Tree, film).IsAudioTitleSet()) {
    return Fail(context, u"The project has no film %1."_s.arg(line.arguments.value(1)));
  }
  const std::optional<FilmRecord> record = TitleOptions(line, context).Prepared(ReadFilmNodes(project.Tree, film));
  return record && EditFilm(context, film, *record);
}

bool AddAudioTitleSetOf(const CommandLine& line, EditContext& context, const ElementPlace& place) {
  if (!CheckAudioTitleSetPlace(context, place)) return false;
  const Settings& settings = context.project.Settings;
  AudioTitleList list(settings, context.prompter);
  AudioTitleFields& fields = list.Fields;
  fields.AudiotitlesetName = line.Option(u"--name"_s, u"Audio"_s);
  fields.Author = line.Option(u"--artist"_s);
  fields.Album = line.Option(u"--album"_s);
  fields.UsePattern = line.HasFlag(u"--pattern"_s);
  fields.AddTrack = line.HasFlag(u"--add-track"_s);
  if (line.options.contains(u"--image"_s)) {
    fields.Image = HostFiles::FromUser(line.Option(u"--image"_s));
    if (!CheckPicture(fields.Image, context.prompter)) return false;
  }
  const bool wantsTitles = line.HasFlag(u"--titles"_s);
  const bool wantsChapters = line.HasFlag(u"--chapters"_s);
  if (wantsTitles && wantsChapters) return Fail(context, u"Either --titles or --chapters, not both."_s);
  if (wantsTitles || wantsChapters) fields.Chapters = wantsChapters;
  if (settings.Engine == kEngineMuxMan && !fields.Chapters) {
    return Fail(context, GetMessage(271, {{u"|1", kLineBreak}}));
  }
  if (!TakeFiles(line.arguments.mid(1), list, context)) return false;
  const std::optional<AudioTitleStore> store = list.Accept();
  return store && AddAudioTitleSet(context, *store, place);
}

}  // namespace torvane
