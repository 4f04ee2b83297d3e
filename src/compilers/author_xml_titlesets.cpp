#include <algorithm>

#include "compilers/audio_titleset.h"
#include "compilers/author_xml.h"
#include "core/film_view.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kFirstChainGroup = 24;  ///< titlesets that the first of several jump PGCs leads to
constexpr int kChainGroup = 25;       ///< and each further one

/// Writes the one control file; its members are the blocks of the file in their order.
class TitlesetWriter {
 public:
  TitlesetWriter(const Project& project, AuthorMode mode, LineValues& values)
      : project_(project),
        settings_(project.Settings),
        mode_(mode),
        playAll_(HasPlayAllButton(project)),
        chained_(settings_.GoNextTitle || playAll_),
        values_(values),
        pieces_(project, out_, values) {}

  QByteArray Write() {
    out_.Line(u"<?xml version=\"1.0\" encoding=\"utf-8\"?>");
    out_.Line(u"<dvdauthor dest=\"" + values_.Path(settings_.OutDir + u"\\DVD") + u"\">");
    out_.Line(u"<vmgm>");
    if (settings_.UseIntro) {
      if (settings_.CommentXML) out_.Line(u"      <!-- First Play action (Intro) --> ");
      out_.Line(u"    <fpc> jump titleset %1 menu; </fpc>"_s.arg(project_.FilmCount + 1));
    }
    out_.Line(u"    <menus>");
    if (settings_.CommentXML) out_.Line(u"      <!-- vmgm menu 1 (MainMenu) --> ");
    if (settings_.NoMenus) {
      VmgmWithoutMenus();
    } else {
      VmgmWithMenus();
    }
    out_.Line(u"    </menus>");
    out_.Line(u"</vmgm>");
    for (int i = 1; i <= project_.FilmCount; ++i) Titleset(FilmView(project_.Tree, i));
    if (settings_.UseIntro) IntroTitleset();
    out_.Line(u"</dvdauthor>");
    return out_.Bytes();
  }

 private:
  MenuView MainMenu() const { return {project_.Tree, MainMenuKey()}; }
  MenuView RootMenu(const FilmView& film) const { return {project_.Tree, TitleSetMenuKey(film.Number())}; }

  QString PreAction(const MenuView& menu) {
    return IndentCommand(pieces_.Commands(menu.Key(), menu_node::BackgroundPreAction), 12);
  }

  // ---- The VMGM domain ----

  /// Its one PGC only passes on to the titleset that comes next.
  void VmgmWithoutMenus() {
    pieces_.VideoFormat();
    out_.Line(u"      <pgc entry=\"title\" pause=\"0\">");
    const QString pre = PreAction(MainMenu());
    if (!pre.isEmpty()) {
      pieces_.Block(u"       <pre>"_s, pre, u"       </pre>"_s);
    } else {
      out_.Line(u"       <pre> {");
      for (int k = 1; k <= project_.FilmCount; ++k) out_.Line(JumpToTitleset(k));
      out_.Line(u"             jump titleset 1 menu; }");
      out_.Line(u"       </pre>");
    }
    out_.Line(u"        <vob file=\"" + EmptyMenuFile(values_, mode_) + u"\" pause=\"0\"/>");
    out_.Line(u"      </pgc>");
  }

  void VmgmWithMenus() {
    const MenuView menu = MainMenu();
    pieces_.WriteVideoElement(settings_.DefMenuRatio);
    out_.Line(u"      <pgc entry=\"title\">");
    const QString pre = PreAction(menu);
    if (!pre.isEmpty()) {
      pieces_.Block(u"       <pre>"_s, pre, u"       </pre>"_s);
    } else {
      out_.Line(GeneratedMainMenuPre(menu));
    }
    pieces_.MenuVob(menu, RootMenuFile(values_, menu, mode_));
    pieces_.Buttons(menu, PlayAllAction(settings_));
    pieces_.MainMenuPost();
    out_.Line(u"      </pgc>");
    firstJumpPgc_ = 2;
    for (const QString& key : menu.SubMenuKeys()) pieces_.WriteMenuPgc(key, firstJumpPgc_++, playAll_);
    if (chained_) JumpPgcs();
  }

  QString GeneratedMainMenuPre(const MenuView& menu) const {
    QString line = u"      <pre> { "_s;
    if (playAll_) line += u"g0=0; ";
    if (const int highlight = FindAutoActionButton(menu)) {
      return line + u"g1=1; button=%1;} </pre>"_s.arg(highlight);
    }
    if (settings_.LoopSyntax) line += u"g3=1;";
    return line + u"if (g1 eq 0) g1=1; button=g1*1024; } </pre>";
  }

