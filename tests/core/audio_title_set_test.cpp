#include "core/audio_title_set.h"

#include <gtest/gtest.h>

#include "core/play_list.h"
#include "support/golden.h"
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

TEST(AudioTitleSet, HasItsNodesInStoredOrderAndReadsBackWithAnyNumberOfTitles) {
  Project project(test::FixedSettings());
  AddDefaultProject(project);
  AddAudioTitleSetSubtree(project, TwoTitles(), MainMenuKey(), 3);
  test::ExpectGolden(test::DumpTree(project.Tree, u"F1"_s).toUtf8(), u"audio_titleset.tree"_s);
  AudioTitleStore longest = TwoTitles();
  longest.Titles.resize(kMaxAudioTitles, longest.Titles.front());
  for (const AudioTitleStore& store : {longest, TwoTitles()}) {
    WriteAudioTitleSet(project.Tree, 1, store);
    EXPECT_EQ(ReadAudioTitleSet(project.Tree, 1), store);
  }
  test::ExpectGolden(test::DumpTree(project.Tree, u"F1"_s).toUtf8(), u"audio_titleset.tree"_s);
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
