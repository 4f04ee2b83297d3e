#include "compilers/pipeline.h"

#include <gtest/gtest.h>

#include <QImage>

#include "core/audio_title_set.h"
#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class PipelineTest : public testing::Test {
 protected:
  PipelineTest() : project_(test::FixedSettings()) {
    test::BuildTwoFilms(project_);
    for (const QString& menu : {u"MM"_s, u"MM1"_s}) project_.Tree.SetCaption(menu + u"BGPath", u"Image=C:\\back.png"_s);
    QImage background(72, 57, QImage::Format_RGB32);
    background.fill(Qt::darkBlue);
    background.save(HostFiles::ToHost(u"C:\\back.png"_s));
    for (const QString& film : {u"v/a.m2v"_s, u"v/b.m2v"_s}) drive_.Write(film, test::FilmHead());
  }

  /// The files of the temporary directory but the list of them.
  static QStringList TempNames() {
    QStringList names = HostFiles::FileNames(u"C:\\T"_s);
    names.removeAll(u".torvane-files"_s);
    return names;
  }

  CreateDvdPipeline Pipeline(Prompter& prompter) {
    return {project_, prompter, [this](const QStringList&) { return missingTools_; }};
  }
  CreateDvdPipeline Pipeline() { return Pipeline(prompter_); }

  const test::DriveC drive_{{u"O/DVD/VIDEO_TS"_s, u"T"_s}};
  Project project_;
  test::RecordingPrompter prompter_;
  QStringList missingTools_;
};

TEST_F(PipelineTest, CreateBatchWritesEverythingAndListsIt) {
  CreateDvdPipeline pipeline = Pipeline();
  ASSERT_EQ(pipeline.PrepareCreateBatch(), Readiness::Ready);
  const std::optional<RunPlan> plan = pipeline.BuildProject(BatchUse::WriteOnly);
  ASSERT_TRUE(plan);
  EXPECT_EQ(plan->BatchList.join(u' '),
            u"batchrun0.bat MMBrun1.bat MMBrun2.bat MM1Brun1.bat MM1Brun2.bat EBrun1.bat author.bat");
  EXPECT_EQ(TempNames().join(u' '),
            u"Author.xml EBrun1.bat EmptyBackg.jpg MM1Act.png MM1Backg.png MM1Brun1.bat MM1Brun2.bat MM1High.png "
            u"MM1Spu.xml MMAct.png MMBackg.png MMBrun1.bat MMBrun2.bat MMHigh.png MMSpu.xml MainBatch.bat author.bat "
            u"batchrun0.bat");
  EXPECT_EQ(prompter_.boxes, (std::vector<Box>{{.text = u"Batchfiles created! See MainBatch.bat for details"_s}}));
}

TEST_F(PipelineTest, AMissingToolStopsARunBeforeAnythingIsWrittenAndIsToldOfBatches) {
  missingTools_ = {u"mplex is not installed"_s, u"spumux is not installed"_s};
  EXPECT_FALSE(Pipeline().BuildProject(BatchUse::Run));
  EXPECT_EQ(TempNames(), QStringList());
  EXPECT_TRUE(Pipeline().BuildProject(BatchUse::WriteOnly));
  const QString text = missingTools_.join(u"\r\n");
  ASSERT_EQ(prompter_.boxes.size(), 3U);
  EXPECT_EQ(prompter_.boxes[0], (Box{.kind = BoxKind::Error, .text = text}));
  EXPECT_EQ(prompter_.boxes[1], (Box{.kind = BoxKind::Warning, .text = text}));
}

