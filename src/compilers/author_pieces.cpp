#include "compilers/author_pieces.h"

#include "core/action_strings.h"
#include "core/text.h"
#include "core/timecode.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QStringView kLineBreak = u"\r\n";

}  // namespace

QString IndentCommand(const QString& text, int indent) {
  const QString blanks(indent, u' ');
  if (!text.contains(kLineBreak)) return text.size() < 2 ? QString() : blanks + text;

  QStringList lines;
  const QStringList pieces = text.split(kLineBreak.toString());
  for (qsizetype i = 0; i < pieces.size(); ++i) {
    // What is left behind the last line break counts as a line from two characters on.
    const qsizetype shortest = i + 1 == pieces.size() ? 2 : 1;
    if (pieces[i].size() >= shortest) lines << blanks + pieces[i];
  }
  return lines.join(kLineBreak);
}

int FindAutoActionButton(const MenuView& menu) {
  const std::optional<ButtonView> autoButton = menu.AutoActionButton();
  if (!autoButton) return 0;
  int count = 0;
  for (const ButtonView& button : menu.Buttons()) {
    if (button.IsWritten() && button.Tag(element_node::Action).isEmpty()) ++count;
    if (button.Key() == autoButton->Key()) break;
  }
  return count * 1024;
}

bool HasPlayAllButton(const Project& project) {
  if (project.Settings.NoMenus) return false;
  for (const ButtonView& button : MenuView(project.Tree, MainMenuKey()).Buttons()) {
    if (button.Action() == kPlayAllAction) return true;
  }
  return false;
}

QString PlayAllAction(const Settings& settings) {
  return settings.NoTitleSets ? u"g0=1;jump title 1;"_s : u"g0=1;g1=1;jump titleset 1 menu;"_s;
}

QString MenuFile(const Settings& settings, const QString& menuKey, bool wide) {
  return settings.TempDir + u'\\' + menuKey + (wide ? u"MenuL.mpg" : u"Menu.mpg");
}

QString RootMenuFile(const Settings& settings, const MenuView& menu, AuthorMode mode) {
  if (mode == AuthorMode::SyntaxCheck) return settings.TempDir + u'\\' + menu.Key() + u"test.mpg";
  return MenuFile(settings, menu.Key(), menu.IsWide(settings));
}

QString EmptyMenuFile(const Settings& settings, AuthorMode mode) {
  return settings.TempDir + (mode == AuthorMode::SyntaxCheck ? u"\\Emptytest.mpg" : u"\\EmptyBackg.mpg");
}

void AuthorPieces::VideoFormat() {
  out_.Line(project_.Settings.VideoNormPal ? u"    <video format=\"pal\"></video>"
                                           : u"    <video format=\"ntsc\"></video>");
}

void AuthorPieces::WriteVideoElement(bool wide) {
  VideoFormat();
  if (!wide) return;
  out_.Line(u"      <subpicture>");
  out_.Line(u"        <stream id=\"0\" mode=\"widescreen\" />");
  out_.Line(u"        <stream id=\"1\" mode=\"letterbox\" />");
  out_.Line(u"      </subpicture>");
}

void AuthorPieces::Block(const QString& start, const QString& text, const QString& end) {
  out_.Line(start);
  out_.Line(text);
  out_.Line(end);
}

void AuthorPieces::Buttons(const MenuView& menu, const QString& playAll) {
  const auto line = [this](const QString& name, const QString& action) {
    out_.Line(u"        <button name=\"" + name + u"\">" + action + u"</button>");
  };
  for (const ButtonView& button : menu.Buttons()) {
    if (!button.IsWritten()) continue;
    const QString action = button.Action().value_or(QString());
    line(button.Key(), action == kPlayAllAction && !playAll.isEmpty() ? playAll : action);
  }
  const std::optional<ButtonView> autoButton = menu.AutoActionButton();
  if (!autoButton) return;
  const auto direction = [&](const QString& name, Attribute attribute) {
    line(name, autoButton->Text(attribute).value_or(QString()));
  };
  direction(u"Actionleft"_s, element_node::ActionLeft);
  direction(u"Actionright"_s, element_node::ActionRight);
  direction(u"Actionup"_s, element_node::ActionUp);
  direction(u"Actiondown"_s, element_node::ActionDown);
}

void AuthorPieces::MainMenuPost() {
  const MenuView menu(project_.Tree, MainMenuKey());
  const QString post = IndentCommand(menu.Text(menu_node::BackgroundPostAction).value_or(QString()), 12);
  if (!post.isEmpty()) {
    Block(u"        <post>"_s, post, u"        </post>"_s);
  } else {
    LoopPost(menu, u"g1=s8/1024; jump menu 1;"_s);
  }
}

