#include "core/project_file.h"

#include <gtest/gtest.h>

#include <QFile>

#include "core/project_xml.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"
#include "support/tree_dump.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

const QString kFile = u"C:\\p\\x.tvn"_s;

class ProjectFileTest : public testing::Test {
 protected:
  ProjectFileTest() : settings_(test::FixedSettings()) {
    settings_.InDir = u"C:\\In"_s;
  }

  static QByteArray Document(const QByteArray& version, const QByteArray& rest) {
    return "<NODES>\r\n  <SETTINGS TVNVERSION=\"" + version + "\" NORM=\"0\"/>\r\n" + rest + "</NODES>";
  }
  /// Nodes each within the other.
  static QByteArray Nested(int levels) {
    QByteArray nodes;
    for (int i = 0; i < levels; ++i) nodes += "<NODE Key=\"k" + QByteArray::number(i) + "\">";
    return nodes + QByteArray("</NODE>").repeated(levels);
  }
  test::DriveC drive_{{u"p"_s, u"O"_s, u"In"_s, u"App"_s}};
  Settings settings_;
  test::RecordingPrompter prompter_;
};

TEST_F(ProjectFileTest, WritesOneElementALineWithTheVersionOnTheSecond) {
  Project project(settings_);
  project.Tree.Add({.Key = u"TS"_s, .Caption = u"a<b> & \"c\"\r\n\td"_s});
  project.Tree.Add({.Key = u"MM"_s, .Caption = u"Größe"_s, .Tag = u"MM2"_s, .Image = kHeadNode}, u"TS"_s,
                   Relation::Child);
  const Result<QByteArray> text = ProjectFileText(project);
  ASSERT_TRUE(text);
  const QList<QByteArray> lines = text->split('\n');
  ASSERT_EQ(lines.size(), 10);
  EXPECT_EQ(lines[0], "<NODES>\r");
  EXPECT_TRUE(lines[1].startsWith("  <SETTINGS TVNVERSION=\"1.07\" NORM=\"1\" NOTS=\"1\" MRATIO=\"0\" ")) << lines[1].data();
  EXPECT_TRUE(lines[5].startsWith("  <SETTINGS5 LOOPSYNTAX=\"0\" ENGINE=\"0\" _169MODE=\"0\" ")) << lines[5].data();
  EXPECT_EQ(lines[6],
            "  <NODE Caption=\"a&lt;b&gt; &amp; &quot;c&quot;&#13;&#10;&#9;d\" Key=\"TS\" Tag=\"\" Image=\"1\" "
            "ParentKey=\"\">\r");
  EXPECT_EQ(lines[7],
            "    <NODE Caption=\"Gr\xC3\xB6\xC3\x9F" "e\" Key=\"MM\" Tag=\"MM2\" Image=\"7\" ParentKey=\"TS\"/>\r");
  EXPECT_EQ(lines[8], "  </NODE>\r");
  EXPECT_EQ(lines[9], "</NODES>");
}

TEST_F(ProjectFileTest, SavedAndLoadedIsTheSameProject) {
  Project project(settings_);
  test::BuildTwoFilms(project);
  project.Tree.SetCaption(u"MMB1Text"_s, u"Text=two\r\nlines & \"more\" <ä€> \t."_s);
  project.Tree.SetTag(u"FPV1"_s, u"\u00FD\u00FE\u00FF"_s);
  CalculateTotalSize(project);
  project.ProjectFile = kFile;
  project.Settings.RoundedButtonFrames = false;
  project.Settings.Def169Mode = 2;
  project.Settings.DefBackButtonText = u"Zurück \"hier\""_s;
  ASSERT_TRUE(SaveProject(project, prompter_));
  ASSERT_TRUE(prompter_.boxes.empty());

  Project loaded(settings_);
  ASSERT_TRUE(LoadProject(loaded, kFile, prompter_));
  EXPECT_EQ(test::DumpTree(loaded.Tree), test::DumpTree(project.Tree));
  EXPECT_EQ(loaded.Settings, project.Settings);
  EXPECT_EQ(loaded.MainSubMenuTable, project.MainSubMenuTable);
  EXPECT_EQ(loaded.FilmCount, 2);
  EXPECT_EQ(ProjectFileText(loaded).operator*(), ProjectFileText(project).operator*());
  EXPECT_EQ(loaded.UserSettings, settings_);
}

TEST_F(ProjectFileTest, ReadsTheVersionsItKnows) {
  const std::pair<QByteArray, bool> versions[] = {
      {"0.69", false},  {"0.6994", false}, {"0.7", true},   {"0.7004", true}, {"0,85", true},
      {"1.07", true},   {"1.0704", true},  {"1.0706", false}, {"1.08", false},  {"", false},
      {"x", false},     {"99999999999999999999", false}};
  for (const auto& [version, loads] : versions) {
    drive_.Write(u"p/x.tvn"_s, Document(version, ""));
    Project project(settings_);
    test::RecordingPrompter prompter;
    EXPECT_EQ(LoadProject(project, kFile, prompter), loads) << version.data();
    EXPECT_EQ(prompter.boxes.empty(), loads);
  }
}

