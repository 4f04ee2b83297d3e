#include "dvd_player.h"

#include <QFile>
#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

extern "C" {
#include <dvdnav/dvdnav.h>
}

namespace torvane::test {
namespace {

/// Ticks of the presentation clock in one second. ISO/IEC 13818-1, 2.5.2.3.
constexpr double ticksPerSecond = 90000.0;

/// Bytes that hold the first picture of any film.
constexpr qsizetype enoughVideo = 500'000;

/// Blocks and events after which a walk is given up: far more than any disc of these tests holds.
constexpr int walkLimit = 2'000'000;

/// Names of the domains in their order.
constexpr const char* domainNames[] = {"first play", "main menu chain", "titleset menu chain", "title", "stopped"};

enum class Payload { Video, Sound, Other };

/// What the first packet of a block carries. The packet header follows the pack header of 14 bytes; a private stream
/// names its kind in the first byte behind its own header, 0x80 for the first AC-3 track.
Payload PayloadOf(const std::vector<std::uint8_t>& block) {
  constexpr std::size_t packet = 14;
  switch (block[packet + 3]) {
    case 0xe0:
      return Payload::Video;
    case 0xbd:
      return block[packet + 9 + block[packet + 8]] == 0x80 ? Payload::Sound : Payload::Other;
    case 0xc0:
      return Payload::Sound;
    default:
      return Payload::Other;
  }
}

/// The groups of a menu share the places of its buttons.
int FirstOfGroup(const pci_t& pci, int group) {
  constexpr int places = 36;
  return places / std::max<int>(pci.hli.hl_gi.btngr_ns, 1) * group;
}

void Collect(void* list, dvdnav_logger_level_t level, const char* format, va_list arguments) {
  if (level != DVDNAV_LOGGER_LEVEL_ERROR && level != DVDNAV_LOGGER_LEVEL_WARN) return;
  char text[512];
  std::vsnprintf(text, sizeof text, format, arguments);
  static_cast<QStringList*>(list)->append(QString::fromUtf8(text));
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const DiscPlace& place) {
  out << domainNames[int(place.domain)];
  if (place.title != 0) out << ' ' << place.title << " chapter";
  return out << ' ' << place.number;
}

std::unique_ptr<DvdPlayer> DvdPlayer::Open(const QString& path) {
  std::unique_ptr<DvdPlayer> player(new DvdPlayer);
  dvdnav_logger_cb logger{&Collect};
  if (dvdnav_open2(&player->dvd_, &player->complaints_, &logger, QFile::encodeName(path).constData()) !=
      DVDNAV_STATUS_OK) {
    return nullptr;
  }
  dvdnav_set_readahead_flag(player->dvd_, 0);
  dvdnav_set_PGC_positioning_flag(player->dvd_, 1);
  return player;
}

DvdPlayer::~DvdPlayer() {
  if (dvd_ != nullptr) dvdnav_close(dvd_);
}

DiscPlace DvdPlayer::Place() const {
  DiscPlace place;
  if (stopped_) return place;
  if (dvdnav_is_domain_fp(dvd_)) {
    place.domain = DiscPlace::Domain::FirstPlay;
  } else if (dvdnav_is_domain_vts(dvd_)) {
    place.domain = DiscPlace::Domain::Title;
    dvdnav_current_title_info(dvd_, &place.title, &place.number);
  } else {
    place.domain = dvdnav_is_domain_vmgm(dvd_) ? DiscPlace::Domain::VmgmMenu : DiscPlace::Domain::TitlesetMenu;
    int program = 0;
    dvdnav_current_title_program(dvd_, &place.title, &place.number, &program);
  }
  return place;
}

int DvdPlayer::VideoHeight() const {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  dvdnav_get_video_resolution(dvd_, &width, &height);
  return int(height);
}

int DvdPlayer::TitleCount() const {
  std::int32_t count = 0;
  dvdnav_get_number_of_titles(dvd_, &count);
  return count;
}

DvdPlayer::Event DvdPlayer::Next() {
  std::int32_t event = 0;
  std::int32_t length = 0;
  if (dvdnav_get_next_block(dvd_, block_.data(), &event, &length) != DVDNAV_STATUS_OK) {
    complaints_.append(QString::fromUtf8(dvdnav_err_to_string(dvd_)));
    return Event::Failure;
  }
  switch (event) {
    case DVDNAV_BLOCK_OK:
      return Event::Block;
    case DVDNAV_NAV_PACKET:
      return Event::Navigation;
    case DVDNAV_STILL_FRAME:
      return Event::Still;
    case DVDNAV_WAIT:
      dvdnav_wait_skip(dvd_);
      break;
    case DVDNAV_STOP:
      stopped_ = true;
      break;
    default:
      break;
  }
  return Event::Other;
}

DiscPlace DvdPlayer::Settle() {
  for (int step = 0; step < walkLimit && !stopped_; ++step) {
    const Event event = Next();
    if (event == Event::Failure) break;
    if (event == Event::Navigation && Place().domain == DiscPlace::Domain::Title) break;
    if (event != Event::Still) continue;
    if (!Buttons().empty()) break;
    dvdnav_still_skip(dvd_);
  }
  return Place();
}

std::vector<double> DvdPlayer::ChapterEnds(int title) const {
  std::uint64_t* ends = nullptr;
  std::uint64_t duration = 0;
  const std::uint32_t count = dvdnav_describe_title_chapters(dvd_, title, &ends, &duration);
  std::vector<double> seconds;
  for (std::uint32_t i = 0; i < count; ++i) seconds.push_back(double(ends[i]) / ticksPerSecond);
  std::free(ends);
  return seconds;
}

int DvdPlayer::ButtonGroups() const {
  return dvdnav_get_current_nav_pci(dvd_)->hli.hl_gi.btngr_ns;
}

std::vector<DiscButton> DvdPlayer::Buttons(int group) const {
  std::vector<DiscButton> buttons;
  const pci_t* pci = dvdnav_get_current_nav_pci(dvd_);
  if (pci == nullptr || pci->hli.hl_gi.hli_ss == 0 || group >= pci->hli.hl_gi.btngr_ns) return buttons;
  for (int i = 0; i < pci->hli.hl_gi.btn_ns; ++i) {
    const btni_t& button = pci->hli.btnit[FirstOfGroup(*pci, group) + i];
    buttons.push_back({{int(button.x_start), int(button.y_start), int(button.x_end), int(button.y_end)},
                       {int(button.left), int(button.right), int(button.up), int(button.down)}});
  }
  return buttons;
}

int DvdPlayer::LitButton() const {
  std::int32_t button = 0;
  dvdnav_get_current_highlight(dvd_, &button);
  return button;
}

bool DvdPlayer::IsVisibleWhenLit(int button) const {
  dvdnav_highlight_area_t area{};
  constexpr int selected = 0;
  if (dvdnav_get_highlight_area(dvdnav_get_current_nav_pci(dvd_), button, selected, &area) != DVDNAV_STATUS_OK) {
    return false;
  }
  // The low 16 bits are the contrasts of the four colours, four bits each.
  return (area.palette & 0xffff) != 0;
}

void DvdPlayer::PressDown() {
  dvdnav_lower_button_select(dvd_, dvdnav_get_current_nav_pci(dvd_));
}

DiscPlace DvdPlayer::Press(int button, int group) {
  pci_t* pci = dvdnav_get_current_nav_pci(dvd_);
  dvdnav_button_select(dvd_, pci, button);
  vm_cmd_t* command = &pci->hli.btnit[FirstOfGroup(*pci, group) + button - 1].cmd;
  if (dvdnav_button_activate_cmd(dvd_, button, command) != DVDNAV_STATUS_OK) {
    complaints_.append(QString::fromUtf8(dvdnav_err_to_string(dvd_)));
    return Place();
  }
  return Settle();
}

DiscPlace DvdPlayer::PressMenuKey() {
  dvdnav_menu_call(dvd_, DVD_MENU_Title);
  return Settle();
}

DiscPlace DvdPlayer::GoTo(int title, int chapter) {
  if (dvdnav_part_play(dvd_, title, chapter) != DVDNAV_STATUS_OK) {
    complaints_.append(QString::fromUtf8(dvdnav_err_to_string(dvd_)));
    return Place();
  }
  return Settle();
}

PlayedTitle DvdPlayer::PlayToEnd() {
  PlayedTitle played;
  played.title = Place().title;
  int lastChapter = 0;
  // The navigation packet at which the walk to this place ended belongs to the title as well.
  Event event = Event::Navigation;
  for (int step = 0; step < walkLimit && event != Event::Failure && !stopped_; ++step) {
    const DiscPlace place = Place();
    if (place.domain != DiscPlace::Domain::Title || place.title != played.title) break;
    if (event == Event::Navigation) {
      const pci_gi_t& times = dvdnav_get_current_nav_pci(dvd_)->pci_gi;
      if (place.number != lastChapter) {
        lastChapter = place.number;
        played.chapterStarts.push_back(played.seconds);
        played.chapterVideo.emplace_back();
      }
      // Times of two films in one title have nothing to do with each other, but the length of each unit counts.
      played.seconds += (times.vobu_e_ptm - times.vobu_s_ptm) / ticksPerSecond;
    }
    if (event == Event::Block) {
      const Payload payload = PayloadOf(block_);
      if (payload == Payload::Video) {
        ++played.videoBlocks;
        QByteArray& video = played.chapterVideo.back();
        if (video.size() < enoughVideo)
          video.append(reinterpret_cast<const char*>(block_.data()), qsizetype(block_.size()));
      }
      if (payload == Payload::Sound) ++played.soundBlocks;
    }
    event = Next();
    if (event == Event::Still) dvdnav_still_skip(dvd_);
  }
  played.next = Place();
  return played;
}

}  // namespace torvane::test
