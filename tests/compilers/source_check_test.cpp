#include "compilers/source_check.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

#include "core/audio_title_set.h"
#include "support/drive_c.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Two films, each menu with a picture: everything is there.
class SourceCheckTest : public testing::Test {
 protected:
  SourceCheckTest() : project_(test::FixedSettings()) {
    test::BuildTwoFilms(project_);
    for (const QString& menu : {u"MM"_s, u"MM1"_s}) project_.Tree.SetCaption(menu + u"BGPath", u"Image=C:\\back.png"_s);
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_TRUE(picture.save(drive_.Host(u"back.png"_s)));
    for (const QString& film : {u"v/a.m2v"_s, u"v/b.m2v"_s}) drive_.Write(film, test::FilmHead());
    drive_.Write(u"s.ac3"_s, test::SoundHead());
    drive_.Write(u"s.srt"_s);
    drive_.Write(u"empty"_s, {});
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    EXPECT_TRUE(picture.scaled(300, 300).save(&buffer, "JPG"));
    drive_.Write(u"broken.png"_s, jpeg.chopped(20));  // its reader would take it, and draw the rest grey
  }

  const test::DriveC drive_{{u"folder"_s}};
  Project project_;
};

TEST_F(SourceCheckTest, EachFileThatNoDiscCanBeMadeOfIsToldWithItsPlace) {
  const QString missing = u"no is missing. Please put it back or choose another file."_s;
  const QString empty = u"empty is empty."_s;
  const QString folder = u"folder is no file. Please choose another one."_s;
  const QString noPicture =
      u"broken.png is no picture that can be read. Please choose another one, or save it anew as PNG or JPEG."_s;
  const QString noFilm = u"back.png is a PNG picture; the film of a disc is"_s;
  const QString noSound = u"back.png is a PNG picture; the sound of a disc is"_s;
  struct Case {
    QString parent, node;  ///< "key|caption|tag" of a node that is added, or changed where it is there
    QString key, place, text;
  };
  const Case cases[] = {
      {u"FP1"_s, u"FPV1|Video=C:\\no"_s, u"FPV1"_s, u"Film 1 (Film1)"_s, missing},
      {u"FP1"_s, u"FPV1|Video=C:\\empty"_s, u"FPV1"_s, u"Film 1 (Film1)"_s, empty},
      {u"FP2"_s, u"FPV2|Video=C:\\folder"_s, u"FPV2"_s, u"Film 2 (Film2)"_s, folder},
      {u"FP1"_s, u"FP2A1|Audio2=C:\\no"_s, u"FP2A1"_s, u"Film 1 (Film1), sound 2"_s, missing},
      {u"FP1"_s, u"FPV1|Video=C:\\back.png"_s, u"FPV1"_s, u"Film 1 (Film1)"_s, noFilm},
      {u"FP1"_s, u"FP1A1|Audio1=C:\\back.png"_s, u"FP1A1"_s, u"Film 1 (Film1), sound 1"_s, noSound},
      {u"FP1"_s, u"FP3S1|SubTitel3=C:\\no"_s, u"FP3S1"_s, u"Film 1 (Film1), subtitles 3"_s, missing},
      {u"MMBG"_s, u"MMBGPath|Image=C:\\no"_s, u"MMBGPath"_s, u"Menu MainMenu (MM), background"_s, missing},
      {u"MM1BG"_s, u"MM1BGPath|Image=C:\\broken.png"_s, u"MM1BGPath"_s, u"Menu MainSubMenu1 (MM1), background"_s,
       noPicture},
      {u"MMBG"_s, u"MMBGAudio|Audio=C:\\empty"_s, u"MMBGAudio"_s, u"Menu MainMenu (MM), sound"_s, empty},
      {u"MMI"_s, u"MMI3|Image3;MMI3File|C:\\no"_s, u"MMI3File"_s, u"Menu MainMenu (MM), image 3"_s, missing},
      {u"MMB1"_s, u"MMB1GifMaskGif|Gif=no|C:\\no;MMB1GifMaskRelSize|Rel.Size=90;MMB1GifMaskUseHigh|Highlight=3"_s,
       u"MMB1"_s, u"Menu MainMenu (MM), mask of button MMB1"_s, missing},
  };
  ASSERT_EQ(SourceFindings(project_), QList<Finding>());
  for (const Case& c : cases) {
    Project project(test::FixedSettings());
    test::BuildTwoFilms(project);
    for (const QString& menu : {u"MM"_s, u"MM1"_s}) project.Tree.SetCaption(menu + u"BGPath", u"Image=C:\\back.png"_s);
    QString parent = c.parent;
    for (const QString& node : c.node.split(u';')) {
      const QString key = node.section(u'|', 0, 0);
      if (project.Tree.Contains(key)) {
        project.Tree.SetCaption(key, node.section(u'|', 1, 1));
      } else {
        test::AddNode(project, parent, node);
      }
      if (parent == u"MMI") parent = key;
    }
    const QList<Finding> findings = SourceFindings(project);
    ASSERT_EQ(findings.size(), 1) << c.node.toStdString();
    EXPECT_EQ(findings[0].severity, Severity::Error);
    EXPECT_EQ(findings[0].key, c.key);
    const QString text = c.place + u": " + drive_.Host(c.text);
    EXPECT_EQ(findings[0].text.first(std::min(text.size(), findings[0].text.size())).toStdString(), text.toStdString());
  }
}

TEST_F(SourceCheckTest, WhatNoRunReadsIsNotAsked) {
  // Sound beside a multiplexed film, the video behind a still menu, the menus of a disc without menus.
  test::AddNode(project_, u"FP1"_s, u"FP1A1|Audio1=C:\\no"_s);
  project_.Tree.SetCaption(u"FPMux1"_s, u"Mux=0"_s);
  test::AddNode(project_, u"MMBG"_s, u"MMBGAni|Animation=C:\\no"_s);
  project_.Settings.IntroMovie = u"C:\\no"_s;
  EXPECT_EQ(SourceFindings(project_), QList<Finding>());
  project_.Tree.SetCaption(u"MMBGPath"_s, u"Image=C:\\no"_s);
  EXPECT_EQ(SourceFindings(project_).size(), 1);
  project_.Settings.NoMenus = true;
  EXPECT_EQ(SourceFindings(project_), QList<Finding>());
}

TEST_F(SourceCheckTest, TracksAndIntroAreSources) {
  const AudioTitle track{u"C:\\s.ac3"_s, {}, {}, {}, u"C:\\no"_s, 0};
  AddAudioTitleSetSubtree(project_, {.Name = u"Songs"_s, .Titles = {track}}, u"MM"_s, 3);
  project_.Settings.UseIntro = true;
  project_.Settings.IntroMovie = u"C:\\no.m2v"_s;
  project_.Settings.IntroAudio = u"C:\\no.ac3"_s;
  QStringList texts;
  for (const Finding& finding : SourceFindings(project_)) texts << finding.text.section(u". "_s, 0, 0);
  EXPECT_EQ(texts, (QStringList{u"Film 3 (Songs), track 1: "_s + drive_.Host(u"no is missing"_s),
                                u"Error: Intro video C:\\no.m2v not found!"_s,
                                u"Intro, sound: "_s + drive_.Host(u"no.ac3 is missing"_s)}));
}

}  // namespace
}  // namespace torvane
