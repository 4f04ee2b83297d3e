#include "core/settings_defaults.h"

#include <gtest/gtest.h>

#include <QStandardPaths>

#include "core/messages.h"
#include "core/program.h"
#include "core/settings_store.h"
#include "support/drive_c.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The program directory C:\app and the profile C:\profile of one start, empty at first.
class LoadSettingsTest : public testing::Test {
 protected:
  ~LoadSettingsTest() override { SetLanguage(kEnglish); }

  QString Dos(const QString& relative) const { return HostFiles::ToDos(Host(relative)); }
  QString Host(const QString& relative) const { return drive_.Host(relative); }

  Settings Load(const QList<SettingOverride>& overrides = {}, ViewerCheck viewerCheck = ViewerCheck::Skip) {
    prompter_.boxes.clear();
    return LoadSettings({.profileDir = Host(u"profile"_s),
                         .overrides = overrides,
                         .appPath = Dos(u"app"_s),
                         .viewerCheck = viewerCheck},
                        prompter_);
  }

  test::DriveC drive_{{u"app/GifMask"_s, u"Films"_s}};
  test::RecordingPrompter prompter_;
};

TEST(Program, TheDataFilesLieBesideIt) {
  EXPECT_TRUE(HostFiles::FileExists(ProgramDir() + u"\\default.jpg"_s));
  EXPECT_TRUE(HostFiles::FileExists(ProgramDir() + u"\\avisynthpic.gif"_s));
}

TEST_F(LoadSettingsTest, AFirstStartCompletesTheDefaultsFromTheMachine) {
  const QString documents = DocumentsDir();
  Settings expected;
  expected.AppPath = Dos(u"app"_s);
  expected.OutDir = documents + u"\\TVNOutDir"_s;
  expected.TempDir = documents + u"\\TVNOutDir\\Temp"_s;
  expected.DvdAuthorPath = expected.AppPath;
  expected.InDir = expected.OwnDir = expected.OwnAudioDir = documents;
  expected.OwnGifMaskDir = expected.AppPath + u"\\GifMask"_s;
  expected.ExternalViewer = expected.AppPath + u"\\TVNDSView.exe"_s;
  expected.ViewerName = u"TVNDSView"_s;
  expected.TVNLogFile = expected.AppPath + u"\\tvn.log"_s;

  EXPECT_EQ(Load(), expected);
  EXPECT_TRUE(HostFiles::DirExists(expected.TempDir));
  EXPECT_EQ(prompter_.Told(), QStringList());
}

TEST_F(LoadSettingsTest, OverridesStandAboveTheStoreWhichKeepsItsValues) {
  const SettingsStore store(Host(u"profile"_s));
  const SettingTexts stored{{u"RasterX"_s, u"8"_s}, {u"RasterY"_s, u"24"_s}, {u"OutDir"_s, u"C:\\Films\\"_s}};
  ASSERT_TRUE(store.Write(stored));
  const Settings settings = Load({{u"RasterX"_s, u"32"_s}, {u"RasterX"_s, u"64"_s}, {u"VideoNormPal"_s, u"0"_s}});
  EXPECT_EQ(settings.RasterX, 64);
  EXPECT_EQ(settings.ActiveRasterX, 64);
  EXPECT_EQ(settings.ActiveRasterY, 24);
  EXPECT_EQ(settings.VideoHeight, 480);
  EXPECT_EQ(settings.BackButtonYpos, 450);
  EXPECT_EQ(settings.OutDir, u"C:\\Films"_s);
  EXPECT_EQ(*store.Read(), stored);
}

TEST_F(LoadSettingsTest, PathsOfOverridesMayBeHostPaths) {
  QDir(Host(u"work/t"_s)).mkpath(u"."_s);
  drive_.Write(u"work/intro.mpg"_s);
  const Settings settings = Load({{u"OutDir"_s, Host(u"work"_s)},
                                  {u"TempDir"_s, Host(u"work/t"_s)},
                                  {u"IntroMovie"_s, Host(u"work/intro.mpg"_s)},
                                  {u"UseIntro"_s, u"1"_s},
                                  {u"ISOPath"_s, u"C:/Films"_s}});
  EXPECT_EQ(settings.OutDir, Dos(u"work"_s));
  EXPECT_EQ(settings.TempDir, Dos(u"work/t"_s)) << "TempDir alone switches TempOutDir off";
  EXPECT_FALSE(settings.TempOutDir);
  EXPECT_EQ(settings.IntroMovie, Dos(u"work/intro.mpg"_s));
  EXPECT_TRUE(settings.UseIntro);
  EXPECT_EQ(settings.ISOPath, u"C:\\Films"_s);

  const Settings both = Load({{u"TempOutDir"_s, u"1"_s}, {u"TempDir"_s, u"C:\\Films"_s}, {u"OutDir"_s, u"C:\\"_s}});
  EXPECT_EQ(both.TempDir, u"C:\\Temp"_s);
  EXPECT_EQ(prompter_.Told(), QStringList());
}

TEST_F(LoadSettingsTest, AnIntroThatIsMissingIsNotUsed) {
  EXPECT_FALSE(Load({{u"UseIntro"_s, u"1"_s}}).UseIntro);
  EXPECT_FALSE(Load({{u"UseIntro"_s, u"1"_s}, {u"IntroMovie"_s, u"C:\\none.mpg"_s}}).UseIntro);
}

