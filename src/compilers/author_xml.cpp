#include "compilers/author_xml.h"

#include "core/film_view.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString Number(int value) { return QString::number(value); }

/// Writes the one control file; its members are the blocks of the file in their order.
class SingleWriter {
 public:
  SingleWriter(const Project& project, AuthorMode mode, LineValues& values)
      : project_(project),
        settings_(project.Settings),
        mode_(mode),
        playAll_(HasPlayAllButton(project)),
        values_(values),
        pieces_(project, out_, values) {}

  QByteArray Write() {
    out_.Line(u"<?xml version=\"1.0\" encoding=\"utf-8\"?>");
    out_.Line(u"<dvdauthor dest=\"" + values_.Path(settings_.OutDir + u"\\DVD") + u"\">");
    out_.Line(u"<vmgm>");
    if (settings_.UseIntro && settings_.CommentXML) out_.Line(u"      <!-- First Play action (Intro) --> ");
    if (settings_.UseIntro) out_.Line(u"      <fpc> jump title " + Number(project_.FilmCount + 1) + u"; </fpc>");
    if (!settings_.NoMenus) VmgmMenus();
    out_.Line(u"</vmgm>");
    out_.Line(u"<titleset>");
    if (!settings_.NoMenus) DummyMenu();
    out_.Line(u"    <titles>");
    pieces_.Languages(FilmView(project_.Tree, 1));
    for (int film = 1; film <= project_.FilmCount; ++film) Film(FilmView(project_.Tree, film));
    if (settings_.UseIntro) Intro();
    out_.Line(u"    </titles>");
    out_.Line(u"  </titleset>");
    out_.Line(u"</dvdauthor>");
    return out_.Bytes();
  }

 private:
  void VmgmMenus() {
    const MenuView menu(project_.Tree, MainMenuKey());
    out_.Line(u"    <menus>");
    if (settings_.CommentXML) out_.Line(u"      <!-- vmgm menu 1 (MainMenu) --> ");
    pieces_.WriteVideoElement(settings_.DefMenuRatio);
    out_.Line(u"      <pgc>");
    MainMenuPre(menu);
    pieces_.MenuVob(menu, RootMenuFile(values_, menu, mode_));
    pieces_.Buttons(menu, PlayAllAction(settings_));
    pieces_.MainMenuPost();
    out_.Line(u"      </pgc>");
    int number = 2;
    for (const QString& key : menu.SubMenuKeys()) pieces_.WriteMenuPgc(key, number++, playAll_);
    out_.Line(u"    </menus>");
  }

  void MainMenuPre(const MenuView& menu) {
    const QString pre = IndentCommand(pieces_.Commands(menu.Key(), menu_node::BackgroundPreAction), 12);
    if (!pre.isEmpty()) {
      out_.Line(u"      <pre>");
      out_.Line(pre + u"      </pre>");
      return;
    }
    QString line = u"      <pre> { "_s;
    if (playAll_) line += u"g0=0;";
    if (const int highlight = FindAutoActionButton(menu)) {
      line += u" button=" + Number(highlight) + u";} </pre>";
    } else {
      line += u" if (g1 eq 0) { button = 1024;} else  { button = g1*1024;} } </pre>";
    }
    out_.Line(line);
  }

  /// It returns to the main menu at once and so never shows.
  void DummyMenu() {
    out_.Line(u"    <menus>");
    pieces_.VideoFormat();
    out_.Line(u"      <pgc>");
    out_.Line(u"        <pre>jump vmgm menu 1;</pre>");
    out_.Line(u"        <vob file=\"" + EmptyMenuFile(values_, mode_) + u"\" />");
    out_.Line(u"        <post>jump vmgm menu 1;</post>");
    out_.Line(u"      </pgc>");
    out_.Line(u"    </menus>");
  }

  void Film(const FilmView& film) {
    pieces_.FilmPgc(film);
    const QString pre = pieces_.FilmPre(film);
    if (!pre.isEmpty()) {
      pieces_.Block(u"      <pre>"_s, pre, u"      </pre>"_s);
    } else if (film.StartsWithSubtitle()) {
      out_.Line(u"      <pre> subtitle=64; </pre>");
    }
    pieces_.FilmVob(film);
    const QString post = pieces_.FilmPost(film);
    if (!post.isEmpty()) {
      pieces_.Block(u"        <post>"_s, post, u"        </post>"_s);
    } else {
      out_.Line(GeneratedPost(film));
    }
    out_.Line(u"      </pgc>");
  }

  QString GeneratedPost(const FilmView& film) const {
    const QString next = Number(film.Number() + 1);
    const QString menu = u"call vmgm menu " + Number(film.ReturnMenu()) + u';';
    if (!settings_.GoNextTitle && !playAll_) return u"        <post>" + menu + u"</post>";
    if (film.Number() == project_.FilmCount) {
      return settings_.NoMenus ? u"        <post>exit;</post>"_s : u"        <post>call vmgm menu 1;</post>"_s;
    }
    if (!playAll_) return u"        <post>jump title " + next + u";</post>";
    return u"        <post> { if (g0 eq 1) jump title " + next + u"; else " + menu + u" } </post>";
  }

  void Intro() {
    out_.Line(u"      <pgc>");
    pieces_.IntroVob();
    out_.Line(settings_.NoMenus ? u"        <post>jump title 1;</post>" : u"        <post>call vmgm menu;</post>");
    out_.Line(u"      </pgc>");
  }

  const Project& project_;
  const Settings& settings_;
  AuthorMode mode_;
  bool playAll_;
  LineText out_;
  LineValues& values_;
  AuthorPieces pieces_;
};

}  // namespace

QByteArray WriteAuthorXmlSingle(const Project& project, AuthorMode mode, LineValues& values) {
  return SingleWriter(project, mode, values).Write();
}

QString AuthorLogText(const Project& project) {
  QString log = u"Project: " + project.ProjectFile + u"\r\nOutput: " + project.Settings.OutDir + u"\\DVD\r\n";
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView film(project.Tree, i);
    const QString what = film.IsAudioTitleSet() ? kAudioTitleSetMark.toString() : QString(u"Video: " + film.Video());
    log += u"Film #" + Number(i) + u": " + film.Name() + u"  " + what + u"\r\n";
  }
  return log;
}

}  // namespace torvane
