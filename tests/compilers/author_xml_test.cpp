#include "compilers/author_xml.h"

#include <gtest/gtest.h>

#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/project_builder.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::AddNode;
using test::ExpectGolden;
using test::LinesWith;

class AuthorXmlTest : public testing::Test {
 protected:
  AuthorXmlTest() : project_(test::FixedSettings()) { test::BuildTwoFilms(project_); }

  QByteArray Text() const { return WriteAuthorXmlSingle(project_, AuthorMode::Run, test::Harmless(project_.Settings)); }

  Project project_;
};

TEST_F(AuthorXmlTest, TwoFilmsWithASubmenu) {
  ExpectGolden(Text(), u"single_films.xml"_s);
}

TEST_F(AuthorXmlTest, EveryOptionAtOnce) {
  Settings& settings = project_.Settings;
  settings.VideoNormPal = false;
  settings.DefMenuRatio = settings.CommentXML = settings.LoopSyntax = settings.AdjNTSCtc = settings.UseIntro = true;
  settings.IntroMovie = u"C:\\v\\intro.m2v"_s;
  ProjectTree& tree = project_.Tree;
  tree.SetCaption(u"MM1"_s, u"Menü <1>"_s);
  AddNode(project_, u"MMBG"_s, u"MMBGLoop|Loop=1"_s);
  AddNode(project_, u"MM1BG"_s, u"MM1BGLoop|Loop=1"_s);
  tree.SetCaption(u"MM1PPause"_s, u"Pause=0"_s);
  tree.SetCaption(u"MM1PType"_s, u"Type=Chapter(ptt)"_s);
  tree.SetCaption(u"MM1PPre"_s, u"PreCommand=g5=1;\r\nbutton=1024;"_s);
  tree.SetCaption(u"MMB3Action"_s, u"Action=Play_all"_s);
  AddNode(project_, u"FP1"_s, u"FPS1|SubColors=1,2"_s);
  AddNode(project_, u"FP1"_s, u"FP1S1|SubTitel1=C:\\v\\a.srt"_s);
  AddNode(project_, u"FP1"_s, u"FP1SF1|SubFormatStr1=x|1"_s);
  AddNode(project_, u"FP1"_s, u"FP2S1|SubTitel2=C:\\v\\b.srt"_s);
  AddNode(project_, u"FP1"_s, u"FPLang1|LanguageTags=de,  ,en,fr"_s);
  tree.SetCaption(u"FPVFps1"_s, u"FPS=29.97"_s);
  tree.SetCaption(u"FPCH1"_s, u"Chapters=00:00:00.000,00:10:00.000"_s);
  tree.SetTag(u"FPAni1"_s, u"MM1"_s);
  tree.SetCaption(u"FPMux2"_s, u"Mux=0"_s);
  tree.SetCaption(u"FPCH2"_s, u"Chapters=00:00:00.000,00:10:00.000"_s);
  AddNode(project_, u"FP2"_s, u"FPPreAct2|Pre Action=g5=2;"_s);
  AddNode(project_, u"FP2"_s, u"FPPostAct2|Post Action=g6=1;\r\n\r\ncall vmgm menu;"_s);
  ExpectGolden(Text(), u"single_every_option.xml"_s);
}

TEST_F(AuthorXmlTest, WithoutMenusTheTitlesFollowEachOther) {
  Settings& settings = project_.Settings;
  settings.NoMenus = settings.GoNextTitle = settings.UseIntro = true;
  settings.IntroMovie = u"C:\\v\\intro.MPG"_s;
  project_.Tree.SetCaption(u"MMB3Action"_s, u"Action=Play_all"_s);
  ExpectGolden(Text(), u"single_no_menus.xml"_s);
}

TEST_F(AuthorXmlTest, AButtonThatIsNotOnTheDiscLeavesNoLine) {
  project_.Tree.SetCaption(u"MMB2Text"_s, u"Text= "_s);
  project_.Tree.SetCaption(u"MMBP2NormVis"_s, u"NormVis=0"_s);
  project_.Tree.Remove(u"MMB3Action"_s);
  EXPECT_EQ(LinesWith(Text(), "<button"), (QList<QByteArray>{"<button name=\"MMB1\">g1=1;jump title 1;</button>",
                                                             "<button name=\"MM1B0\">jump menu 1;</button>"}));
  AddNode(project_, u"MMB2"_s, u"MMB2UseHigh|Highlight=0"_s);
  EXPECT_EQ(LinesWith(Text(), "MMB2").size(), 1);
}

