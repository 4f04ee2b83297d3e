#pragma once

#include <QByteArray>
#include <QString>

#include "core/film_view.h"
#include "core/line_text.h"
#include "core/line_values.h"
#include "core/menu_view.h"
#include "core/project.h"

namespace torvane {

/// Whether the control file is for a run or for the syntax check, in which the main menu's video need not exist.
enum class AuthorMode { Run, SyntaxCheck };

/// The text with every line indented. A text without line break that is shorter than two characters gives "", empty
/// lines vanish, and the result has no line break at its end.
QString IndentCommand(const QString& text, int indent);

/// Highlight value (count times 1024) of the button that acts at once in a switched menu; 0 without one.
int FindAutoActionButton(const MenuView& menu);

/// True when a button of the main menu plays all titles. Without menus there is no such button.
bool HasPlayAllButton(const Project& project);

/// The string that starts the chain through all titles, for the titleset form in use.
QString PlayAllAction(const Settings& settings);

/// Writes the parts of a dvdauthor control file that both of its forms share.
class AuthorPieces {
 public:
  AuthorPieces(const Project& project, LineText& out, LineValues& values)
      : project_(project), out_(out), values_(values) {}

  /// The video format line of the norm.
  void VideoFormat();
  /// The video element; on a 16:9 menu with its two subpicture streams.
  void WriteVideoElement(bool wide);
  /// One line per button that exists on the disc, then the pseudo buttons of an auto action button. `playAll` is what
  /// stands for the action "Play_all"; nothing is replaced when it is empty.
  void Buttons(const MenuView& menu, const QString& playAll);
  /// What follows the main menu: its own commands, or those of a looping menu.
  void MainMenuPost();
  /// What a looping menu without commands of its own does at its end. `repeat` is for players that lose the
  /// highlight when a menu jumps to its own cell.
  void LoopPost(const MenuView& menu, const QString& repeat);
  /// The PGC of a submenu, `number` being its number within its domain.
  void WriteMenuPgc(const QString& menuKey, int number, bool playAll);
  /// The languages of the film's streams.
  void Languages(const FilmView& film);
  /// The start of the film's PGC, with its palette.
  void FilmPgc(const FilmView& film);
  /// The film as the video batch leaves it, with its chapters.
  void FilmVob(const FilmView& film);
  void IntroVob();
  /// The line of a menu's film in a PGC, with the menu's pause.
  void MenuVob(const MenuView& menu, const QString& file);
  /// Commands that a node holds; "" without the node.
  QString Commands(const QString& key, Attribute attribute);
  /// The commands before and after a film.
  QString FilmPre(const FilmView& film) { return IndentCommand(Commands(film, film_node::PreAction), 12); }
  QString FilmPost(const FilmView& film) { return IndentCommand(Commands(film, film_node::PostAction), 14); }
  /// A start line, a text of any number of lines, and an end line.
  void Block(const QString& start, const QString& text, const QString& end);

 private:
  void MenuComment(const MenuView& menu, int number);
  void MenuPre(const MenuView& menu, bool playAll);
  void MenuPost(const MenuView& menu, int number);
  QString Commands(const FilmView& film, Attribute attribute);
  QString Own(const FilmView& film, QStringView ending);

  const Project& project_;
  LineText& out_;
  LineValues& values_;
};

/// Path of the multiplexed file of the main menu or of a titleset's root menu, which a control file names:
/// "{Temp}\MMMenu.mpg", "MMMenuL.mpg" on a 16:9 menu; "{Temp}\MMtest.mpg" for the syntax check.
QString RootMenuFile(LineValues& values, const MenuView& menu, AuthorMode mode);

/// "{Temp}\EmptyBackg.mpg", the menu video that nobody sees.
QString EmptyMenuFile(LineValues& values, AuthorMode mode);

}  // namespace torvane
