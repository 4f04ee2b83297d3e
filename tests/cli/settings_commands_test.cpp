#include "cli_bench.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class SettingsCommandsTest : public test::CliTest {
 protected:
  QString Get(const QString& key) {
    EXPECT_EQ(Run(u"settings get " + key), kExitDone) << error_.toStdString();
    return out_;
  }
};

TEST_F(SettingsCommandsTest, StoresValuesAndShowsThem) {
  EXPECT_EQ(Get(u"RasterX"_s), u"16\n"_s);
  ASSERT_EQ(Run(uR"(settings set RasterX=8 "DefBackButtonText=100% = all" InDir=)" + drive_.Path()), kExitDone);
  EXPECT_EQ(out_, QString());
  EXPECT_EQ(Get(u"RasterX"_s), u"8\n"_s);
  EXPECT_EQ(Get(u"DefBackButtonText"_s), u"100% = all\n"_s);
  EXPECT_EQ(Get(u"InDir"_s), HostFiles::ToDos(drive_.Path()) + u'\n');
  EXPECT_EQ(Get(u"OutDir"_s), u"\n"_s) << "what is given for one run is not stored";

  ASSERT_EQ(Run(u"settings list"_s), kExitDone);
  EXPECT_TRUE(out_.startsWith(u"# Language of the messages: 1000 is English, 2000 German.\nLangID=1000\n"));
  EXPECT_TRUE(out_.contains(u"\nRasterX=8\n# Vertical step of the raster, in pixels.\nRasterY=16\n"));
  EXPECT_EQ(out_.count(u"\n# ") + 1, out_.count(u'=') - 1) << "each setting with its meaning; one value holds an =";
  EXPECT_TRUE(ParseSettingsFile(out_.toUtf8(), u"list"_s)) << "every default is a value of its setting";
}

TEST_F(SettingsCommandsTest, RefusesWhatIsNoSettingAndStoresNothingThen) {
  for (const auto& [arguments, reason] : std::initializer_list<std::pair<QString, QString>>{
           {u"set RasterX=8 RasterY=wide"_s, u"RasterY takes a whole number, not \"wide\"."_s},
           {u"set UseRaster=2"_s, u"UseRaster takes 0 or 1, not \"2\"."_s},
           {u"set ToolPatience=-1"_s, u"ToolPatience takes a number such as 2.5 that is not negative, not \"-1\"."_s},
           {u"set Engine=-1"_s, u"Engine takes 0 or 1, not \"-1\"."_s},
           {u"set DefHighLightFillTrans=256"_s, u"DefHighLightFillTrans takes a number from 0 to 255, not 256."_s},
           {u"set LangID=3"_s, u"LangID takes 1000, 2000, not \"3\"."_s},
           {u"set RasterX=15"_s, u"RasterX takes an even number from 2 to 698, not 15."_s},
           {u"set NumStillFrames=0"_s, u"NumStillFrames takes a number from 1 to 99, not 0."_s},
           {u"set AutoCropVal=1,2"_s,
            u"AutoCropVal takes one number such as 20 or four such as 16,8,-16,-8, not \"1,2\"."_s},
           {u"set DefShadow=dark"_s, u"DefShadow takes four numbers such as 128;5;6;0; and not \"dark\"."_s},
           {u"set DefaultFont=Arial"_s, u"DefaultFont takes a font such as Arial\\12\\0\\0\\0\\0, not \"Arial\"."_s},
           {u"set DefAnimGif=1;100"_s, u"DefAnimGif takes a mask such as 1;100;0;0;1;circle.gif, not \"1;100\"."_s},
           {u"set DefBackButtonText="_s, u"DefBackButtonText takes a text that is not empty."_s},
           {u"set GridLayout=R0C1PX15PY100DX300DY64"_s,
            u"GridLayout: R=0: Must be greater than 0! PX=15: Must be more than 15 Pixel"_s},
           {u"set ISO_Name=film"_s,
            u"ISO_Name takes a name of at most 30 capitals, digits and underscores, not \"film\"."_s},
           {u"list --set VideoNormPal=banana"_s, u"VideoNormPal takes 0 or 1, not \"banana\"."_s},
           {u"project x.tvn get OutDir"_s,
            u"OutDir is a setting of yours, which no project carries; \"settings set\" changes it."_s},
           {u"project x.tvn set RasterX=8"_s,
            u"RasterX is a setting of yours, which no project carries; \"settings set\" changes it."_s},
           {u"set rasterx=8"_s, u"there is no setting \"rasterx\"; it is written \"RasterX\""_s},
           {u"set RasterX"_s, u"\"RasterX\" is not of the form KEY=VALUE"_s},
           {u"get Nothing"_s, u"there is no setting \"Nothing\""_s},
           {u"get"_s,
            u"The command is: settings list, settings get KEY, or settings set KEY=VALUE... (settings project P.tvn in "
            u"front for what a project carries)"_s},
           {u"list all"_s,
            u"The command is: settings list, settings get KEY, or settings set KEY=VALUE... (settings project P.tvn in "
            u"front for what a project carries)"_s}}) {
    EXPECT_EQ(Run(u"settings " + arguments), kExitUsage) << arguments.toStdString();
    EXPECT_EQ(error_, u"torvane-cli: " + reason + u"\nTry: torvane-cli --help\n");
  }
  EXPECT_EQ(Run(u"preset show x.tvp"_s), kExitUsage);
  EXPECT_FALSE(HostFiles::DirExists(u"C:\\s"_s));
}