TEST_F(ProjectFileTest, ReadsTheAttributeWhoseNameBeginsWithDigits) {
  drive_.Write(u"p/x.tvn"_s, Document("1.041", "<SETTINGS4 169MODE=\"1\" X=\"a > 169MODE='7'\"/>\r\n"
                                               "<SETTINGS5 ENGINE=\"1\" 169MODE = \"2\"/>\r\n"));
  Project project(settings_);
  ASSERT_TRUE(LoadProject(project, kFile, prompter_)) << prompter_.boxes.back().text.toStdString();
  EXPECT_EQ(project.Settings.Def169Mode, 2);
  EXPECT_EQ(project.Settings.Engine, 1);
  EXPECT_FALSE(project.Settings.VideoNormPal);
  EXPECT_EQ(project.Settings.VideoHeight, 480);
}

TEST_F(ProjectFileTest, AFileThatCannotBeReadLeavesTheOpenProjectAlone) {
  const std::pair<QByteArray, QString> cases[] = {
      {"", u"ERROR! Wrong file version!"_s},
      {"<NODES>\r\n<SETTINGS NORM=\"1\"/></NODES>", u"ERROR! Wrong file version!"_s},
      {Document("1.07", "<NODE Key=\"a\">"), u"Could not load file C:\\p\\x.tvn"_s},
      {Document("1.07", "<NODE Key=\"a\" Key=\"b\"/>"), u"Could not load file C:\\p\\x.tvn"_s},
      {"<!DOCTYPE a [<!ENTITY b \"c\"><!ENTITY d \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">]><NODES>\n"
       "<SETTINGS TVNVERSION=\"1.07\"/>&undefined;</NODES>",
       u"Could not load file C:\\p\\x.tvn"_s},
      {Document("1.07", "<NODE Key=\"a\" Caption=\"A\"><NODE Key=\"b\"/></NODE><NODE Key=\"b\" Caption=\"second\"/>"),
       u"ERROR loading node!\r\nParent: Top\r\nKey: b\r\nCaption: second\r\n\r\n"
       u"Read the error condition and post it in a support forum\r\nProgram terminates after 'Ok'!"_s},
      {Document("1.07", "<NODE Key=\"a\"><NODE Caption=\"no key\"/></NODE>"),
       u"ERROR loading node!\r\nParent: a\r\nKey: \r\nCaption: no key\r\n\r\n"
       u"Read the error condition and post it in a support forum\r\nProgram terminates after 'Ok'!"_s},
      {Document("1.07", Nested(1'000'000)), u"Could not load file C:\\p\\x.tvn"_s},
      {Document("1.07", QByteArray("<NODE/>").repeated(500'001)), u"Could not load file C:\\p\\x.tvn"_s},
  };
  Project project(settings_);
  test::BuildTwoFilms(project);
  const QString before = test::DumpTree(project.Tree);
  for (const auto& [text, message] : cases) {
    drive_.Write(u"p/x.tvn"_s, text);
    test::RecordingPrompter prompter;
    EXPECT_FALSE(LoadProject(project, kFile, prompter));
    ASSERT_EQ(prompter.boxes.size(), 1U);
    EXPECT_EQ(prompter.boxes[0].kind, BoxKind::Error);
    EXPECT_TRUE(prompter.boxes[0].text.startsWith(message)) << prompter.boxes[0].text.toStdString();
    EXPECT_EQ(test::DumpTree(project.Tree), before);
    EXPECT_EQ(project.FilmCount, 2);
  }
  EXPECT_FALSE(LoadProject(project, u"C:\\p\\missing.tvn"_s, prompter_));
}

TEST_F(ProjectFileTest, AFileThatIsTooLargeForAProjectIsNotRead) {
  drive_.Write(u"p/x.tvn"_s, Document("1.07", ""));
  ASSERT_TRUE(QFile::resize(HostFiles::ToHost(kFile), 64LL * 1048576 + 1));
  Project project(settings_);
  EXPECT_FALSE(LoadProject(project, kFile, prompter_));
  EXPECT_FALSE(LoadProject(project, u"Z:\\dev\\zero"_s, prompter_));
  ASSERT_EQ(prompter_.boxes.size(), 2U);
  for (const Box& box : prompter_.boxes) {
    EXPECT_TRUE(box.text.endsWith(u" has more than 64 MB; at most 64 are read")) << box.text.toStdString();
  }
}

TEST_F(ProjectFileTest, FindsFilesThatMoved) {
  for (const QString& file : {u"In/film.m2v"_s, u"p/sound.ac3"_s, u"O/back.png"_s, u"App/default.jpg"_s, u"p/mask.gif"_s}) {
    drive_.Write(file);
  }
  Project project(settings_);
  test::BuildTwoFilms(project);
  project.Tree.SetCaption(u"FPV1"_s, u"Video=D:\\old\\film.m2v"_s);
  project.Tree.SetCaption(u"FPV2"_s, u"Video=D:\\old\\gone.m2v"_s);
  test::AddNode(project, u"FP1"_s, u"FP1A1|Audio1=D:\\old\\sound.ac3"_s);
  project.Tree.SetCaption(u"MMBGPath"_s, u"Image=D:\\old\\Default.JPG"_s);
  project.Tree.SetCaption(u"MM1BGPath"_s, u"Image=D:\\old\\back.png"_s);
  test::AddNode(project, u"MMB1"_s, u"MMB1GifMask|GifMask=1"_s);
  test::AddNode(project, u"MMB1GifMask"_s, u"MMB1GifMaskGif|Gif=other.gif|D:\\old\\mask.gif"_s);
  test::AddNode(project, u"MMI"_s, u"MMI1|Image1"_s);
  test::AddNode(project, u"MMI1"_s, u"MMI1File|D:\\old\\gone.m2v"_s);
  project.ProjectFile = kFile;
  ASSERT_TRUE(SaveProject(project, prompter_));

  Project loaded(settings_);
  ASSERT_TRUE(LoadProject(loaded, kFile, prompter_));
  const auto caption = [&loaded](const QString& key) { return loaded.Tree.Find(key)->Caption(); };
  EXPECT_EQ(caption(u"FPV1"_s), u"Video=C:\\In\\film.m2v"_s);
  EXPECT_EQ(caption(u"FP1A1"_s), u"Audio1=C:\\p\\sound.ac3"_s);
  EXPECT_EQ(caption(u"MMBGPath"_s), u"Image=C:\\App\\default.jpg"_s);
  EXPECT_EQ(caption(u"MM1BGPath"_s), u"Image=C:\\O\\back.png"_s);
  EXPECT_EQ(loaded.Tree.Find(u"MMB1GifMaskGif"_s)->Tag(), u"C:\\p\\mask.gif"_s);
  EXPECT_EQ(caption(u"FPV2"_s), u"Video=D:\\old\\gone.m2v"_s);
  EXPECT_EQ(prompter_.Told(), QStringList(u"The following resources could not be found\r\nD:\\old\\gone.m2v"_s));
}

TEST_F(ProjectFileTest, PathsTakeTheirDosForm) {
  drive_.Write(u"p/x.tvn"_s, Document("1.07",
                                      "<SETTINGS5 OWNGIFMASKDIR=\"masks\"/>"
                                      "<NODE Key=\"FPV1\" Caption=\"Video=v/a.m2v\" Tag=\"v/a.m2v\"/>"
                                      "<NODE Key=\"FP3A12\" Caption=\"Audio3=/tmp/a.ac3\"/>"
                                      "<NODE Key=\"FP2S1\" Caption=\"xxxxxxxxxxZ:/tmp/a.srt\"/>"
                                      "<NODE Key=\"FPA1#01IMAGE\" Caption=\"Image=..\\i.png\"/>"
                                      "<NODE Key=\"SM7BGAni\" Caption=\"Animation=a.mpg\"/>"
                                      "<NODE Key=\"MMI1File\" Caption=\"i.png\"/>"
                                      "<NODE Key=\"TS2S01\" Caption=\"Ani=a.mpg\"/>"
                                      "<NODE Key=\"MM3B5GifMaskGif\" Caption=\"Gif=m.gif\" Tag=\"m.gif\"/>"
                                      "<NODE Key=\"MMB5Gif\" Caption=\"Gif=m.gif\" Tag=\"m.gif\"/>"
                                      "<NODE Key=\"FP1A1\" Caption=\"Audio1=a&quot; &amp; touch b\"/>"
                                      "<NODE Key=\"MMB1Text\" Caption=\"Text=v/a.m2v\"/>"
                                      "<NODE Key=\"MMBGPath\" Caption=\"Image=\"/>"));
  Project project(settings_);
  ASSERT_TRUE(LoadProject(project, kFile, prompter_));
  EXPECT_EQ(test::DumpTree(project.Tree),
            u"FPV1|Video=C:\\p\\v\\a.m2v|v/a.m2v|0\n"
            u"FP3A12|Audio3=Z:\\tmp\\a.ac3||0\n"
            u"FP2S1|SubTitel2=Z:\\tmp\\a.srt||0\n"
            u"FPA1#01IMAGE|Image=C:\\i.png||0\n"
            u"SM7BGAni|Animation=C:\\p\\a.mpg||0\n"
            u"MMI1File|C:\\p\\i.png||0\n"
            u"TS2S01|Ani=C:\\p\\a.mpg||0\n"
            u"MM3B5GifMaskGif|Gif=m.gif|C:\\p\\m.gif|0\n"
            u"MMB5Gif|Gif=m.gif|C:\\p\\m.gif|0\n"
            u"FP1A1|Audio1=a\" & touch b||0\n"
            u"MMB1Text|Text=v/a.m2v||0\n"
            u"MMBGPath|Image=||0\n"_s);
  EXPECT_EQ(project.Settings.OwnGifMaskDir, u"C:\\p\\masks"_s);
}

TEST_F(ProjectFileTest, ListsTwentyMissingFiles) {
  QByteArray nodes;
  QString told = u"The following resources could not be found"_s;
  for (int i = 1; i <= 25; ++i) {
    nodes += "<NODE Key=\"FPV" + QByteArray::number(i) + "\" Caption=\"Video=D:\\x" + QByteArray::number(i) + "\"/>";
    if (i <= 20) told += u"\r\nD:\\x" + QString::number(i);
  }
  drive_.Write(u"p/x.tvn"_s, Document("1.07", nodes));
  Project project(settings_);
  ASSERT_TRUE(LoadProject(project, kFile, prompter_));
  EXPECT_EQ(prompter_.Told(), QStringList(told + u"\r\n..."));
}

TEST_F(ProjectFileTest, AFailedSaveKeepsTheFormerFile) {
  Project project(settings_);
  test::BuildTwoFilms(project);
  project.ProjectFile = u"C:\\nowhere\\x.tvn"_s;
  project.History.MarkUnsaved();
  EXPECT_FALSE(SaveProject(project, prompter_));
  EXPECT_FALSE(project.ProjectSaved());
  ASSERT_EQ(prompter_.boxes.size(), 1U);
  EXPECT_TRUE(prompter_.boxes[0].text.startsWith(u"ERROR! File is probably write protected!"));

  drive_.Write(u"p/x.tvn"_s, "former");
  project.ProjectFile = kFile;
  project.Tree.SetCaption(u"MMB2Text"_s, u"Text=\u0001"_s);
  EXPECT_FALSE(SaveProject(project, prompter_));
  EXPECT_TRUE(prompter_.boxes[1].text.contains(u"MMB2Text"));
  EXPECT_EQ(HostFiles::Read(kFile).operator*(), "former");
}

TEST_F(ProjectFileTest, AProjectIsNamedByTheFileItWasSavedTo) {
  Project project(settings_);
  test::BuildTwoFilms(project);
  project.History.MarkUnsaved();
  const QString unnamed = project.ProjectFile;
  EXPECT_FALSE(SaveProjectAs(project, u"C:\\nowhere\\x.tvn"_s, prompter_));
  EXPECT_EQ(project.ProjectFile, unnamed);
  EXPECT_FALSE(project.ProjectNamed || project.ProjectSaved());
  EXPECT_TRUE(SaveProjectAs(project, kFile, prompter_));
  EXPECT_EQ(project.ProjectFile, kFile);
  EXPECT_TRUE(project.ProjectNamed && project.ProjectSaved());
}

TEST_F(ProjectFileTest, TheMenusOwnRasterIsInUse) {
  Project project(settings_);
  test::BuildTwoFilms(project);
  test::AddNode(project, u"MMBG"_s, u"MMBGRasterX|RasterX=8"_s);
  test::AddNode(project, u"MMBG"_s, u"MMBGRasterY|RasterY=0"_s);
  ASSERT_TRUE(SaveProjectAs(project, kFile, prompter_));
  Project loaded(settings_);
  ASSERT_TRUE(LoadProject(loaded, kFile, prompter_));
  EXPECT_EQ(loaded.Settings.ActiveRasterX, 8);
  EXPECT_EQ(loaded.Settings.ActiveRasterY, 2);
}

TEST_F(ProjectFileTest, ReadsTheIntroFromItsNodes) {
  drive_.Write(u"p/x.tvn"_s, Document("1.07", "<NODE Key=\"INTRO\" Caption=\"Intro\"><NODE Key=\"INTROFile\" Caption=\"i.mpg\"/></NODE>"));
  settings_.IntroAudio = u"old"_s;
  Project project(settings_);
  ASSERT_TRUE(LoadProject(project, kFile, prompter_));
  EXPECT_TRUE(project.Settings.UseIntro);
  EXPECT_EQ(project.Settings.IntroMovie, u"C:\\p\\i.mpg"_s);
  EXPECT_EQ(project.Settings.IntroAudio, QString());
}

}  // namespace
}  // namespace torvane
