#include "compilers/source_check.h"

#include <QFileInfo>
#include <map>

#include "compilers/plan_check.h"
#include "core/audio_title_set.h"
#include "core/film_view.h"
#include "core/menu_view.h"
#include "core/messages.h"
#include "platform/host_files.h"
#include "render/picture_loader.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Gathers the sources of one place after the other.
class SourceList {
 public:
  explicit SourceList(const Project& project) : project_(project) {}

  QList<ProjectSource> Gather() {
    for (int i = 1; i <= project_.FilmCount; ++i) {
      const FilmView film(project_.Tree, i);
      film.IsAudioTitleSet() ? AddAudioTitleSet(i) : AddFilm(film);
    }
    for (const QString& key : DiscMenuKeys(project_)) AddMenu(MenuView(project_.Tree, key));
    const Settings& settings = project_.Settings;
    if (settings.UseIntro) {
      Add(MediaUse::Film, {}, u"Intro"_s, settings.IntroMovie);
      if (!settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive)) {
        Add(MediaUse::Sound, {}, u"Intro, sound"_s, settings.IntroAudio);
      }
    }
    return std::move(sources_);
  }

 private:
  void Add(std::optional<MediaUse> use, const QString& key, const QString& place, const QString& path) {
    if (!path.isEmpty()) sources_ << ProjectSource{use, key, place, path};
  }

  void AddFilm(const FilmView& film) {
    const int number = film.Number();
    const QString place = u"Film %1 (%2)"_s.arg(number).arg(film.Name());
    Add(MediaUse::Film, FilmNodeKey(film_node::Video, number), place, film.Video());
    for (int stream = 1; stream <= kFilmStreams && film.NeedsMux(); ++stream) {
      Add(MediaUse::Sound, FilmAudioKey(number, stream), place + u", sound %1"_s.arg(stream),
          film.Audio(stream).value_or(QString()));
    }
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      Add(MediaUse::Subtitle, FilmSubtitleKey(number, stream), place + u", subtitles %1"_s.arg(stream),
          film.Subtitle(stream).value_or(QString()));
    }
  }

  void AddAudioTitleSet(int film) {
    const AudioTitleStore store = ReadAudioTitleSet(project_.Tree, film);
    for (std::size_t i = 0; i < store.Titles.size(); ++i) {
      const QString key = AudioTitleKey(film, int(i) + 1);
      const QString place = u"Film %1 (%2), track %3"_s.arg(film).arg(store.Name).arg(i + 1);
      Add(MediaUse::Sound, key + audio_title_node::File.Suffix, place, store.Titles[i].File);
      Add(MediaUse::Picture, key + audio_title_node::Image.Suffix, place, store.Titles[i].Image);
    }
  }

  void AddMenu(const MenuView& menu) {
    const QString place = u"Menu %1 (%2)"_s.arg(menu.Name(), menu.Key());
    const auto ofMenu = [&](std::optional<MediaUse> use, Attribute attribute, const QString& what) {
      Add(use, MenuNodeKey(menu.Key(), attribute), place + what, menu.Text(attribute).value_or(QString()));
    };
    ofMenu(MediaUse::Picture, menu_node::BackgroundPath, u", background"_s);
    ofMenu(MediaUse::Sound, menu_node::BackgroundAudio, u", sound"_s);
    for (const PictureView& image : menu.Images()) {
      Add(MediaUse::Picture, ElementNodeKey(image.Key(), element_node::File),
          place + u", image %1"_s.arg(image.Number()), image.Text(element_node::File).value_or(QString()));
      AddMask(image, image.Mask(), place + u", mask of image %1"_s.arg(image.Number()));
    }
    for (const ButtonView& button : menu.Buttons()) {
      if (button.ExistsOnDisc() && button.UseHigh() >= 0) {
        AddMask(button, button.Mask(), place + u", mask of button %1"_s.arg(button.Key()));
      }
    }
    if (!project_.Settings.AnimatedMainMenu) return;
    ofMenu(std::nullopt, menu_node::BackgroundAnimation, u", background video"_s);
    for (const PictureView& animation : menu.Animations()) {
      // The head itself holds the path.
      const QString path = project_.Tree.Find(animation.Key())->Value(u"Ani="_s.size());
      Add(std::nullopt, animation.Key(), place + u", animation %1"_s.arg(animation.Number()), path);
    }
  }

  /// A mask without a size is not drawn.
  void AddMask(const NodeView& element, const std::optional<MaskGeometry>& mask, const QString& place) {
    if (mask && mask->HasRelSize) Add(MediaUse::Picture, element.Key(), place, mask->Path);
  }

  const Project& project_;
  QList<ProjectSource> sources_;
};

/// Looks at each file once, however many menus share it.
class FileJudge {
 public:
  explicit FileJudge(const Settings& settings) : settings_(settings) {}

  const std::optional<Finding>& FaultOf(const ProjectSource& source) {
    const std::pair key(source.path, source.use);
    const auto known = faults_.find(key);
    return known != faults_.end() ? known->second : faults_[key] = Look(source);
  }

 private:
  std::optional<Finding> Look(const ProjectSource& source) const {
    const QFileInfo file(HostFiles::ToHost(source.path));
    const auto error = [&file](const QString& text) { return Finding{.text = text.arg(file.filePath())}; };
    if (!file.exists()) return error(u"%1 is missing. Please put it back or choose another file."_s);
    if (!file.isFile()) return error(u"%1 is no file. Please choose another one."_s);
    if (!source.use) return std::nullopt;
    if (const std::optional<Finding> fault = MediaFault(source.path, *source.use, settings_)) return fault;
    if (source.use != MediaUse::Picture || ReadPicture(source.path)) return std::nullopt;
    return error(u"%1 is no picture that can be read. Please choose another one, or save it anew as PNG or JPEG."_s);
  }

  const Settings& settings_;
  std::map<std::pair<QString, std::optional<MediaUse>>, std::optional<Finding>> faults_;
};

}  // namespace

QList<ProjectSource> DiscSources(const Project& project) {
  return SourceList(project).Gather();
}

QList<Finding> SourceFindings(const Project& project) {
  FileJudge judge(project.Settings);
  QList<Finding> findings;
  for (const ProjectSource& source : DiscSources(project)) {
    if (source.key.isEmpty() && source.use == MediaUse::Film && !HostFiles::FileExists(source.path)) {
      findings << Finding{.text = GetMessage(195, {{u"|1", source.path}})};
      continue;
    }
    const std::optional<Finding>& fault = judge.FaultOf(source);
    if (fault) findings << Finding{fault->severity, source.key, source.place + u": " + fault->text};
  }
  return findings;
}

}  // namespace torvane
