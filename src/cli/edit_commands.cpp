#include "cli/edit_commands.h"

#include <array>
#include <functional>
#include <map>

#include "cli/film_commands.h"
#include "cli/picture_check.h"
#include "core/action_strings.h"
#include "designer/alignment.h"
#include "designer/copy_layout.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/edit_values.h"
#include "designer/menu_frame.h"
#include "designer/shrink.h"
#include "platform/host_files.h"
#include "render/text_painter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr QStringView kPlaceOptions = u"--menu --at --style -o";

constexpr std::array<CommandHelp, 16> kCommands{{
    {u"add-title",
     u"P.tvn VIDEO [--audio FILE]... [--sub FILE [--sub-format F]]... [--languages A1,A2,A3,S1,S2,S3] [--palette FILE] "
     u"[--start-sub] [--chapters LIST | --chapter-file FILE] [--name NAME] [--delay MS] [--shrink MB] [--inner-subs N] "
     u"[--pre COMMANDS] [--post COMMANDS] [--animated] [--menu MM] [--at X,Y] [--style S] [-o OUT.tvn]",
     u"Adds a film with its button. Sound of the video's name is found by itself; the checks of the video are run, and "
     u"what they warn of is told.",
     u"torvane-cli add-title holiday.tvn sea.m2v --sub sea.srt --languages EN,,,EN --chapters 0:00,5:30,12:00", 2, 2,
     u"--audio --sub --sub-format --languages --palette --chapters --chapter-file --name --delay --shrink --inner-subs "
     u"--pre --post --menu --at --style -o",
     u"--start-sub --animated"},
    {u"edit-title",
     u"P.tvn FILM [--video FILE] [the options of add-title but for its place] [-o OUT.tvn]",
     u"Changes what the options name of a film, given by its number; an empty --audio or --sub clears its stream, an "
     u"empty --palette restores the standard colours, and --video starts over with another video.",
     u"torvane-cli edit-title holiday.tvn 1 --chapters 0:00,5:30,12:00 --delay -40", 2, 2,
     u"--video --audio --sub --sub-format --languages --palette --chapters --chapter-file --name --delay --shrink "
     u"--inner-subs --pre --post -o",
     u"--start-sub --animated"},
    {u"add-audio-titleset",
     u"P.tvn FILE... [--name NAME] [--artist TEXT] [--album TEXT] [--image FILE] [--pattern [--add-track]] "
     u"[--titles | --chapters] [--menu MM] [--at X,Y] [--style S] [-o OUT.tvn]",
     u"Adds an audio titleset of sound files of one kind with its button; --pattern takes the texts from file names such "
     u"as \"Artist - Album - 07 - Title\".",
     u"torvane-cli add-audio-titleset holiday.tvn one.ac3 two.ac3 --name Songs --chapters", 2, -1,
     u"--name --artist --album --image --menu --at --style -o", u"--titles --chapters --pattern --add-track"},
    {u"add-menu", u"P.tvn [--menu M] [--at X,Y] [--style S] [--type TYPE] [--text TEXT] [-o OUT.tvn]",
     u"Adds a submenu to a menu, with the button that leads there and the one that leads back.",
     u"torvane-cli add-menu holiday.tvn --text \"More films\" -o holiday2.tvn", 1, 1,
     u"--menu --at --style --type --text -o"},
    {u"add-button", u"P.tvn TEXT [--action ACTION] [--menu M] [--at X,Y] [--style S] [-o OUT.tvn]",
     u"Adds a free button; the action Play_all makes the one that plays all titles.",
     u"torvane-cli add-button holiday.tvn \"Play all\" --action Play_all", 2, 2, u"--action --menu --at --style -o"},
    {u"add-back", u"P.tvn --menu M [-o OUT.tvn]", u"Gives a menu the Back button that it lacks.",
     u"torvane-cli add-back holiday.tvn --menu TS1", 1, 1, u"--menu -o"},
    {u"add-chapters", u"P.tvn --menu TS1 [--grid LAYOUT] [--style S] [--pictures] [-o OUT.tvn] [CHAPTER]...",
     u"Adds buttons for chapters (all without numbers) in a grid of rows and columns; --pictures adds the clips and "
     u"pictures of the chapter editor.",
     u"torvane-cli add-chapters holiday.tvn --menu TS1 --grid R4C2PX60PY80DX300DY90", 1, -1,
     u"--menu --grid --style -o", u"--pictures"},
    {u"add-playlist", u"P.tvn FILM LIST [--menu M] [--at X,Y] [--style S] [-o OUT.tvn]",
     u"Adds a playlist of a film's chapters with its button; MuxMan alone knows playlists.",
     u"torvane-cli add-playlist holiday.tvn 1 \"03, 01\"", 3, 3, kPlaceOptions},
    {u"add-label", u"P.tvn TEXT [--menu M] [--at X,Y] [-o OUT.tvn]", u"Adds a free text.",
     u"torvane-cli add-label holiday.tvn Summer --at 60,40", 2, 2, u"--menu --at -o"},
    {u"add-image", u"P.tvn PICTURE [--menu M] [--at X,Y] [-o OUT.tvn]", u"Adds a picture of the default size.",
     u"torvane-cli add-image holiday.tvn sea.jpg --at 400,100", 2, 2, u"--menu --at -o"},
    {u"add-animation", u"P.tvn VIDEO [--picture FILE] [--menu M] [--at X,Y] [-o OUT.tvn]", u"Adds a moving picture.",
     u"torvane-cli add-animation holiday.tvn sea.m2v --at 400,100", 2, 2, u"--picture --menu --at -o"},
    {u"delete", u"P.tvn KEY [-o OUT.tvn]",
     u"Deletes a film (F2), a submenu by its list entry (MMM1) or an element (MMB3), with what belongs to it.",
     u"torvane-cli delete holiday.tvn MMB3", 2, 2, u"-o"},
    {u"set", u"P.tvn KEY VALUE [-o OUT.tvn]",
     u"Changes a value that can be edited in place: position, colour, transparency, pause, background, text, action.",
     u"torvane-cli set holiday.tvn MMBGPath sea.jpg", 3, 3, u"-o"},
    {u"align", u"P.tvn HOW KEY... [-o OUT.tvn]",
     u"Aligns elements of one menu (left, right, top, bottom, hcenter, vcenter, hpage, vpage) or spaces them evenly "
     u"(horizontal, vertical, horizontal-page, vertical-page).",
     u"torvane-cli align holiday.tvn left MMB1 MMB2 MMB3", 3, -1, u"-o"},
    {u"copy-layout", u"P.tvn FROM TO [--parts 11111110] [-o OUT.tvn]",
     u"Copies parts of a menu's layout: animations, Back button, background, buttons, highlight, images, labels, post "
     u"action, each 1 or 0.",
     u"torvane-cli copy-layout holiday.tvn TS1 TS2", 3, 3, u"--parts -o"},
    {u"shrink", u"P.tvn MB [-o OUT.tvn]",
     u"Sets shrink factors so that the project fits a disc; 99999 takes them away.",
     u"torvane-cli --assume yes shrink holiday.tvn 4400", 2, 2, u"-o"},
}};