TEST_F(PipelineTest, WhatIsNotOursInTheTemporaryDirectorySwitchesCleaningOffOrRefusesTheRun) {
  project_.Settings.AutoDelete = project_.Settings.CreateISO = true;
  const auto isoErases = [] { return HostFiles::Read(u"C:\\T\\makeiso.bat"_s)->contains("\r\nerase "); };
  const auto build = [this](BatchUse use) {
    prompter_.boxes.clear();
    return Pipeline().BuildProject(use);
  };
  EXPECT_TRUE(build(BatchUse::Run)->AutoDelete && isoErases());

  drive_.Write(u"T/mine.png"_s);
  const std::optional<RunPlan> plan = build(BatchUse::Run);
  ASSERT_TRUE(plan);
  EXPECT_FALSE(plan->AutoDelete || isoErases());
  EXPECT_TRUE(prompter_.boxes.at(0).text.contains(u"did not make, such as mine.png"))
      << prompter_.boxes[0].text.toStdString();
  EXPECT_TRUE(build(BatchUse::WriteOnly));
  EXPECT_TRUE(HostFiles::Read(u"C:\\T\\makeiso.bat"_s)->contains("\r\nREM erase ")) << "batches follow the setting";

  for (const QString& name : {u"Author.xml"_s, u"film1.MPG"_s, u"MMBackg.png"_s, u"mmmenu.mpg"_s}) {
    ASSERT_TRUE(HostFiles::RemoveFile(u"C:\\T\\.torvane-files"_s) && HostFiles::RemoveFile(u"C:\\T\\batchrun0.bat"_s));
    for (const QString& file : TempNames()) ASSERT_TRUE(HostFiles::RemoveFile(u"C:\\T\\"_s + file));
    drive_.Write(u"T/"_s + name, "mine");
    EXPECT_FALSE(build(BatchUse::Run)) << name.toStdString();
    EXPECT_TRUE(prompter_.boxes.back().text.contains(name, Qt::CaseInsensitive))
        << prompter_.boxes.back().text.toStdString();
    EXPECT_EQ(*HostFiles::Read(u"C:\\T\\"_s + name), "mine");
  }
}

TEST_F(PipelineTest, WhatAFormerVersionLeftCountsAsOurs) {
  ASSERT_TRUE(Pipeline().BuildProject(BatchUse::WriteOnly));
  for (const QString& name : {u"MMMenu.mpg"_s, u"Film1.mpg"_s}) drive_.Write(u"T/"_s + name);
  const QStringList before = TempNames();
  ASSERT_TRUE(HostFiles::RemoveFile(u"C:\\T\\.torvane-files"_s));
  project_.Settings.AutoDelete = true;
  const std::optional<RunPlan> plan = Pipeline().BuildProject(BatchUse::Run);
  ASSERT_TRUE(plan && plan->AutoDelete);
  TempFiles(u"C:\\T"_s).Clean(SourceGuard({}));
  EXPECT_EQ(TempNames(), QStringList());
  EXPECT_TRUE(before.contains(u"Film1.mpg"_s));
}

TEST_F(PipelineTest, ARealRunEndsWithImageAndClosingLine) {
  project_.Settings.CreateISO = project_.Settings.KeepLogFile = true;
  CreateDvdPipeline pipeline = Pipeline();
  const std::optional<RunPlan> plan = pipeline.BuildProject(BatchUse::Run);
  ASSERT_TRUE(plan);
  EXPECT_EQ(plan->BatchList.sliced(6), (QStringList{u"author.bat"_s, u"makeiso.bat"_s, u"EndTvn.bat"_s}));
  EXPECT_EQ(plan->RunMode, u"0"_s);
  EXPECT_TRUE(plan->LogText.contains(u"Film #2: Film2"));
  EXPECT_FALSE(TempNames().contains(u"MainBatch.bat"_s));
}

TEST_F(PipelineTest, WithoutMenusNoMenuIsCompiled) {
  project_.Settings.NoMenus = project_.Settings.GoNextTitle = true;
  const std::optional<RunPlan> plan = Pipeline().BuildProject(BatchUse::Run);
  ASSERT_TRUE(plan);
  EXPECT_EQ(plan->BatchList, (QStringList{u"batchrun0.bat"_s, u"author.bat"_s, u"EndTvn.bat"_s}));
}

TEST_F(PipelineTest, AMainMenuWithoutButtonsDoesNothing) {
  for (const QString& button : {u"MMB1"_s, u"MMB2"_s, u"MMB3"_s}) project_.Tree.Remove(button);
  CreateDvdPipeline pipeline = Pipeline();
  EXPECT_EQ(pipeline.PrepareCreateDvd(), Readiness::NothingToDo);
  EXPECT_EQ(pipeline.PrepareCreateBatch(), Readiness::NothingToDo);
  EXPECT_TRUE(prompter_.boxes.empty());
}

