#include "compilers/author_pieces.h"

#include "compilers/video_batch.h"
#include "core/action_strings.h"
#include "core/text.h"
#include "core/timecode.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QStringView kLineBreak = u"\r\n";

QString MenuFile(LineValues& values, const MenuView& menu) {
  return values.Temp(values.Word(menu.Key(), menu.Key()) +
                     (menu.IsWide(values.InForce()) ? u"MenuL.mpg" : u"Menu.mpg"));
}

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

QString RootMenuFile(LineValues& values, const MenuView& menu, AuthorMode mode) {
  if (mode == AuthorMode::SyntaxCheck) return values.Temp(menu.Key() + u"test.mpg");
  return MenuFile(values, menu);
}

QString EmptyMenuFile(LineValues& values, AuthorMode mode) {
  return values.Temp(mode == AuthorMode::SyntaxCheck ? u"Emptytest.mpg"_s : u"EmptyBackg.mpg"_s);
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

QString AuthorPieces::Commands(const QString& key, Attribute attribute) {
  return values_.Commands(NodeView(project_.Tree, key).Text(attribute).value_or(QString()), key + attribute.Suffix);
}

QString AuthorPieces::Commands(const FilmView& film, Attribute attribute) {
  return values_.Commands(film.Text(attribute).value_or(QString()), FilmNodeKey(attribute, film.Number()));
}

void AuthorPieces::Buttons(const MenuView& menu, const QString& playAll) {
  const auto line = [this](const QString& name, const QString& action) {
    out_.Line(u"        <button name=\"" + name + u"\">" + action + u"</button>");
  };
  for (const ButtonView& button : menu.Buttons()) {
    if (!button.IsWritten()) continue;
    const QString action = Commands(button.Key(), element_node::Action);
    line(button.Key(), action == kPlayAllAction && !playAll.isEmpty() ? playAll : action);
  }
  const std::optional<ButtonView> autoButton = menu.AutoActionButton();
  if (!autoButton) return;
  const auto direction = [&](const QString& name, Attribute attribute) {
    line(name, Commands(autoButton->Key(), attribute));
  };
  direction(u"Actionleft"_s, element_node::ActionLeft);
  direction(u"Actionright"_s, element_node::ActionRight);
  direction(u"Actionup"_s, element_node::ActionUp);
  direction(u"Actiondown"_s, element_node::ActionDown);
}

void AuthorPieces::MainMenuPost() {
  const MenuView menu(project_.Tree, MainMenuKey());
  const QString post = IndentCommand(Commands(menu.Key(), menu_node::BackgroundPostAction), 12);
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
  const QString tags = values_.Attribute(film.Text(film_node::LanguageTags).value_or(QString()),
                                         FilmNodeKey(film_node::LanguageTags, film.Number()));
  for (int position = 0; position < 2 * kFilmStreams; ++position) {
    const QString code = tags.mid(qsizetype{3} * position, 2);
    if (code.trimmed().isEmpty()) continue;
    const QString element = position < kFilmStreams ? u"audio"_s : u"subpicture"_s;
    out_.Line(u"      <" + element + u" lang=\"" + code + u"\" />");
  }
}

void AuthorPieces::FilmPgc(const FilmView& film) {
  const bool hasPalette = film.Text(film_node::SubColors).has_value();
  out_.Line(hasPalette ? u"      <pgc palette=\"" + Own(film, u".pal") + u"\">" : u"      <pgc>"_s);
}

void AuthorPieces::FilmVob(const FilmView& film) {
  const int subtitles = film.SubtitleCount();
  const QString source = subtitles != 0    ? Own(film, u"_SUB%1.mpg"_s.arg(subtitles))
                         : film.NeedsMux() ? Own(film, u".mpg")
                                           : values_.Path(film.Video(), FilmNodeKey(film_node::Video, film.Number()));
  const bool adjust = film.Fps() == u"29.97" && project_.Settings.AdjNTSCtc;
  const QString stored = values_.Attribute(film.Chapters(), FilmNodeKey(film_node::Chapters, film.Number()));
  const QString chapters = adjust ? ConvertChapterList(stored) : stored;
  out_.Line(u"        <vob file=\"" + source + u"\" chapters=\"" + chapters + u"\"/>");
}

void AuthorPieces::IntroVob() {
  const Settings& settings = project_.Settings;
  const bool isProgramStream = settings.IntroMovie.endsWith(u".mpg", Qt::CaseInsensitive);
  const QString file = isProgramStream ? values_.Path(settings.IntroMovie, kIntroFileKey.toString())
                                       : values_.Temp(kIntroName.toString());
  out_.Line(u"        <vob file=\"" + file + u"\" chapters=\"00:00:00.00\"/>");
}

QString AuthorPieces::Own(const FilmView& film, QStringView ending) {
  return values_.Temp(film.Name(), ending, FilmNodeKey(film_node::Name, film.Number()));
}

void AuthorPieces::MenuVob(const MenuView& menu, const QString& file) {
  const Attribute pause = IsAdditionalMenu(menu.Key()) ? menu_node::Pause : menu_node::BackgroundPause;
  out_.Line(u"        <vob file=\"" + file + u"\" pause=\"" +
            values_.Attribute(menu.Pause(), MenuNodeKey(menu.Key(), pause)) + u"\"/>");
}

void AuthorPieces::WriteMenuPgc(const QString& menuKey, int number, bool playAll) {
  const MenuView menu(project_.Tree, menuKey);
  MenuComment(menu, number);
  const QString type = values_.Attribute(menu.Type(), MenuNodeKey(menuKey, menu_node::Type));
  if (type == u"SubMenu") {
    out_.Line(u"      <pgc>");
  } else {
    out_.Line(u"      <pgc entry=\"" + (type == u"Chapter(ptt)" ? u"ptt"_s : type) + u"\">");
  }
  MenuPre(menu, playAll && type == u"SubMenu");
  MenuVob(menu, MenuFile(values_, menu));
  Buttons(menu, {});
  MenuPost(menu, number);
  out_.Line(u"      </pgc>");
}

void AuthorPieces::MenuComment(const MenuView& menu, int number) {
  if (!project_.Settings.CommentXML) return;
  QString domain = u"vmgm"_s;
  if (!menu.Key().startsWith(u"MM")) {
    const ProjectNode* root = project_.Tree.Find(menu.Key());
    domain = u"titleset " + values_.Comment(root ? root->Tag().mid(2) : QString(), menu.Key());
  }
  out_.Line(u"      <!-- " + domain + u" menu " + QString::number(number) + u" (" +
            values_.Comment(menu.Name(), menu.Key()) + u") --> ");
}

void AuthorPieces::MenuPre(const MenuView& menu, bool playAll) {
  QString pre = Commands(menu.Key(), menu_node::PreCommand);
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
  const QString post = Commands(menu.Key(), menu_node::PostCommand);
  if (post.isEmpty()) {
    LoopPost(menu, u"g1=s8/1024; jump menu %1;"_s.arg(number));
  } else if (post.contains(kLineBreak)) {
    Block(u"        <post>"_s, IndentCommand(post, 10), u"        </post>"_s);
  } else {
    out_.Line(u"        <post>{ " + post + u" }</post>");
  }
}

}  // namespace torvane