/// Knows whether anything has been told, so that no refusal is silent.
class TellingPrompter : public Prompter {
 public:
  explicit TellingPrompter(Prompter& prompter) : prompter_(prompter) {}
  Answer Show(const Box& box) override {
    told_ = true;
    return prompter_.Show(box);
  }
  bool HasTold() const { return told_; }

 private:
  Prompter& prompter_;
  bool told_ = false;
};

/// One command at work.
class EditCommand {
 public:
  EditCommand(const CommandLine& line, Project& project, Prompter& prompter)
      : line_(line), prompter_(prompter), context_{project, prompter_, CalculateSize} {}

  bool Run() {
    static const std::map<QString, bool (EditCommand::*)()> commands{
        {u"add-title"_s, &EditCommand::AddTitle},
        {u"edit-title"_s, &EditCommand::EditTitle},
        {u"add-audio-titleset"_s, &EditCommand::AddSongs},
        {u"add-menu"_s, &EditCommand::AddSubMenu},
        {u"add-button"_s, &EditCommand::AddButton},
        {u"add-back"_s, &EditCommand::AddBack},
        {u"add-chapters"_s, &EditCommand::AddChapters},
        {u"add-playlist"_s, &EditCommand::AddFilmList},
        {u"add-label"_s, &EditCommand::AddText},
        {u"add-image"_s, &EditCommand::AddPicture},
        {u"add-animation"_s, &EditCommand::AddMovie},
        {u"delete"_s, &EditCommand::Delete},
        {u"set"_s, &EditCommand::Set},
        {u"align"_s, &EditCommand::Align},
        {u"copy-layout"_s, &EditCommand::CopyLayout},
        {u"shrink"_s, &EditCommand::Shrink},
    };
    const auto command = commands.find(line_.command);
    if (command == commands.end() || !ReadPlace()) return false;
    const bool done = (this->*command->second)();
    if (!done && !prompter_.HasTold()) prompter_.Fail(refusal_);
    return done;
  }