TEST_F(PipelineTest, ABadMenuStopsWithItsName) {
  project_.Tree.SetCaption(u"MM1BP0Left"_s, u"Left=700"_s);
  EXPECT_FALSE(Pipeline().BuildProject(BatchUse::Run));
  ASSERT_EQ(prompter_.boxes.size(), 1U);
  EXPECT_EQ(prompter_.boxes[0].text.toStdString(),
            "Buttons outside allowed area or minimum distance not matched! MainSubMenu1 (MM1)\r\n"
            "The button BackButton \"Back\" (MM1B0) needs the area 698,59 to 851,91 with its margin, but must lie "
            "within 0,0 to 720,576. Please move it or shorten its text.");
  EXPECT_TRUE(TempNames().contains(u"MMSpu.xml"_s));

  project_.Settings.AutoDelete = true;
  EXPECT_FALSE(Pipeline().BuildProject(BatchUse::Run));
  EXPECT_EQ(TempNames(), QStringList());
}

TEST_F(PipelineTest, WhatCannotBeAuthoredIsRefusedBeforeAnythingIsTouched) {
  const auto text = [this] {
    test::RecordingPrompter prompter;
    CreateDvdPipeline pipeline = Pipeline(prompter);
    EXPECT_EQ(pipeline.PrepareCreateDvd(), Readiness::Refused);
    EXPECT_EQ(TempNames(), QStringList());
    return prompter.boxes.at(0).text;
  };
  project_.Settings.Engine = 1;
  EXPECT_TRUE(text().contains(u"MuxMan"));
  project_.Settings.Engine = 0;
  project_.Settings.NeroBurn = true;
  EXPECT_TRUE(text().contains(u"burnt"));
  project_.Settings.NeroBurn = false;
  test::AddNode(project_, u"MM1P"_s, u"MM1PTrans|Transition=1"_s);
  EXPECT_TRUE(text().contains(u"MainSubMenu1 (MM1) is animated"));
  project_.Tree.Remove(u"MM1PTrans"_s);
  project_.Settings.NoTitleSets = false;
  EXPECT_TRUE(text().contains(u"Film 1 has no titleset menu"));
}

TEST_F(PipelineTest, TitlesetsGetTheirMenusAndAudioTracksTheirSlides) {
  project_.Settings.NoTitleSets = false;
  for (int i = 1; i <= 2; ++i) {
    const QString menu = TitleSetMenuKey(i);
    AddMenuSubtree(project_, {.kind = MenuKind::TitleSetRoot, .number = i, .key = menu});
    project_.Tree.SetCaption(menu + u"BGPath", u"Image=C:\\back.png"_s);
    test::AddTextButton(project_, menu, 0, u"BackButton"_s, u"Back"_s, u"jump vmgm menu;"_s);
  }
  drive_.Write(u"s.ac3"_s, test::SoundHead());
  project_.Tree.Remove(u"F2"_s);
  project_.FilmCount = 1;
  const AudioTitle track{u"C:\\s.ac3"_s, u"A"_s, u"B"_s, u"C"_s, u"C:\\back.png"_s, 0};
  AddAudioTitleSetSubtree(project_, {.Name = u"Songs"_s, .Titles = {track, track}}, u"MM"_s, 2);

  const QString mainMenus = u"batchrun0.bat MMBrun1.bat MMBrun2.bat MM1Brun1.bat MM1Brun2.bat "_s;
  const QString titlesetMenus = u"TS1Brun1.bat TS1Brun2.bat TS2Brun1.bat TS2Brun2.bat "_s;
  const QString end = u"author.bat EndTvn.bat"_s;
  const auto batches = [this] {
    const std::optional<RunPlan> plan = Pipeline().BuildProject(BatchUse::Run);
    return plan ? plan->BatchList.join(u' ') : QString();
  };
  EXPECT_EQ(batches(), mainMenus + titlesetMenus + end);
  EXPECT_EQ(prompter_.boxes, std::vector<Box>());
  EXPECT_EQ(QImage(HostFiles::ToHost(u"C:\\T\\FPA2#02.png"_s)).size(), QSize(720, 576));
  EXPECT_FALSE(TempNames().contains(u"EmptyBackg.jpg"_s));

  project_.Settings.UseIntro = true;
  project_.Settings.IntroMovie = u"C:\\i.mpg"_s;
  EXPECT_EQ(batches(), mainMenus + u"EBrun1.bat " + titlesetMenus + end);
  project_.Settings.NoMenus = true;
  EXPECT_EQ(batches(), u"batchrun0.bat EBrun1.bat " + end);

  project_.Tree.SetCaption(u"FPA2#02FILE"_s, u"File=C:\\no.ac3"_s);
  EXPECT_TRUE(Pipeline().BuildSyntaxCheck());
  EXPECT_EQ(Pipeline().PrepareCreateDvd(), Readiness::Refused);
  ASSERT_EQ(prompter_.boxes.size(), 1U);
  EXPECT_TRUE(prompter_.boxes[0].text.contains(u"Film 2 (Songs), track 2: "));
}