TEST_F(AuthorXmlTest, AnAutoActionButtonIsSelectedAndHasItsFourPseudoButtons) {
  project_.Tree.SetTag(u"MMB"_s, u"1"_s);
  EXPECT_EQ(LinesWith(Text(), "Actionleft").size(), 0);
  EXPECT_EQ(LinesWith(Text(), "button = 1024;").size(), 1);
  for (const QString& menu : {u"MMB2"_s, u"MM1B0"_s}) {
    AddNode(project_, menu, menu + u"AutoAction|AutoAction=1"_s);
    for (const QString& side : {u"Left"_s, u"Right"_s, u"Up"_s, u"Down"_s}) {
      AddNode(project_, menu, menu + u"Action" + side + u"|Action" + side + u"=jump " + side + u';');
    }
  }
  project_.Tree.SetTag(u"MM1B"_s, u"1"_s);
  ExpectGolden(Text(), u"single_auto_action.xml"_s);
}

TEST_F(AuthorXmlTest, TheSyntaxCheckNamesTestFilesInTheMainMenuOnly) {
  ExpectGolden(WriteAuthorXmlSingle(project_, AuthorMode::SyntaxCheck, test::Harmless(project_.Settings)),
               u"single_syntax_check.xml"_s);
}

TEST_F(AuthorXmlTest, OwnCommandsOfTheMainMenuReplaceTheGeneratedOnes) {
  AddNode(project_, u"MMBG"_s, u"MMBGLoop|Loop=1"_s);
  AddNode(project_, u"MMBG"_s, u"MMBGPause|Pause=12"_s);
  AddNode(project_, u"MMBG"_s, u"MMBGPreAction|PreAction=g1=1;\r\nbutton=1024;\r\n"_s);
  AddNode(project_, u"MMBG"_s, u"MMBGPostAction|PostAction=jump title 1;"_s);
  project_.Tree.SetCaption(u"MM1PPost"_s, u"PostCommand=jump menu 1;"_s);
  ExpectGolden(Text(), u"single_own_commands.xml"_s);
}

TEST_F(AuthorXmlTest, AFilmReturnsToTheMenuOfItsButton) {
  const std::pair<QString, QByteArray> cases[] = {
      {QString(), "1"}, {u"MM"_s, "1"}, {u"MM1"_s, "2"}, {u"MM2"_s, "1"}, {u"TS1"_s, "1"}};
  for (const auto& [owner, menu] : cases) {
    project_.Tree.SetTag(u"FPAni1"_s, owner);
    EXPECT_EQ(LinesWith(Text(), "<post>call vmgm").first(), "<post>call vmgm menu " + menu + ";</post>");
  }
}

TEST(IndentCommand, IndentsEveryLineThatHoldsText) {
  const std::pair<QString, QString> cases[] = {
      {u""_s, u""_s},
      {u";"_s, u""_s},
      {u"a\r\nb;"_s, u"  a\r\n  b;"_s},
      {u"a;\r\n\r\nb;\r\n"_s, u"  a;\r\n  b;"_s},
      {u"a;\r\nb"_s, u"  a;"_s},
      {u"\r\n"_s, u""_s},
      {u"a;\nb;"_s, u"  a;\nb;"_s},
  };
  for (const auto& [text, indented] : cases) EXPECT_EQ(IndentCommand(text, 2), indented) << text.toStdString();
}

TEST_F(AuthorXmlTest, TheLogNamesProjectOutputAndFilms) {
  project_.ProjectFile = u"C:\\p\\x.tvn"_s;
  EXPECT_EQ(AuthorLogText(project_),
            u"Project: C:\\p\\x.tvn\r\nOutput: C:\\O\\DVD\r\nFilm #1: Film1  Video: C:\\v\\a.m2v\r\n"
            u"Film #2: Film2  Video: C:\\v\\b.m2v\r\n"_s);
}

}  // namespace
}  // namespace torvane
