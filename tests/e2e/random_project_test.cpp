// Whatever a user makes with the editing operations must compile: well-formed control files whose two sides know the
// same buttons, and commands that dvdauthor reads.

#include <gtest/gtest.h>

#include <QMap>
#include <QXmlStreamReader>

#include "compilers/author_xml.h"
#include "compilers/plan_check.h"
#include "compilers/video_batch.h"
#include "core/project_file.h"
#include "designer/element_nodes.h"
#include "designer/spu_xml.h"
#include "shell/control_file.h"
#include "support/harmless_values.h"
#include "support/random_user.h"
#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

constexpr unsigned kProjects = 300;
constexpr unsigned kChecked = 10;  ///< of them are read by dvdauthor
constexpr int kEdits = 60;

/// Names of the buttons of a control file, as the native tool gets it, by the menu that their keys begin with.
QMap<QString, QStringList> ButtonsOf(const QByteArray& text) {
  QMap<QString, QStringList> buttons;
  QXmlStreamReader reader(ControlFile(text).ToBytes());
  QString menu;
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (reader.name() != u"button" && reader.name() != u"action") continue;
    const QString name = reader.attributes().value(u"name"_s).toString();
    // The four directions belong to the menu whose buttons stand before them.
    if (!name.startsWith(u"Action")) menu = name.left(name.lastIndexOf(u'B'));
    buttons[menu] << name;
  }
  EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << '\n' << text.toStdString();
  return buttons;
}

Settings AnySettings(unsigned seed) {
  std::mt19937 random(seed);
  Settings settings = FixedSettings();
  settings.IntroMovie = u"C:\\v\\i.mpg"_s;
  settings.NoTitleSets = random() % 4 == 0;
  for (bool Settings::*const option :
       {&Settings::LoopSyntax, &Settings::GoNextTitle, &Settings::PostGoMain, &Settings::NoShowTitleSetMenu,
        &Settings::CommentXML, &Settings::UseIntro, &Settings::DefMenuRatio, &Settings::AdvancedMode}) {
    settings.*option = random() % 2 == 0;
  }
  settings.TextButtons = int(random() % 3);
  return settings;
}

TEST(RandomProjectTest, CompilesAndIsUnderstood) {
  unsigned compiled = 0;
  unsigned checked = 0;
  for (unsigned seed = 1; seed <= kProjects; ++seed) {
    SCOPED_TRACE(seed);
    RandomUser user(seed, AnySettings(seed));
    for (int edit = 0; edit < kEdits; ++edit) user.Act();
    Project& project = user.ThisProject();
    for (const QString& key : DiscMenuKeys(project)) {
      const std::vector<ButtonView> buttons = MenuView(project.Tree, key).Buttons();
      if (buttons.empty() || user.Below(4) != 0) continue;
      SetAutoAction(project, key, buttons[std::size_t(user.Below(int(buttons.size())))].Number(),
                    AutoActions{u"jump title 1;"_s, u"exit;"_s, u"exit;"_s, u"exit;"_s});
      const ButtonView& blank = buttons[std::size_t(user.Below(int(buttons.size())))];
      project.Tree.SetCaption(blank.Key() + u"Text", u"Text= "_s);
      project.Tree.SetCaption(blank.Drawing().Key() + u"NormVis", u"NormVis=0"_s);
    }
    const QList<Finding> findings = StructureFindings(project) + LimitFindings(project, PlanUse::SyntaxCheck);
    if (!findings.isEmpty()) continue;
    ++compiled;

    QMap<QString, QStringList> spuButtons;
    for (const QString& key : DiscMenuKeys(project)) {
      const MenuView menu(project.Tree, key);
      const std::vector<ButtonRectangle> rectangles = ButtonRectangles(menu, project.Settings);
      spuButtons.insert(ButtonsOf(SpuXmlText(menu, rectangles, SpuFile::Frame, Harmless(project.Settings))));
    }
    const QByteArray author = project.Settings.NoTitleSets
                                  ? WriteAuthorXmlSingle(project, AuthorMode::Run, Harmless(project.Settings))
                                  : WriteAuthorXmlTitlesets(project, AuthorMode::Run, Harmless(project.Settings));
    EXPECT_EQ(ButtonsOf(author), spuButtons);
    for (const QByteArray& line : WriteVideoBatch(project, Harmless(project.Settings)).batch.split('\n')) {
      EXPECT_EQ(line.count('"') % 2, 0) << line.toStdString();
    }
    if (project.FilmCount == 0 || checked == kChecked) continue;
    ++checked;
    Workshop workshop;
    const Result<QByteArray> text = ProjectFileText(project);
    ASSERT_TRUE(text);
    workshop.project = ProjectText(*text);
    EXPECT_TRUE(Succeeded(workshop.Run(u"check"_s))) << author.toStdString();
  }
  EXPECT_GT(compiled, kProjects * 3 / 4);
  EXPECT_EQ(checked, kChecked);
}

}  // namespace
}  // namespace torvane::test
