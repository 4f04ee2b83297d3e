#include "compilers/command_check.h"

#include <gtest/gtest.h>

#include "compilers/project_findings.h"
#include "run/console_capture.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(CommandCheck, NamesThePlaceOfEachCommandThatDvdauthorCannotParse) {
  Project project(test::FixedSettings());
  test::BuildTwoFilms(project);
  ConsoleCapture console(QStringLiteral(TORVANE_BIN_DIR "/torvane-cmd"));
  project.Tree.SetCaption(u"MMB1Action"_s, u"Action=Play_all"_s);
  EXPECT_EQ(CommandFindings(project, console), QList<Finding>());

  project.Tree.SetCaption(u"MMB2Action"_s, u"Action=if g1 = 1 jump menu;"_s);
  project.Tree.SetCaption(u"MM1B0Action"_s, u"Action=Play_all"_s);
  test::AddNode(project, u"FP2"_s, u"FPPostAct2|Post Action=g1=1;\r\njump title 2"_s);
  EXPECT_EQ(CommandFindings(project, console),
            (QList<Finding>{
                {Severity::Error, u"MMB2Action"_s,
                 u"Menu MainMenu (MM), button FilmButton2 \"Second\" (MMB2), Action: dvdauthor cannot read the "
                 u"commands \"if g1 = 1 jump menu;\". Please correct them."_s},
                {Severity::Error, u"MM1B0Action"_s,
                 u"Menu MainSubMenu1 (MM1), button BackButton \"Back\" (MM1B0), Action: dvdauthor cannot read the "
                 u"commands \"Play_all\". Please correct them."_s},
                {Severity::Error, u"FPPostAct2"_s,
                 u"Film2 (Film2), Post Action: dvdauthor cannot read the commands \"g1=1; jump title 2\". Please "
                 u"correct them."_s}}));

  ConsoleCapture missing(u"/no/such/console"_s);
  EXPECT_EQ(CommandFindings(project, missing), QList<Finding>());
}

}  // namespace
}  // namespace torvane