TEST_F(LoadSettingsTest, ADirectoryThatIsGivenStaysThereOrNot) {
  for (const QString& dir : {u"C:\\Films"_s, u"C:\\Films\\a\\b"_s, u"C:\\nothing"_s}) {
    EXPECT_EQ(Load({{u"OutDir"_s, dir + u'\\'}}).OutDir, dir);
    EXPECT_EQ(Load({{u"TempDir"_s, dir}}).TempDir, dir);
    ASSERT_TRUE(SettingsStore(Host(u"profile"_s)).Write({{u"OutDir"_s, dir}}));
    EXPECT_EQ(Load().OutDir, dir);
    EXPECT_EQ(Load().TempDir, dir + u"\\Temp");
    EXPECT_EQ(prompter_.Told(), QStringList());
  }
  EXPECT_FALSE(HostFiles::DirExists(u"C:\\nothing"_s) || HostFiles::DirExists(u"C:\\Films\\a"_s));
  EXPECT_EQ(Load({{u"TempOutDir"_s, u"0"_s}}).TempDir, Dos(u"app"_s) + u"\\Temp"_s);
}

TEST_F(LoadSettingsTest, FilesThatWouldBeDeletedFromTheTemporaryDirectoryAreTold) {
  drive_.Write(u"Films/mine.mpg"_s);
  EXPECT_EQ(Load({{u"TempDir"_s, u"C:\\Films"_s}}).TempDir, u"C:\\Films"_s);
  EXPECT_EQ(prompter_.Told(), QStringList());
  Load({{u"TempDir"_s, u"C:\\Films"_s}, {u"AutoDelete"_s, u"1"_s}});
  EXPECT_EQ(prompter_.Told(),
            QStringList{u"The temp directory: C:\\Films is not empty, and you have set the\r\n"
                        u"option to delete files in this temp directory after authoring.\r\n"
                        u"Please make sure that there are no files you want to keep\r\nbefore you run 'Create DVD'!"_s});
}

TEST_F(LoadSettingsTest, MissingViewersAreToldWhereAsked) {
  drive_.Write(u"play.er.exe"_s);
  const QList<SettingOverride> overrides{{u"DVDViewer"_s, u"C:\\play.er.exe"_s},
                                         {u"ExternalViewer"_s, u"C:\\x\\see.exe"_s}};
  const Settings settings = Load(overrides, ViewerCheck::Tell);
  EXPECT_EQ(settings.DVDViewerName, u"play.er"_s);
  EXPECT_EQ(settings.ViewerName, u"see"_s);
  EXPECT_EQ(prompter_.Told(), QStringList{u"ERROR! Video Viewer: C:\\x\\see.exe not found!"_s});
}

TEST_F(LoadSettingsTest, ModesFontsMasksAndLanguageFollow) {
  drive_.Write(u"app/GifMask/star.gif"_s);
  drive_.Write(u"Films/own.gif"_s);
  const Settings settings = Load(
      {{u"LangID"_s, u"2000"_s}, {u"NoMenus"_s, u"1"_s}, {u"AnimatedMainMenu"_s, u"1"_s}, {u"AdvancedMode"_s, u"1"_s},
       {u"DefaultFont"_s, uR"(Times\10.5\1\0\0\1)"_s}, {u"TitleFont"_s, uR"(Courier\8\0\0\0\0)"_s},
       {u"OwnGifMaskDir"_s, u"C:\\Films\\"_s}, {u"DefAnimGif"_s, u"1;33,5;-4;5;2;star.gif"_s},
       {u"DefImagGif"_s, u"1;50;0;0;0;own.gif"_s}, {u"DefBackButtonGif"_s, u"1;50;0;0;0;gone.gif"_s}});
  EXPECT_EQ(CurrentLanguage(), kGerman);
  EXPECT_TRUE(settings.GoNextTitle && settings.NoShowTitleSetMenu);
  EXPECT_FALSE(settings.AnimatedMainMenu || settings.AdvancedMode);
  const FontRecord times{.Name = u"Times"_s, .Size = 10.5, .Bold = true, .Underline = true};
  EXPECT_EQ(settings.DefaultFont, times);
  EXPECT_EQ(settings.ArtistFont, times);
  EXPECT_EQ(FormatFontString(settings.TitleFont), u"Courier\\8\\0\\0\\0\\0"_s);
  EXPECT_EQ(FormatMaskString(settings.DefAnimGif), u"1;33.5;-4;5;2;star.gif"_s);
  EXPECT_EQ(FormatMaskString(settings.DefImagGif), u"1;50;0;0;0;own.gif"_s);
  EXPECT_EQ(FormatMaskString(settings.DefBackButtonGif), u"0;50;0;0;0;"_s);
}

TEST_F(LoadSettingsTest, WhatCannotBeWrittenBesideTheProgramGoesToTheUsersData) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  const Settings settings = LoadSettings({.profileDir = Host(u"profile"_s),
                                          .overrides = {{u"TempOutDir"_s, u"0"_s}},
                                          .appPath = Dos(u"no program here"_s)},
                                         prompter_);
  EXPECT_EQ(settings.TVNLogFile, HostFiles::ToDos(data + u"/torvane/tvn.log"_s));
  EXPECT_EQ(settings.TempDir, HostFiles::ToDos(data + u"/torvane/Temp"_s));
}

}  // namespace
}  // namespace torvane
