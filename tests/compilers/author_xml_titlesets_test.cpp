#include <gtest/gtest.h>

#include "compilers/author_xml.h"
#include "designer/edit_elements.h"
#include "designer/edit_films.h"
#include "designer/edit_menus.h"
#include "designer/element_nodes.h"
#include "support/edit_bench.h"
#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::AddNode;
using test::ExpectGolden;
using test::LinesWith;
using test::WithCrLf;

class AuthorXmlTitlesetsTest : public testing::Test, public test::EditBench {
 protected:
  AuthorXmlTitlesetsTest() : EditBench(test::TitleSetSettings()) { project.Settings.PostGoMain = true; }

  void AddFilms(int count) {
    for (int i = 0; i < count; ++i) {
      const int film = project.FilmCount + 1;
      ASSERT_TRUE(AddFilm(context, {.Name = u"Film%1"_s.arg(film), .VideoFile = u"C:\\v\\%1.m2v"_s.arg(film)},
                          {.position = QPoint(film % 6 * 100, film / 6 * 40)}));
    }
  }

  void AddTracks(int count) {
    AudioTitleStore store{.Name = u"Songs"_s, .Titles = {}};
    for (int i = 1; i <= count; ++i)
      store.Titles.push_back({u"C:\\v\\%1.ac3"_s.arg(i), u"Artist"_s, u"Album"_s, u"Song"_s, {}, 0});
    ASSERT_TRUE(AddAudioTitleSet(context, store, {}));
  }

  QByteArray Text(AuthorMode mode = AuthorMode::Run) const {
    return WriteAuthorXmlTitlesets(project, mode, test::Harmless(project.Settings));
  }
};

TEST_F(AuthorXmlTitlesetsTest, TwoFilmsWithASubmenu) {
  AddFilms(2);
  ASSERT_TRUE(AddMenu(context, {}, {}));
  ExpectGolden(Text(), u"titlesets_films.xml"_s);
}

TEST_F(AuthorXmlTitlesetsTest, EveryOptionAtOnce) {
  Settings& settings = project.Settings;
  settings.VideoNormPal = settings.PostGoMain = false;
  settings.CommentXML = settings.LoopSyntax = settings.UseIntro = true;
  settings.IntroMovie = u"C:\\v\\intro.m2v"_s;
  AddFilms(2);
  ASSERT_TRUE(AddMenu(context, {}, {}));
  ASSERT_TRUE(AddPlayAllButton(context, {.position = QPoint(300, 300)}));
  ASSERT_TRUE(AddMenu(context, {.type = u"Audio"_s}, {.menu = u"TS1"_s}));
  project.Tree.SetCaption(u"TS1"_s, u"Menü <1>"_s);
  for (const QString& menu : {u"MM"_s, u"TS1"_s}) AddNode(project, menu + u"BG", menu + u"BGLoop|Loop=1");
  AddNode(project, u"TS1BG"_s, u"TS1BG16:9|16:9=1"_s);
  AddNode(project, u"FP1"_s, u"FP1S1|SubTitel1=C:\\v\\a.srt"_s);
  AddNode(project, u"FP1"_s, u"FP1SF1|SubFormatStr1=x|1"_s);
  AddNode(project, u"FP1"_s, u"FPS1|SubColors=1,2"_s);
  AddNode(project, u"FP1"_s, u"FPLang1|LanguageTags=de,  ,en,fr"_s);
  AddNode(project, u"FP2"_s, u"FPLang2|LanguageTags=it"_s);
  AddNode(project, u"FP2"_s, u"FPPreAct2|Pre Action=g5=2;"_s);
  AddNode(project, u"FP2"_s, u"FPPostAct2|Post Action=g6=1;\r\ncall vmgm menu;"_s);
  AddNode(project, u"TS2BG"_s, u"TS2BGPreAction|PreAction=g1=1;\r\nbutton=1024;"_s);
  AddNode(project, u"TS2BG"_s, u"TS2BGPostAction|PostAction=jump title 1;"_s);
  ExpectGolden(Text(), u"titlesets_every_option.xml"_s);
}

