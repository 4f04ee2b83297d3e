#include "compilers/author_xml.h"

#include "core/film_view.h"
#include "core/text.h"
#include "core/timecode.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString Number(int value) { return QString::number(value); }

/// Writes the one control file; its members are the blocks of the file in their order.
class SingleWriter {
 public:
  SingleWriter(const Project& project, AuthorMode mode)
      : project_(project),
        settings_(project.Settings),
        mode_(mode),
        playAll_(HasPlayAllButton(project)),
        pieces_(project, out_) {}

  QByteArray Write() {
    out_.Line(u"<?xml version=\"1.0\" encoding=\"utf-8\"?>");
    out_.Line(u"<dvdauthor dest=\"" + settings_.OutDir + u"\\DVD\">");
    out_.Line(u"<vmgm>");
    if (settings_.UseIntro && settings_.CommentXML) out_.Line(u"      <!-- First Play action (Intro) --> ");
    if (settings_.UseIntro) out_.Line(u"      <fpc> jump title " + Number(project_.FilmCount + 1) + u"; </fpc>");
    if (!settings_.NoMenus) VmgmMenus();
    out_.Line(u"</vmgm>");
    out_.Line(u"<titleset>");
    if (!settings_.NoMenus) DummyMenu();
    out_.Line(u"    <titles>");
    Languages();
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
    pieces_.VideoElement(settings_.DefMenuRatio);
    out_.Line(u"      <pgc>");
    MainMenuPre(menu);
    const QString file = mode_ == AuthorMode::SyntaxCheck
                             ? settings_.TempDir + u"\\MMtest.mpg"
                             : MenuFile(settings_, MainMenuKey(), settings_.DefMenuRatio);
    out_.Line(u"        <vob file=\"" + file + u"\" pause=\"" + menu.Pause() + u"\"/>");
    pieces_.Buttons(menu, PlayAllAction(settings_));
    MainMenuPost(menu);
    out_.Line(u"      </pgc>");
    int number = 2;
    for (const QString& key : menu.SubMenuKeys()) pieces_.MenuPgc(key, number++, playAll_);
    out_.Line(u"    </menus>");
  }

  void MainMenuPre(const MenuView& menu) {
    const QString pre = IndentCommand(menu.Text(menu_node::BackgroundPreAction).value_or(QString()), 12);
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

  void MainMenuPost(const MenuView& menu) {
    const QString post = IndentCommand(menu.Text(menu_node::BackgroundPostAction).value_or(QString()), 12);
    if (!post.isEmpty()) {
      pieces_.Block(u"        <post>"_s, post, u"        </post>"_s);
    } else if (menu.LoopState() == u"0") {
      out_.Line(settings_.LoopSyntax ? u"        <post>g1=s8/1024; jump menu 1;</post>"
                                     : u"        <post>jump cell 1;</post>");
    }
  }

  /// It returns to the main menu at once and so never shows.
  void DummyMenu() {
    out_.Line(u"    <menus>");
    pieces_.VideoFormat();
    out_.Line(u"      <pgc>");
    out_.Line(u"        <pre>jump vmgm menu 1;</pre>");
    out_.Line(u"        <vob file=\"" + EmptyMenuFile(settings_, mode_) + u"\" />");
    out_.Line(u"        <post>jump vmgm menu 1;</post>");
    out_.Line(u"      </pgc>");
    out_.Line(u"    </menus>");
  }

  void Languages() {
    const QString tags = FilmView(project_.Tree, 1).Text(film_node::LanguageTags).value_or(QString());
    for (int position = 0; position < 2 * kFilmStreams; ++position) {
      const QString code = tags.mid(3 * position, 2);
      if (code.trimmed().isEmpty()) continue;
      const QString element = position < kFilmStreams ? u"audio"_s : u"subpicture"_s;
      out_.Line(u"      <" + element + u" lang=\"" + code + u"\" />");
    }
  }

  void Film(const FilmView& film) {
    const bool hasPalette = film.Text(film_node::SubColors).has_value();
    out_.Line(hasPalette ? u"      <pgc palette=\"" + Stem(film) + u".pal\">" : u"      <pgc>"_s);
    const QString pre = IndentCommand(film.Text(film_node::PreAction).value_or(QString()), 12);
    if (!pre.isEmpty()) {
      pieces_.Block(u"      <pre>"_s, pre, u"      </pre>"_s);
    } else if (film.StartsWithSubtitle()) {
      out_.Line(u"      <pre> subtitle=64; </pre>");
    }
    out_.Line(u"        <vob file=\"" + Source(film) + u"\" chapters=\"" + Chapters(film) + u"\"/>");
    const QString post = IndentCommand(film.Text(film_node::PostAction).value_or(QString()), 14);
    if (!post.isEmpty()) {
      pieces_.Block(u"        <post>"_s, post, u"        </post>"_s);
    } else {
      out_.Line(GeneratedPost(film));
    }
    out_.Line(u"      </pgc>");
  }

  QString Stem(const FilmView& film) const { return settings_.TempDir + u'\\' + film.Name(); }

  QString Source(const FilmView& film) const {
    if (const int count = film.SubtitleCount()) return Stem(film) + u"_SUB" + Number(count) + u".mpg";
    return film.NeedsMux() ? Stem(film) + u".mpg" : film.Video();
  }

  QString Chapters(const FilmView& film) const {
    const bool adjust = film.Fps() == u"29.97" && settings_.AdjNTSCtc;
    return adjust ? ConvertChapterList(film.Chapters()) : film.Chapters();
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
    const bool isProgramStream = settings_.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive);
    const QString file = isProgramStream ? settings_.IntroMovie : settings_.TempDir + u"\\intro.mpg";
    out_.Line(u"        <vob file=\"" + file + u"\" chapters=\"00:00:00.00\"/>");
    out_.Line(settings_.NoMenus ? u"        <post>jump title 1;</post>" : u"        <post>call vmgm menu;</post>");
    out_.Line(u"      </pgc>");
  }

  const Project& project_;
  const Settings& settings_;
  AuthorMode mode_;
  bool playAll_;
  LineText out_;
  AuthorPieces pieces_;
};

}  // namespace

QByteArray WriteAuthorXmlSingle(const Project& project, AuthorMode mode) { return SingleWriter(project, mode).Write(); }

QString AuthorLogText(const Project& project) {
  QString log = u"Project: " + project.ProjectFile + u"\r\nOutput: " + project.Settings.OutDir + u"\\DVD\r\n";
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView film(project.Tree, i);
    log += u"Film #" + Number(i) + u": " + film.Name() + u"  Video: " + film.Video() + u"\r\n";
  }
  return log;
}

}  // namespace torvane