 private:
  QString Argument(qsizetype i) const { return line_.arguments.value(i); }
  QString Option(const QString& name, const QString& absent = {}) const { return line_.Option(name, absent); }

  bool Refuse(const QString& reason) {
    prompter_.Fail(reason);
    return false;
  }

  bool RefuseMissing(const QString& key) { return Refuse(u"The project has no node %1."_s.arg(key)); }

  bool ReadPlace() {
    place_.menu = Option(u"--menu"_s, MainMenuKey());
    if (MenuOfNode(context_.project.Tree, place_.menu) != place_.menu) {
      return Refuse(u"The project has no menu "_s + place_.menu);
    }
    if (line_.options.contains(u"--at"_s)) {
      const QStringList numbers = Option(u"--at"_s).split(u',');
      bool xOk = false;
      bool yOk = false;
      const QPoint point(numbers.value(0).toInt(&xOk), numbers.value(1).toInt(&yOk));
      const int height = MenuHeight(context_.project.Settings);
      if (numbers.size() != 2 || !xOk || !yOk || !QRect(0, 0, kMenuWidth, height).contains(point)) {
        return Refuse(u"--at takes a place within %1 by %2 as X,Y, not \"%3\"."_s.arg(kMenuWidth)
                          .arg(height)
                          .arg(Option(u"--at"_s)));
      }
      place_.position = point;
    }
    if (line_.options.contains(u"--style"_s)) {
      const QStringList styles{u"graphic"_s, u"text"_s, u"combined"_s};
      const qsizetype style = styles.indexOf(Option(u"--style"_s));
      if (style < 0) return Refuse(u"--style takes graphic, text or combined."_s);
      place_.style = static_cast<ButtonStyle>(style);
    }
    return true;
  }

  bool AddTitle() { return AddTitleOf(line_, context_, place_); }
  bool EditTitle() { return EditTitleOf(line_, context_); }
  bool AddSongs() { return AddAudioTitleSetOf(line_, context_, place_); }

  bool AddSubMenu() {
    const QString type = Option(u"--type"_s, MenuTypes().front());
    const QStringList types = AvailableMenuTypes(context_.project, place_.menu);
    if (!types.contains(type)) return Refuse(u"--type takes one of: %1"_s.arg(types.join(u", ")));
    return AddMenu(context_, {.type = type, .buttonText = Option(u"--text"_s, SubMenuChoice().buttonText)}, place_);
  }

  bool AddButton() {
    if (Option(u"--action"_s) == kPlayAllAction) {
      return AddPlayAllButton(context_, place_);
    }
    return AddFreeButton(context_, Argument(1), Option(u"--action"_s), place_);
  }

  bool AddBack() {
    refusal_ = u"Menu %1 has a Back button already, or leads back nowhere."_s.arg(place_.menu);
    return AddMissingBackButton(context_, place_.menu);
  }

