#include "core/settings_project.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/host_files.h"
#include "support/golden.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString AsText(const QList<ProjectElement>& elements) {
  QString text;
  for (const ProjectElement& element : elements) {
    text += element.name;
    for (const auto& [name, value] : element.attributes) text += u' ' + name + u"=\"" + value + u'"';
    text += u'\n';
  }
  return text;
}

ElementAttributes AsRead(const QList<ProjectElement>& elements) {
  ElementAttributes read;
  for (const ProjectElement& element : elements) {
    for (const auto& [name, value] : element.attributes) read[element.name].insert(name, value);
  }
  return read;
}

TEST(ProjectSettings, DefaultsStandInFileOrder) {
  test::ExpectGolden(AsText(ProjectAttributes({})).toUtf8(), u"default_settings.txt"_s);
}

TEST(ProjectSettings, AProjectBringsItsSettingsIntoAnyProgram) {
  const QTemporaryDir masks;
  ASSERT_TRUE(HostFiles::WriteAtomically(HostFiles::ToDos(masks.path() + u"/own.gif"_s), "x"));
  Settings saved;
  saved.VideoNormPal = saved.RoundedButtonFrames = saved.DefaultLoop = saved.PostGoMain = false;
  saved.NoTitleSets = saved.DefMenuRatio = saved.AdvancedMode = saved.AutoCrop = saved.LoopSyntax = true;
  saved.AutoChapter = 2;
  saved.LastImageSize = 5;
  saved.Engine = 1;
  saved.Def169Mode = 1;
  saved.DefaultFont = {.Name = u"Times"_s, .Size = 9.5, .Italic = true};
  saved.OwnGifMaskDir = HostFiles::ToDos(masks.path());
  saved.DefAnimGif = {.Enabled = true, .File = u"own.gif"_s, .RelSize = 50, .XOffset = -2, .YOffset = 3};
  saved.DefBackButtonText = u"a & b\r\nc"_s;
  saved.DefBBOutline = u"1;2;3;1;"_s;
  saved.VideoHeight = 480;

  Settings other;
  other.NoMenus = true;
  other.OwnGifMaskDir = u"C:\\elsewhere"_s;
  ReadProjectSettings(AsRead(ProjectAttributes(saved)), 1.07F, {}, other);
  EXPECT_EQ(other, saved);
}

/// What each version reads of one and the same content, in the order DefButtomType, Engine, DefShadow, DefBBOutline.
TEST(ProjectSettings, TheVersionDecidesWhichElementsAreRead) {
  const ElementAttributes elements{
      {u"SETTINGS"_s, {{u"NORM"_s, u"0"_s}, {u"LASTIMAGESIZE"_s, u"-4"_s}}},
      {u"SETTINGS4"_s, {{u"DEFBUTTONTYPE"_s, u"2"_s}, {u"ENGINE"_s, u"1"_s}, {u"DEFSHADOW"_s, u"10;20;30;1;40;50;"_s}}},
      {u"SETTINGS5"_s, {{u"ENGINE"_s, u"0"_s}, {u"DEFSHADOW"_s, u"1;2;3;1;"_s}, {u"DEFBBOUTLINE"_s, u"4;4;4;1;"_s}}},
  };
  const struct {
    float version;
    int buttonType;
    int engine;
    QString shadow;
    QString outline;
  } cases[] = {
      {0.7F, 0, 0, u"128;5;6;0;"_s, u"0;0;0;0;"_s},    {0.85F, 0, 0, u"128;5;6;0;"_s, u"0;0;0;0;"_s},
      {0.851F, 2, 1, u"10;20;30;0;"_s, u"0;0;0;0;"_s}, {1.04F, 2, 1, u"10;20;30;0;"_s, u"0;0;0;0;"_s},
      {1.041F, 2, 0, u"1;2;3;1;"_s, u"4;4;4;1;"_s},    {1.07F, 2, 0, u"1;2;3;1;"_s, u"4;4;4;1;"_s},
  };
  for (const auto& [version, buttonType, engine, shadow, outline] : cases) {
    Settings expected;
    expected.VideoNormPal = false;
    expected.VideoHeight = 480;
    expected.LastImageSize = 4;
    expected.DefButtomType = buttonType;
    expected.Engine = engine;
    expected.DefShadow = shadow;
    expected.DefBBOutline = outline;
    if (version > 0.85F) expected.DefAudioTSType = 0;
    Settings settings;
    ReadProjectSettings(elements, version, {}, settings);
    EXPECT_EQ(settings, expected) << version;
  }
}

TEST(ProjectSettings, WhatTheFormerLayoutLacksIsClearOrStays) {
  Settings settings;
  settings.LoopSyntax = settings.AdjNTSCtc = settings.NoMenus = true;
  settings.Engine = settings.Def169Mode = 1;
  settings.DefBlock = u"7;7;7;1;"_s;
  settings.DefLabelPos = 3;
  Settings expected;
  expected.DefAudioTSType = 0;
  expected.DefBlock = u"7;7;7;1;"_s;
  expected.DefLabelPos = 3;
  ReadProjectSettings({}, 1.0F, {}, settings);
  EXPECT_EQ(settings, expected);
}

TEST(ProjectSettings, AProjectWithoutMenusPlaysOn) {
  Settings settings;
  ReadProjectSettings({{u"SETTINGS"_s, {{u"ANIMATED"_s, u"1"_s}, {u"ADVANCED"_s, u"1"_s}, {u"PREACT1"_s, u"0"_s}}},
                       {u"SETTINGS4"_s, {{u"NOMENUS"_s, u"1"_s}}}},
                      1.04F, {}, settings);
  EXPECT_TRUE(settings.NoMenus && settings.GoNextTitle && settings.NoShowTitleSetMenu);
  EXPECT_FALSE(settings.AnimatedMainMenu || settings.AdvancedMode);
}

}  // namespace
}  // namespace torvane
