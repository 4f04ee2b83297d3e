#include "core/audio_title_set.h"

#include <gtest/gtest.h>

#include "core/play_list.h"
#include "support/project_builder.h"
#include "support/tree_dump.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

AudioTitleStore TwoTitles() {
  AudioTitleStore store;
  store.Name = u"Songs"_s;
  store.Titles = {{u"C:\\a\\1.mp2"_s, u"Ann"_s, u"Red"_s, u"One"_s, u"C:\\p\\1.png"_s, 5000000},
                  {u"C:\\a\\2.mp2"_s, u"Ann"_s, u"Red"_s, u"Two"_s, u"C:\\p\\2.png"_s, 6000000}};
  store.AudioTSLayoutType = u"1"_s;
  store.Layout = DefaultAudioLayout(test::FixedSettings());
  store.TotalSize = AudioTitlesMB(store.Titles);
  store.PostAction = u"exit;"_s;
  return store;
}

const QString kNodes =
    uR"(F1|Film1(AudioTitleSet)|MM|1
 FP1|Name=Songs|3|7
  FPA1|AudioTitles=2|2|1
   FPA1#01|Title01=One||1
    FPA1#01FILE|File=C:\a\1.mp2||1
    FPA1#01ARTIST|Artist=Ann||1
    FPA1#01ALBUM|Album=Red||1
    FPA1#01IMAGE|Image=C:\p\1.png||1
    FPA1#01SIZE|Size=5000000||1
   FPA1#02|Title02=Two||1
    FPA1#02FILE|File=C:\a\2.mp2||1
    FPA1#02ARTIST|Artist=Ann||1
    FPA1#02ALBUM|Album=Red||1
    FPA1#02IMAGE|Image=C:\p\2.png||1
    FPA1#02SIZE|Size=6000000||1
  FPAL1|AudioTSLayout|1|1
   FPALAFont1|AuthorTextFont=Arial\12\0\0\0\0||1
   FPALAColor1|AuthorTextColor=128,255,255||1
   FPALAXPos1|AuthorTextXPos=100||1
   FPALAYPos1|AuthorTextYPos=100||1
   FPALBFont1|AlbumTextFont=Arial\12\0\0\0\0||1
   FPALBColor1|AlbumTextColor=128,255,255||1
   FPALBXPos1|AlbumTextXPos=100||1
   FPALBYPos1|AlbumTextYPos=200||1
   FPALTFont1|TitleTextFont=Arial\12\0\0\0\0||1
   FPALTColor1|TitleTextColor=128,255,255||1
   FPALTXPos1|TitleTextXPos=100||1
   FPALTYPos1|TitleTextYPos=300||1
   FPALBlur1|UseBlur=0||1
   FPALBlurX1|BlurX=50||1
   FPALBlurY1|BlurY=100||1
  FPTS1|TotalSize(MB)=10||1
  FPAni1|Animated=0|MM|1
  FPPostAct1|Post Action=exit;||1
)"_s;

TEST(AudioTitleSet, HasItsNodesInStoredOrderAndReadsBack) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  AddAudioTitleSetSubtree(project, TwoTitles(), MainMenuKey(), 3);
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kNodes);
  EXPECT_EQ(ReadAudioTitleSet(project.Tree, 1), TwoTitles());
}

TEST(AudioTitleSet, TakesMoreAndFewerTitles) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  AddAudioTitleSetSubtree(project, TwoTitles(), MainMenuKey(), 3);
  AudioTitleStore longest = TwoTitles();
  longest.Titles.resize(kMaxAudioTitles, longest.Titles.front());
  WriteAudioTitleSet(project.Tree, 1, longest);
  EXPECT_EQ(ReadAudioTitleSet(project.Tree, 1), longest);
  WriteAudioTitleSet(project.Tree, 1, TwoTitles());
  EXPECT_EQ(test::DumpTree(project.Tree, u"F1"_s), kNodes);
}

TEST(PlayList, StandsInOrderBelowItsFilm) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  test::AddFilm(project, 1, MainMenuKey(), u"C:\\v\\a.m2v"_s);
  AddPlayListNode(project.Tree, {.Film = 1, .Number = 2, .List = u"02"_s});
  AddPlayListNode(project.Tree, {.Film = 1, .Number = 1, .List = u"01"_s, .PostAction = u"Exit"_s, .UOP = u"7"_s});
  EXPECT_EQ(NextPlayListNumber(project.Tree, 1), 3);
  const PlayList changed{
      .Film = 1, .Number = 1, .List = u"03, 01, 02"_s, .PreAction = u"Mov GPRM1, 0"_s, .UOP = u"7"_s};
  AddPlayListNode(project.Tree, changed);
  EXPECT_EQ(test::DumpTree(project.Tree, u"FP1P"_s),
            uR"(FP1P|PlayLists||1
 FP1P1|PlayList1|01 01|7
  FP1P1List|Play=03, 01, 02|0|1
  FP1P1PreAct|Pre Action=Mov GPRM1, 0||1
  FP1P1UOP|UOP=7||1
 FP1P2|PlayList2|01 02|7
  FP1P2List|Play=02|0|1
)"_s);
  EXPECT_EQ(ReadPlayList(project.Tree, u"FP1P1"_s), changed);
}

}  // namespace
}  // namespace torvane