TEST_F(AuthorXmlTitlesetsTest, WithoutMenusEachMenuPassesOn) {
  AddFilms(1);
  AddTracks(2);
  project.Settings.NoMenus = project.Settings.GoNextTitle = true;
  ExpectGolden(Text(), u"titlesets_no_menus.xml"_s);
}

TEST_F(AuthorXmlTitlesetsTest, AnAudioTitlesetOfOneTitleHasAFileForEachTrack) {
  AddTracks(10);
  project.Tree.SetTag(u"FPAL1"_s, u"1"_s);
  AddNode(project, u"FP1"_s, u"FPPreAct1|Pre Action=g5=1;"_s);
  ExpectGolden(Text(), u"titlesets_one_title.xml"_s);
}

TEST_F(AuthorXmlTitlesetsTest, TheGeneratedPreOfARootMenu) {
  const QByteArray start = "if (g1 gt 0) jump title 1 chapter 1;";
  enum Shows { OnlyBack, Chapters, AutoButton };
  struct Case {
    Shows shows;
    bool loopSyntax, noShow, playAll;
    QByteArray lines;
  };
  const Case cases[] = {
      {OnlyBack, true, true, true, "<pre> { " + start + " else g0=0;\r\n                jump vmgm menu;} </pre>\r\n"},
      {Chapters, false, false, true, "<pre> { button=1024; } </pre>\r\n"},
      {Chapters, false, true, false, "<pre> { button=1024; " + start + " } </pre>\r\n"},
      {Chapters, true, false, false, "<pre> { if (g3 eq 0) g3=1;button=g3*1024; } </pre>\r\n"},
      {Chapters, true, true, true, "<pre> { if (g3 eq 0) g3=1;button=g3*1024; " + start + "  else g0=0;} </pre>\r\n"},
      {AutoButton, true, false, false, "<pre> { button=2048; } </pre>\r\n"},
      {AutoButton, false, true, true, "<pre> { button=2048; " + start + "  else g0=0;} </pre>\r\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.lines.toStdString());
    test::EditBench bench(test::TitleSetSettings());
    Settings& settings = bench.project.Settings;
    settings.LoopSyntax = c.loopSyntax;
    settings.NoShowTitleSetMenu = c.noShow;
    AddFilm(bench.context, {.Name = u"Film1"_s, .VideoFile = u"C:\\v\\1.m2v"_s}, {});
    if (c.playAll) AddPlayAllButton(bench.context, {.position = QPoint(300, 300)});
    if (c.shows != OnlyBack) AddChapterButton(bench.context, 1, {.menu = u"TS1"_s});
    if (c.shows == AutoButton)
      SetAutoAction(bench.project, u"TS1"_s, kBackButton, AutoActions{u"a;"_s, u"b;"_s, u"c;"_s, u"d;"_s});
    const QByteArray text =
        WriteAuthorXmlTitlesets(bench.project, AuthorMode::Run, test::Harmless(bench.project.Settings));
    const qsizetype at = text.indexOf("<pre>", text.indexOf("entry=\"root\""));
    EXPECT_EQ(text.mid(at, c.lines.size()), c.lines);
  }
}

TEST_F(AuthorXmlTitlesetsTest, TheGeneratedPostOfATitle) {
  struct Case {
    bool goNext, playAll, postGoMain, onlyBack;
    QByteArray first, last;
  };
  const Case cases[] = {
      {false, false, true, false, "call vmgm menu 1;", "call vmgm menu 1;"},
      {false, false, false, true, "call vmgm menu 1;", "call vmgm menu 1;"},
      {false, false, false, false, "call menu;", "call vmgm menu 1;"},
      {true, false, false, false, "{ g1=1;g2=2;call vmgm menu 2;}", "call vmgm menu;"},
      {false, true, true, false, " { if (g0 eq 1) {g1=1;g2=2;call vmgm menu 2;} else call vmgm menu 1; } ",
       "call vmgm menu;"},
      {true, true, false, true, " { if (g0 eq 1) {g1=1;g2=2;call vmgm menu 2;} else call vmgm menu 1; } ",
       "call vmgm menu;"},
      {false, true, false, false, " { if (g0 eq 1) {g1=1;g2=2;call vmgm menu 2;} else call menu; } ",
       "call vmgm menu;"},
  };
  for (const Case& c : cases) {
    test::EditBench bench(test::TitleSetSettings());
    Settings& settings = bench.project.Settings;
    settings.GoNextTitle = c.goNext;
    settings.PostGoMain = c.postGoMain;
    for (int film = 1; film <= 2; ++film)
      AddFilm(bench.context, {.Name = u"Film"_s, .VideoFile = u"C:\\v\\1.m2v"_s}, {});
    if (c.playAll) AddPlayAllButton(bench.context, {.position = QPoint(300, 300)});
    if (!c.onlyBack) AddChapterButton(bench.context, 1, {.menu = u"TS1"_s});
    EXPECT_EQ(LinesWith(WriteAuthorXmlTitlesets(bench.project, AuthorMode::Run, test::Harmless(bench.project.Settings)),
                        "<post>"),
              (QList<QByteArray>{"<post>" + c.first + "</post>", "<post>" + c.last + "</post>"}));
  }
}

/// The PGCs that lead on to titlesets: the tests in front of all, and the titlesets from one number to the next.
QByteArray JumpPgcs(const QByteArray& tests, const QList<int>& firsts, int last) {
  QByteArray text;
  for (qsizetype pgc = 0; pgc < firsts.size(); ++pgc) {
    const int closing = pgc + 1 < firsts.size() ? firsts[pgc + 1] - 1 : last;
    text += "      <pgc pause=\"0\">\n       <pre> {\n" + (pgc == 0 ? tests : QByteArray());
    for (int k = firsts[pgc]; k <= closing; ++k) {
      const QByteArray number = QByteArray::number(k);
      text += "       if (g2 eq " + number + ") jump titleset " + number + " menu;" + (k == closing ? "}\n" : "\n");
    }
    text += "       </pre>\n      </pgc>\n";
  }
  return WithCrLf(text);
}

TEST_F(AuthorXmlTitlesetsTest, AChainOfManyTitlesetsIsSplitIntoSeveralPgcs) {
  project.Settings.GoNextTitle = true;
  const QByteArray above24 = "       if (g2 gt 24) jump menu 3;\n";
  const QByteArray above49 = "       if (g2 gt 49) jump menu 4;\n" + above24;
  const QByteArray above74 = "       if (g2 gt 74) jump menu 5;\n" + above49;
  const std::tuple<int, QByteArray, QList<int>> cases[] = {
      {1, {}, {1}},
      {25, {}, {1}},
      {26, above24, {1, 25}},
      {50, above24, {1, 25}},
      {51, above49, {1, 25, 50}},
      {75, above49, {1, 25, 50}},
      {76, above74, {1, 25, 50, 75}},
      {98, above74, {1, 25, 50, 75}},
  };
  for (const auto& [films, tests, firsts] : cases) {
    for (int film = project.FilmCount + 1; film <= films; ++film) test::AddFilm(project, film, u"MM"_s, u"C:\\a.m2v"_s);
    const QByteArray text = Text();
    const qsizetype start = text.indexOf("      <pgc pause=\"0\">");
    EXPECT_EQ(text.sliced(start, text.indexOf("    </menus>", start) - start), JumpPgcs(tests, firsts, films));
  }
}

TEST_F(AuthorXmlTitlesetsTest, TheSyntaxCheckNamesTestFilesInTheRootMenus) {
  AddFilms(1);
  project.Settings.UseIntro = true;
  project.Settings.IntroMovie = u"C:\\v\\intro.mpg"_s;
  ASSERT_TRUE(AddMenu(context, {}, {.menu = u"TS1"_s}));
  ExpectGolden(Text(AuthorMode::SyntaxCheck), u"titlesets_syntax_check.xml"_s);
}

TEST_F(AuthorXmlTitlesetsTest, OwnCommandsOfTheMainMenuReplaceTheGeneratedOnes) {
  AddFilms(1);
  AddNode(project, u"MMBG"_s, u"MMBGPreAction|PreAction=g1=1;\r\nbutton=1024;"_s);
  AddNode(project, u"MMBG"_s, u"MMBGPostAction|PostAction=jump titleset 1 menu;"_s);
  ExpectGolden(Text(), u"titlesets_own_commands.xml"_s);
}

}  // namespace
}  // namespace torvane