  bool AddChapters() {
    std::vector<int> chapters;
    for (qsizetype i = 1; i < line_.arguments.size(); ++i) chapters.push_back(Argument(i).toInt());
    if (chapters.empty()) {
      const int count = ChapterCount(context_.project, TitleSetOfMenu(context_.project, place_.menu));
      for (int chapter = 1; chapter <= count; ++chapter) chapters.push_back(chapter);
    }
    const bool pictures = line_.HasFlag(u"--pictures"_s);
    return AddChapterGrid(context_, chapters, Option(u"--grid"_s, context_.project.Settings.GridLayout), place_,
                          pictures ? ChapterPicture::FromEditor : ChapterPicture::None);
  }

  bool AddFilmList() {
    refusal_ = u"Playlists are for existing films, and for MuxMan alone."_s;
    return AddPlayList(context_, {.Film = Argument(1).toInt(), .List = Argument(2)}, place_);
  }

  bool AddText() { return AddLabel(context_, Argument(1), place_); }

  bool AddPicture() {
    const QString path = HostFiles::FromUser(Argument(1));
    return CheckPicture(path, prompter_) && AddImage(context_, path, place_);
  }

  bool AddMovie() {
    const QString video = HostFiles::FromUser(Argument(1));
    if (!HostFiles::FileExists(video)) return Refuse(u"There is no video "_s + video);
    const QString typed = Option(u"--picture"_s);
    const QString picture = typed.isEmpty() ? QString() : HostFiles::FromUser(typed);
    if (!picture.isEmpty() && !CheckPicture(picture, prompter_)) return false;
    return AddAnimation(context_, {.video = video, .picture = picture}, place_);
  }

  bool Delete() {
    refusal_ = u"%1 is nothing that can be deleted."_s.arg(Argument(1));
    if (!context_.project.Tree.Contains(Argument(1))) return RefuseMissing(Argument(1));
    return DeleteNode(context_, Argument(1));
  }

  bool Set() {
    refusal_ = u"%1 does not take the value \"%2\"."_s.arg(Argument(1), Argument(2));
    const ProjectNode* node = context_.project.Tree.Find(Argument(1));
    if (!node) return RefuseMissing(Argument(1));
    if (node->Image() != kBackgroundNode) return EditValue(context_, Argument(1), Argument(2));
    const QString path = HostFiles::FromUser(Argument(2));
    return CheckPicture(path, prompter_) && EditValue(context_, Argument(1), path);
  }

  bool Align() {
    const QStringList alignments{u"left"_s,    u"right"_s,   u"top"_s,   u"bottom"_s,
                                 u"hcenter"_s, u"vcenter"_s, u"hpage"_s, u"vpage"_s};
    const QStringList distributions{u"horizontal"_s, u"vertical"_s, u"horizontal-page"_s, u"vertical-page"_s};
    const QStringList elements = line_.arguments.mid(2);
    const QString menu = MenuOfNode(context_.project.Tree, elements.front());
    refusal_ = u"These are no elements of one menu."_s;
    if (const qsizetype how = alignments.indexOf(Argument(1)); how >= 0) {
      return AlignElements(context_, menu, elements, static_cast<Alignment>(how));
    }
    if (const qsizetype how = distributions.indexOf(Argument(1)); how >= 0) {
      return DistributeElements(context_, menu, elements, static_cast<Distribution>(how));
    }
    return Refuse(u"align takes one of: %1"_s.arg((alignments + distributions).join(u", ")));
  }

  bool CopyLayout() {
    const std::optional<CopyFlags> flags = ParseCopyFlags(Option(u"--parts"_s, u"11111110"_s));
    if (!flags) return Refuse(u"--parts takes eight characters, each 0 or 1."_s);
    refusal_ = u"Nothing to copy."_s;
    return CopyMenuLayout(context_, Argument(2), Argument(1), *flags);
  }

  bool Shrink() {
    refusal_ = u"The project has no films."_s;
    return ShrinkToSize(context_, Argument(1));
  }

  const CommandLine& line_;
  TellingPrompter prompter_;
  EditContext context_;
  ElementPlace place_;
  QString refusal_ = u"Nothing was changed."_s;
};

}  // namespace

std::span<const CommandHelp> EditCommands() {
  return kCommands;
}

bool RunEditCommand(const CommandLine& line, Project& project, Prompter& prompter) {
  return EditCommand(line, project, prompter).Run();
}

}  // namespace torvane