  // ---- The chain from titleset to titleset ----

  static QString JumpToTitleset(int k) { return u"       if (g2 eq %1) jump titleset %1 menu;"_s.arg(k); }

  /// A titleset cannot jump into another one, so a chain goes through these; a PGC holds too few commands for all.
  void JumpPgcs() {
    const int last = project_.FilmCount;
    int first = 1;
    for (int group = 1; group == 1 || first <= last; ++group) {
      const int full = first + (group == 1 ? kFirstChainGroup : kChainGroup) - 1;
      const bool isLast = group == 4 || last - 1 <= full;
      out_.Line(u"      <pgc pause=\"0\">");
      out_.Line(u"       <pre> {");
      if (group == 1) {
        for (const int next : {3, 2, 1}) {
          const int limit = kFirstChainGroup + kChainGroup * (next - 1);
          if (last - 1 > limit) {
            out_.Line(u"       if (g2 gt %1) jump menu %2;"_s.arg(limit).arg(firstJumpPgc_ + next));
          }
        }
      }
      const int closing = isLast ? last : full;
      for (int k = first; k < closing; ++k) out_.Line(JumpToTitleset(k));
      out_.Line(QString(JumpToTitleset(closing) + u'}'));
      out_.Line(u"       </pre>");
      out_.Line(u"      </pgc>");
      if (isLast) return;
      first = full + 1;
    }
  }

  // ---- A titleset ----

  void Titleset(const FilmView& film) {
    const MenuView root = RootMenu(film);
    out_.Line(u"<titleset>");
    out_.Line(u"    <menus>");
    if (settings_.CommentXML) {
      out_.Line(u"      <!-- titleset %1 menu 1 ("_s.arg(film.Number()) + values_.Comment(root.Name(), root.Key()) +
                u") --> ");
    }
    if (settings_.NoMenus) {
      PassingMenu();
    } else {
      Menus(film, root);
    }
    out_.Line(u"    </menus>");
    out_.Line(u"    <titles>");
    pieces_.Languages(film);
    if (film.IsAudioTitleSet()) {
      AudioTitles(film);
    } else {
      pieces_.FilmPgc(film);
      TitlePre(film);
      pieces_.FilmVob(film);
    }
    TitlePost(film, root);
    out_.Line(u"      </pgc>");
    out_.Line(u"    </titles>");
    out_.Line(u"  </titleset>");
  }

  void PassingMenu() {
    pieces_.VideoFormat();
    out_.Line(u"      <pgc entry=\"root\" pause=\"0\">");
    out_.Line(u"        <pre> {  jump title 1 chapter 1; } </pre>");
    out_.Line(u"        <vob file=\"" + EmptyMenuFile(values_, mode_) + u"\" pause=\"0\"/>");
    out_.Line(u"      </pgc>");
  }

  void Menus(const FilmView& film, const MenuView& root) {
    pieces_.WriteVideoElement(root.IsWide(settings_));
    out_.Line(u"      <pgc entry=\"root\">");
    const QString pre = PreAction(root);
    if (!pre.isEmpty()) {
      pieces_.Block(u"        <pre>"_s, pre, u"        </pre>"_s);
    } else {
      GeneratedRootPre(film, root);
    }
    pieces_.MenuVob(root, RootMenuFile(values_, root, mode_));
    pieces_.Buttons(root, {});
    RootPost(root);
    out_.Line(u"      </pgc>");
    int number = 2;
    for (const QString& key : root.SubMenuKeys()) pieces_.WriteMenuPgc(key, number++, playAll_);
  }

  /// True for a root menu that has nothing to show but its Back button: the titleset then starts with its title.
  static bool OnlyBack(const MenuView& root) {
    const std::vector<ButtonView> buttons = root.Buttons();
    const auto written = [](const ButtonView& button) { return button.IsWritten(); };
    return std::ranges::count_if(buttons, written) == 1 && FindAutoActionButton(root) == 0;
  }

  void GeneratedRootPre(const FilmView& film, const MenuView& root) {
    const QString otherwise = playAll_ ? u" else g0=0;"_s : QString();
    const QString start = u"if (g1 gt 0) jump title 1 chapter 1;"_s;
    QString line = u"        <pre> { "_s;
    if (film.StartsWithSubtitle()) line += u"subtitle=64; ";
    if (OnlyBack(root)) {
      out_.Line(QString(line + start + otherwise));
      out_.Line(u"                jump vmgm menu;} </pre>");
      return;
    }
    if (const int highlight = FindAutoActionButton(root)) {
      line += u"button=%1;"_s.arg(highlight);
    } else {
      line += settings_.LoopSyntax ? u"if (g3 eq 0) g3=1;button=g3*1024;" : u"button=1024;";
    }
    if (settings_.NoShowTitleSetMenu)
      line += u' ' + start + u' ' + otherwise + u"} </pre>";
    else
      line += u" } </pre>";
    out_.Line(line);
  }