TEST_F(PipelineTest, APaletteThatCannotBeWrittenIsToldAndTheRestIsWritten) {
  test::AddNode(project_, u"FP1"_s, u"FPS1|SubColors=1,2"_s);
  ASSERT_TRUE(HostFiles::MakeDir(u"C:\\T\\Film1.pal"_s));
  ASSERT_TRUE(Pipeline().BuildProject(BatchUse::Run));
  ASSERT_EQ(prompter_.boxes.size(), 1U);
  EXPECT_EQ(prompter_.boxes[0].kind, BoxKind::Warning);
  EXPECT_TRUE(prompter_.boxes[0].text.contains(u"/T/Film1.pal ")) << prompter_.boxes[0].text.toStdString();
}

TEST_F(PipelineTest, NothingIsWrittenOfAProjectWithAValueThatBreaksOut) {
  const std::pair<QString, QString> values[] = {{u"FPV1"_s, u"Video=/tmp/a\" & touch x & rem "_s},
                                                {u"FP1"_s, u"Name=..\\x"_s},
                                                {u"FPCH1"_s, u"Chapters=0\"/><vob file=\"x"_s},
                                                {u"MMB1Action"_s, u"Action=exit;</button><vob file=\"x|\"/>"_s},
                                                {u"MMBGPause"_s, u"Pause=\"><!--"_s},
                                                {u"MM1PPre"_s, u"PreCommand=</pre>"_s}};
  for (const auto& [key, caption] : values) {
    SCOPED_TRACE(key.toStdString());
    if (!project_.Tree.Contains(key)) test::AddNode(project_, u"MMBG"_s, key + u'|');
    const QString former = project_.Tree.Find(key)->Caption();
    project_.Tree.SetCaption(key, caption);
    test::RecordingPrompter prompter;
    CreateDvdPipeline pipeline(project_, prompter);
    EXPECT_EQ(pipeline.PrepareCreateDvd(), Readiness::Refused);
    EXPECT_EQ(pipeline.PrepareCreateBatch(), Readiness::Refused);
    EXPECT_FALSE(pipeline.BuildSyntaxCheck());
    EXPECT_FALSE(pipeline.BuildProject(BatchUse::Run));
    EXPECT_GE(prompter.boxes.size(), 4U);
    for (const Box& box : prompter.boxes) EXPECT_TRUE(box.text.contains(key)) << box.text.toStdString();
    project_.Tree.SetCaption(key, former.isEmpty() ? u"Pause=inf"_s : former);
  }
  EXPECT_FALSE(HostFiles::FileExists(u"C:\\T\\Author.xml"_s));
  EXPECT_FALSE(HostFiles::FileExists(u"C:\\T\\author.bat"_s));
}

TEST_F(PipelineTest, TheSyntaxCheckRunsOneBatch) {
  const std::optional<RunPlan> plan = Pipeline().BuildSyntaxCheck();
  ASSERT_TRUE(plan);
  EXPECT_EQ(*plan, (RunPlan{.BatchList = {u"testrun.bat"_s}, .RunMode = u"1"_s}));
  EXPECT_EQ(TempNames(), (QStringList{u"Author.xml"_s, u"testrun.bat"_s}));
  project_.Settings.Engine = 1;
  EXPECT_FALSE(Pipeline().BuildSyntaxCheck());
  EXPECT_EQ(prompter_.boxes.at(0).text, u"Not yet implemented for MuxMan..."_s);
}

TEST_F(PipelineTest, AFileThatCannotBeWrittenStopsWithItsName) {
  project_.Settings.TempDir = u"C:\\missing"_s;
  EXPECT_FALSE(Pipeline().BuildProject(BatchUse::Run));
  ASSERT_EQ(prompter_.boxes.size(), 1U);
  EXPECT_TRUE(prompter_.boxes[0].text.contains(u"/missing/"));
}

}  // namespace
}  // namespace torvane
