#pragma once

#include <functional>
#include <random>

#include "core/film_view.h"
#include "designer/alignment.h"
#include "designer/copy_layout.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/edit_values.h"
#include "designer/shrink.h"
#include "support/edit_bench.h"

namespace torvane::test {

/// A user who does anything anywhere.
class RandomUser {
 public:
  explicit RandomUser(unsigned seed) : random_(seed), bench_(RandomSettings()) {}
  /// The same with settings of one's own.
  RandomUser(unsigned seed, const Settings& settings) : random_(seed), bench_(settings) {}

  Project& ThisProject() { return bench_.project; }

  void Act() {
    EditContext& c = bench_.context;
    ElementPlace place{.menu = AnyMenu()};
    if (Below(2) == 0) place.position = QPoint(Below(720), Below(576));
    if (Below(3) == 0) place.style = ButtonStyle(Below(3));
    const auto addFilm = [&] { AddFilm(c, AnyFilm(), place); };
    const auto addMenu = [&] { AddMenu(c, {.type = MenuTypes()[Below(5)]}, place); };
    const auto deleteNode = [&] { DeleteNode(c, AnyKey()); };
    const auto addSongs = [&] {
      AudioTitle song;
      song.File = QStringLiteral("C:\\v\\s.mp2");
      const std::vector<AudioTitle> titles(std::size_t(Below(4)), song);
      AddAudioTitleSet(c, {.Name = QStringLiteral("Songs"), .Titles = titles}, place);
    };
    const std::function<void()> actions[] = {
        addFilm,
        addFilm,
        addSongs,
        [&] { AddPlayList(c, {.Film = 1 + Below(4), .List = QStringLiteral("01")}, place); },
        addMenu,
        addMenu,
        [&] { AddChapterButton(c, 1 + Below(3), place); },
        [&] { AddFreeButton(c, QStringLiteral("Button\nhere"), QLatin1String(Below(2) == 0 ? "" : "exit;"), place); },
        [&] { AddPlayAllButton(c, place); },
        [&] { AddLabel(c, QStringLiteral("Label"), place); },
        [&] { AddImage(c, QStringLiteral("C:\\i.png"), place); },
        [&] { AddAnimation(c, {.video = QStringLiteral("C:\\v.m2v")}, place); },
        deleteNode,
        deleteNode,
        [&] {
          const QString key = AnyKey();
          const QString value = Below(2) == 0 ? QString::number(Below(800)) : QStringLiteral("1,2,3");
          EditValue(c, key, key.endsWith(u"BGPath") ? QStringLiteral("C:\\b.png") : value);
        },
        [&] { MoveElement(c, AnyKey(), AnyKey()); },
        [&] { Rearrange(place.menu); },
        [&] { Less(place.menu); },
    };
    actions[Below(int(std::size(actions)))]();
    bench_.prompter.boxes.clear();
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

 private:
  Settings RandomSettings() {
    Settings settings = FixedSettings();
    settings.NoTitleSets = Below(2) == 0;
    settings.Engine = Below(2);
    settings.LoopSyntax = Below(2) == 0;
    settings.TextButtons = Below(3);
    settings.AnimatedMainMenu = Below(2) == 0;
    settings.AdvancedMode = Below(2) == 0;
    settings.DefMenuRatio = Below(2) == 0;
    settings.Def169Mode = Below(3);
    return settings;
  }

  FilmRecord AnyFilm() {
    FilmRecord film;
    film.Name = QStringLiteral("film_%1").arg(Below(100));
    film.VideoFile = QStringLiteral("C:\\v\\%1.m2v").arg(Below(100));
    film.MpegVersion = QString::number(1 + Below(2));
    film.SizeMB = Below(3000);
    film.TotalSize = film.SizeMB + 100;
    film.Chapters = QStringLiteral("00:00:00.000,00:01:00.000");
    film.Animated = Below(3);
    if (Below(2) == 0) film.Audio[0] = QStringLiteral("C:\\v\\a.ac3");
    return film;
  }

  QString AnyMenu() {
    QStringList menus;
    const ProjectTree& tree = bench_.project.Tree;
    for (const ProjectNode* root = tree.FirstRoot(); root; root = root->Next()) {
      if (!MenuOfNode(tree, root->Key()).isEmpty()) menus << root->Key();
    }
    return menus[Below(int(menus.size()))];
  }

  QString AnyKey() {
    const ProjectTree& tree = bench_.project.Tree;
    const ProjectNode* node = nullptr;
    for (int i = Below(int(tree.NodeCount())); i >= 0; --i) node = tree.NextInOrder(node);
    return node->Key();
  }

  void Rearrange(const QString& menu) {
    QStringList keys;
    const MenuView view(bench_.project.Tree, menu);
    for (const ButtonView& button : view.Buttons()) keys << button.Key();
    for (const PictureView& image : view.Images()) keys << image.Key();
    if (Below(2) == 0) {
      AlignElements(bench_.context, menu, keys, Alignment(Below(8)));
    } else {
      DistributeElements(bench_.context, menu, keys, Distribution(Below(4)));
    }
  }

  void Less(const QString& menu) {
    const auto flip = [this] { return Below(2) == 0; };
    const std::function<void()> changes[] = {
        [&] { ShrinkToSize(bench_.context, QString::number(Below(10000))); },
        [&] { DeleteGroup(bench_.context, menu, ElementGroup(Below(6))); },
        [&] {
          const FilmRecord film = AnyFilm();
          const int number = 1 + Below(4);
          if (!FilmView(bench_.project.Tree, number).IsAudioTitleSet()) EditFilm(bench_.context, number, film);
        },
        [&] { SwitchMenu(bench_.project, menu, bench_.prompter); },
        [&] {
          CopyMenuLayout(bench_.context, menu, AnyMenu(),
                         {flip(), flip(), flip(), flip(), flip(), flip(), flip(), flip()});
        },
    };
    changes[Below(int(std::size(changes)))]();
  }

  std::mt19937 random_;
  EditBench bench_;
};

}  // namespace torvane::test