TEST_F(SettingsCommandsTest, AGivenSettingWinsOverTheProjectsOwnAndIsNotSavedWithIt) {
  ASSERT_EQ(Run(uR"(--set VideoNormPal=0 --set AutoCrop=1 new C:\p)"_s), kExitDone);
  ASSERT_EQ(Run(uR"(settings project C:\p.tvn get VideoNormPal)"_s), kExitDone);
  EXPECT_EQ(out_, u"0\n"_s) << "a new project is made from the settings in force";

  ASSERT_EQ(Run(uR"(--set VideoNormPal=1 --set NoMenus=1 info C:\p.tvn)"_s), kExitDone);
  EXPECT_TRUE(out_.contains(u"PAL") && out_.contains(u"no menus")) << out_.toStdString();

  // What follows from a given setting is not saved either; what the edit itself makes is.
  const QByteArray saved = *HostFiles::Read(uR"(C:\p.tvn)"_s);
  ASSERT_EQ(Run(uR"(--set VideoNormPal=1 --set NoMenus=1 --set AutoCrop=0 save C:\p.tvn C:\q)"_s), kExitDone);
  EXPECT_EQ(*HostFiles::Read(uR"(C:\q.tvn)"_s), saved);
  drive_.Write(u"given"_s, "VideoNormPal=1\n");
  ASSERT_EQ(Run(uR"(--settings C:\given add-label C:\p.tvn Sea --at 10,570)"_s), kExitDone) << error_.toStdString();
  ASSERT_EQ(Run(uR"(settings project C:\p.tvn get VideoNormPal)"_s), kExitDone);
  EXPECT_EQ(out_, u"0\n"_s);
}

TEST_F(SettingsCommandsTest, WhatAProjectCarriesIsShownAndChanged) {
  drive_.Write(u"in.m2v"_s, "x");
  ASSERT_EQ(Run(uR"(new C:\p)"_s), kExitDone);
  ASSERT_EQ(Run(uR"(settings project C:\p.tvn list)"_s), kExitDone);
  EXPECT_TRUE(out_.contains(u"\nVideoNormPal=1\n") && !out_.contains(u"OutDir=")) << out_.toStdString();
  ASSERT_EQ(
      Run(uR"(settings project C:\p.tvn set VideoNormPal=0 BackButtonYpos=500 UseIntro=1 IntroMovie=C:\in.m2v)"_s),
      kExitDone)
      << error_.toStdString();
  EXPECT_EQ(Captions(uR"(C:\p.tvn)"_s, u"INTRO"_s), u"Intro\nC:\\in.m2v"_s);
  ASSERT_EQ(Run(uR"(settings project C:\p.tvn get BackButtonYpos)"_s), kExitDone);
  EXPECT_EQ(out_, u"450\n"_s) << "a Back button stays inside an NTSC menu";

  ASSERT_EQ(Run(uR"(settings project C:\p.tvn set AdvancedMode=1 UseIntro=0 DefButtomType=1 AnimatedMainMenu=1)"_s),
            kExitDone);
  ASSERT_EQ(Run(uR"(--set AdvancedMode=1 --set DefButtomType=1 --set AnimatedMainMenu=1 new C:\new)"_s), kExitDone);
  for (const QString& key : {u"MMH"_s, u"MMS"_s, u"MMBGLoop"_s}) {
    EXPECT_EQ(Captions(uR"(C:\p.tvn)"_s, key), Captions(uR"(C:\new.tvn)"_s, key)) << "as a new project has it";
  }
  ASSERT_EQ(Run(uR"(add-label C:\p.tvn Sea)"_s), kExitDone);
  const QByteArray before = *HostFiles::Read(uR"(C:\p.tvn)"_s);
  for (const auto& [change, reason] : std::initializer_list<std::pair<QString, QString>>{
           {u"VideoNormPal=1"_s,
            u"VideoNormPal stays as it is, since the main menu holds elements placed for the present norm."_s},
           {u"NoMenus=1"_s, u"AnimatedMainMenu stays 1, since the main menu holds elements already."_s},
           {u"DefTextAlign=1 DefMenuRatio=1 Def169Mode=1"_s,
            u"For dvdauthor only Letterbox is implemented for 16:9 menus! Please change"_s},
           {uR"(UseIntro=1 IntroMovie=C:\no.m2v)"_s, uR"(UseIntro needs an intro: there is no film "C:\no.m2v".)"_s}}) {
    EXPECT_EQ(Run(uR"(settings project C:\p.tvn set )" + change), kExitFailed);
    EXPECT_EQ(error_, u"error: " + reason + u'\n');
  }
  EXPECT_EQ(*HostFiles::Read(uR"(C:\p.tvn)"_s), before);
}

TEST_F(SettingsCommandsTest, APresetCarriesTheLookToAnotherProfile) {
  ASSERT_EQ(Run(uR"(--set RasterX=6 --set DefBackButtonText=Home preset save C:\look)"_s), kExitDone);
  ASSERT_EQ(Run(uR"(preset load C:\look.tvp)"_s), kExitDone) << error_.toStdString();
  EXPECT_EQ(Get(u"RasterX"_s), u"6\n"_s);
  EXPECT_EQ(Get(u"DefBackButtonText"_s), u"Home\n"_s);

  drive_.Write(u"part.tvp"_s, "[CustImageSizeX]=77 wide\n");
  ASSERT_EQ(Run(uR"(preset load C:\part.tvp)"_s), kExitDone);
  EXPECT_EQ(Get(u"ImageSizeX"_s), u"77\n"_s);
  EXPECT_EQ(Get(u"RasterX"_s), u"6\n"_s);

  EXPECT_EQ(Run(uR"(preset load C:\missing.tvp)"_s), kExitFailed);
  EXPECT_TRUE(error_.contains(u"missing.tvp")) << error_.toStdString();
}

}  // namespace
}  // namespace torvane