  void RootPost(const MenuView& root) {
    const QString post = pieces_.Commands(root.Key(), menu_node::BackgroundPostAction);
    if (post.isEmpty()) {
      pieces_.LoopPost(root, u"g3=s8/1024; jump menu 1;"_s);
    } else if (post.contains(u"\r\n")) {
      pieces_.Block(u"        <post>"_s, IndentCommand(post, 10), u"        </post>"_s);
    } else {
      out_.Line(u"        <post>" + post + u"</post>");
    }
  }

  void TitlePre(const FilmView& film) {
    const QString pre = pieces_.FilmPre(film);
    if (!pre.isEmpty()) {
      pieces_.Block(u"      <pre>"_s, pre, u"      </pre>"_s);
    } else {
      out_.Line(kClearRequest);
    }
  }

  /// Leaves the last PGC open.
  void AudioTitles(const FilmView& film) {
    const int count = AudioTrackCount(project_.Tree, film.Number());
    const auto vob = [&](int track, QStringView chapters) {
      out_.Line(u"        <vob file=\"" + values_.Path(AudioTrackFile(settings_, film.Number(), track)) + u'"' +
                chapters + u"/>");
    };
    if (HasOneTitle(project_.Tree, film.Number())) {
      out_.Line(u"      <pgc>");
      TitlePre(film);
      for (int track = 1; track <= count; ++track) vob(track, {});
      return;
    }
    for (int track = 1; track <= count; ++track) {
      out_.Line(u"      <pgc>");
      out_.Line(kClearRequest);
      vob(track, u" chapters=\"00:00:00.00\"");
      if (track == count) break;
      out_.Line(u"        <post>jump title %1;</post>"_s.arg(track + 1));
      out_.Line(u"      </pgc>");
    }
  }

  void TitlePost(const FilmView& film, const MenuView& root) {
    const QString post = pieces_.FilmPost(film);
    if (!post.isEmpty()) {
      pieces_.Block(u"        <post>"_s, post, u"        </post>"_s);
    } else {
      out_.Line(QString(u"        <post>" + GeneratedPost(film, root) + u"</post>"));
    }
  }

  QString GeneratedPost(const FilmView& film, const MenuView& root) const {
    const bool leaves = settings_.PostGoMain || OnlyBack(root);
    const QString back = leaves ? u"call vmgm menu %1;"_s.arg(film.ReturnMenu()) : u"call menu;"_s;
    if (!chained_) return back;
    if (film.Number() >= project_.FilmCount) return settings_.NoMenus ? u"exit;"_s : u"call vmgm menu;"_s;
    const QString next =
        u"g1=1;g2=%1;call vmgm menu %2;}"_s.arg(film.Number() + 1).arg(settings_.NoMenus ? 1 : firstJumpPgc_);
    if (settings_.NoMenus || !playAll_) return u"{ " + next;
    return u" { if (g0 eq 1) {" + next + u" else " + back + u" } ";
  }

  void IntroTitleset() {
    out_.Line(u"<titleset>");
    out_.Line(u"    <menus>");
    if (settings_.CommentXML) out_.Line(u"      <!-- Titleset for First Play action (Intro) --> ");
    out_.Line(u"      <pgc entry=\"root\">");
    out_.Line(u"        <pre>  jump title 1 chapter 1; </pre>");
    out_.Line(u"        <vob file=\"" + EmptyMenuFile(values_, mode_) + u"\" />");
    out_.Line(u"      </pgc>");
    out_.Line(u"    </menus>");
    out_.Line(u"    <titles>");
    out_.Line(u"      <pgc>");
    pieces_.IntroVob();
    out_.Line(u"        <post>call vmgm menu;</post>");
    out_.Line(u"      </pgc>");
    out_.Line(u"    </titles>");
    out_.Line(u"  </titleset>");
  }

  /// The request to start the title is met, so that a later call of the menu stays there.
  static constexpr QStringView kClearRequest = u"       <pre> { g1=0; } </pre>";

  const Project& project_;
  const Settings& settings_;
  AuthorMode mode_;
  bool playAll_;
  bool chained_;  ///< titles follow each other, always or in a run through all
  int firstJumpPgc_ = 2;
  LineText out_;
  LineValues& values_;
  AuthorPieces pieces_;
};

}  // namespace

QByteArray WriteAuthorXmlTitlesets(const Project& project, AuthorMode mode, LineValues& values) {
  return TitlesetWriter(project, mode, values).Write();
}

}  // namespace torvane