void AuthorPieces::LoopPost(const MenuView& menu, const QString& repeat) {
  if (menu.LoopState() != u"0") return;
  out_.Line(u"        <post>" + (project_.Settings.LoopSyntax ? repeat : u"jump cell 1;"_s) + u"</post>");
}

void AuthorPieces::Languages(const FilmView& film) {
  const QString tags = film.Text(film_node::LanguageTags).value_or(QString());
  for (int position = 0; position < 2 * kFilmStreams; ++position) {
    const QString code = tags.mid(3 * position, 2);
    if (code.trimmed().isEmpty()) continue;
    const QString element = position < kFilmStreams ? u"audio"_s : u"subpicture"_s;
    out_.Line(u"      <" + element + u" lang=\"" + code + u"\" />");
  }
}

void AuthorPieces::FilmPgc(const FilmView& film) {
  const bool hasPalette = film.Text(film_node::SubColors).has_value();
  out_.Line(hasPalette ? u"      <pgc palette=\"" + Stem(film) + u".pal\">" : u"      <pgc>"_s);
}

void AuthorPieces::FilmVob(const FilmView& film) {
  QString source = film.NeedsMux() ? QString(Stem(film) + u".mpg") : film.Video();
  if (const int count = film.SubtitleCount()) source = Stem(film) + u"_SUB%1.mpg"_s.arg(count);
  const bool adjust = film.Fps() == u"29.97" && project_.Settings.AdjNTSCtc;
  const QString chapters = adjust ? ConvertChapterList(film.Chapters()) : film.Chapters();
  out_.Line(u"        <vob file=\"" + source + u"\" chapters=\"" + chapters + u"\"/>");
}

void AuthorPieces::IntroVob() {
  const Settings& settings = project_.Settings;
  const bool isProgramStream = settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive);
  const QString file = isProgramStream ? settings.IntroMovie : settings.TempDir + u"\\intro.mpg";
  out_.Line(u"        <vob file=\"" + file + u"\" chapters=\"00:00:00.00\"/>");
}

QString AuthorPieces::Stem(const FilmView& film) const {
  return project_.Settings.TempDir + u'\\' + film.Name();
}

void AuthorPieces::WriteMenuPgc(const QString& menuKey, int number, bool playAll) {
  const MenuView menu(project_.Tree, menuKey);
  MenuComment(menu, number);
  const QString type = menu.Type();
  if (type == u"SubMenu") {
    out_.Line(u"      <pgc>");
  } else {
    out_.Line(u"      <pgc entry=\"" + (type == u"Chapter(ptt)" ? u"ptt"_s : type) + u"\">");
  }
  MenuPre(menu, playAll && type == u"SubMenu");
  out_.Line(u"        <vob file=\"" + MenuFile(project_.Settings, menuKey, menu.IsWide(project_.Settings)) +
            u"\" pause=\"" + menu.Pause() + u"\"/>");
  Buttons(menu, {});
  MenuPost(menu, number);
  out_.Line(u"      </pgc>");
}

void AuthorPieces::MenuComment(const MenuView& menu, int number) {
  if (!project_.Settings.CommentXML) return;
  QString domain = u"vmgm"_s;
  if (!menu.Key().startsWith(u"MM")) {
    const ProjectNode* root = project_.Tree.Find(menu.Key());
    domain = u"titleset " + (root ? root->Tag().mid(2) : QString());
  }
  out_.Line(u"      <!-- " + domain + u" menu " + QString::number(number) + u" (" + menu.Name() + u") --> ");
}

void AuthorPieces::MenuPre(const MenuView& menu, bool playAll) {
  QString pre = menu.Text(menu_node::PreCommand).value_or(QString());
  if (playAll) pre.prepend(u"g0=0; ");
  if (const int highlight = FindAutoActionButton(menu)) {
    constexpr QStringView kFirstButton = u"button=1024;";
    const qsizetype at = pre.indexOf(kFirstButton);
    if (at >= 0) pre.remove(at, kFirstButton.size());
    pre += u" button=" + QString::number(highlight) + u';';
  }
  if (pre.contains(kLineBreak)) {
    Block(u"        <pre>"_s, IndentCommand(pre, 10), u"        </pre>"_s);
  } else if (!pre.isEmpty()) {
    out_.Line(u"        <pre> { " + pre + u" } </pre>");
  }
}

void AuthorPieces::MenuPost(const MenuView& menu, int number) {
  const QString post = menu.Text(menu_node::PostCommand).value_or(QString());
  if (post.isEmpty()) {
    LoopPost(menu, u"g1=s8/1024; jump menu %1;"_s.arg(number));
  } else if (post.contains(kLineBreak)) {
    Block(u"        <post>"_s, IndentCommand(post, 10), u"        </post>"_s);
  } else {
    out_.Line(u"        <post>{ " + post + u" }</post>");
  }
}

}  // namespace torvane
