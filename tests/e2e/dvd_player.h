#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <memory>
#include <ostream>
#include <vector>

typedef struct dvdnav_s dvdnav_t;

namespace torvane::test {

/// Seconds by which a chapter or a film's end may miss what the project says.
inline constexpr double tolerance = 0.5;

/// Where a player stands on a disc.
struct DiscPlace {
  enum class Domain { FirstPlay, VmgmMenu, TitlesetMenu, Title, Stopped };

  Domain domain = Domain::Stopped;
  /// Title of the disc from 1, 0 outside titles.
  int title = 0;
  /// In a title the chapter, in a menu the number of the program chain, each from 1. In the main menu it is 0 as long
  /// as no titleset has been opened, since the library cannot tell before.
  int number = 0;

  static DiscPlace Menu(int number) { return {Domain::VmgmMenu, 0, number}; }
  static DiscPlace Chapter(int title, int number) { return {Domain::Title, title, number}; }

  bool operator==(const DiscPlace&) const = default;
};

std::ostream& operator<<(std::ostream& out, const DiscPlace& place);

/// A button as the disc's highlight information gives it: pixels of the menu picture, all four edges belong to it.
struct DiscButton {
  std::array<int, 4> edges = {};  ///< left, top, right, bottom
  /// Numbers of the buttons that the arrow keys left, right, up and down lead to.
  std::array<int, 4> neighbours = {};

  bool operator==(const DiscButton&) const = default;
};

/// What a player met between the start of a title and the moment it left it.
struct PlayedTitle {
  int title = 0;
  /// Start of each chapter in seconds from the start of the title, by the presentation times of the units before it.
  std::vector<double> chapterStarts;
  /// The first blocks of each chapter that carry its pictures, as a program stream.
  std::vector<QByteArray> chapterVideo;
  /// Presentation time of all units together, in seconds.
  double seconds = 0;
  /// Blocks read that carry pictures, and sound of the first track.
  int videoBlocks = 0;
  int soundBlocks = 0;
  /// Where the title's end led.
  DiscPlace next;
};

/// A DVD player without screen and loudspeaker: libdvdnav runs the disc's navigation commands, this class presses the
/// buttons and notes what comes. Every walk has a limit, so that a disc that runs in a circle ends a test, not a day.
class DvdPlayer {
 public:
  /// Opens a folder that holds VIDEO_TS, or an ISO image. Null when the library takes it for no disc.
  static std::unique_ptr<DvdPlayer> Open(const QString& path);

  ~DvdPlayer();
  DvdPlayer(const DvdPlayer&) = delete;
  DvdPlayer& operator=(const DvdPlayer&) = delete;

  DiscPlace Place() const;

  /// Height of the pictures in the domain the player stands in: 576 or 480 lines.
  int VideoHeight() const;

  /// Number of titles that the disc announces.
  int TitleCount() const;

  /// Ends of a title's chapters in seconds, as the tables of the disc tell a player.
  std::vector<double> ChapterEnds(int title) const;

  /// Goes on until the disc waits at a menu with buttons, a title has begun to play, or the disc has stopped.
  DiscPlace Settle();

  /// The buttons of the menu the disc waits at, in the disc's own order. A 16:9 menu has a second group for letterbox.
  std::vector<DiscButton> Buttons(int group = 0) const;

  /// Number of button groups of that menu.
  int ButtonGroups() const;

  /// The button that is lit, from 1; 0 when none is.
  int LitButton() const;

  /// True when lighting the button changes the picture, that is, when its colours are not all transparent.
  bool IsVisibleWhenLit(int button) const;

  /// The arrow key down.
  void PressDown();

  /// Lights the button, presses it and settles.
  DiscPlace Press(int button, int group = 0);

  /// The player's "title menu" key.
  DiscPlace PressMenuKey();

  /// While a title plays: jumps to a chapter, as the number keys of a remote control do, and settles. (From a menu the
  /// library keeps waiting at the still picture that was left.)
  DiscPlace GoTo(int title, int chapter);

  /// Plays every block of the current title from where it stands, through all its chapters, until it is left.
  PlayedTitle PlayToEnd();

  /// What the library had to say about broken data: errors and warnings, oldest first.
  QStringList Complaints() const { return complaints_; }

 private:
  enum class Event { Block, Navigation, Still, Failure, Other };

  DvdPlayer() = default;
  Event Next();

  dvdnav_t* dvd_ = nullptr;
  QStringList complaints_;
  std::vector<std::uint8_t> block_ = std::vector<std::uint8_t>(2048);
  bool stopped_ = false;
};

}  // namespace torvane::test
