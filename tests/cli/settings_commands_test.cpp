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
  EXPECT_TRUE(out_.startsWith(u"LangID=1000\nAskForSave=1\n")) << out_.toStdString();
  EXPECT_TRUE(out_.contains(u"\nRasterX=8\nRasterY=16\n"));
  EXPECT_TRUE(ParseSettingsFile(out_.toUtf8(), u"list"_s));
}

TEST_F(SettingsCommandsTest, RefusesWhatIsNoSettingAndStoresNothingThen) {
  for (const auto& [arguments, reason] : std::initializer_list<std::pair<QString, QString>>{
           {u"set RasterX=8 RasterY=wide"_s, u"RasterY takes a whole number, not \"wide\"."_s},
           {u"set UseRaster=2"_s, u"UseRaster takes 0 or 1, not \"2\"."_s},
           {u"set Engine=-1"_s, u"Engine takes 0 or 1, not \"-1\"."_s},
           {u"set DefHighLightFillTrans=256"_s, u"DefHighLightFillTrans takes a number from 0 to 255, not 256."_s},
           {u"set LangID=3"_s, u"LangID takes 1000 (English) or 2000 (German), not 3."_s},
           {u"set rasterx=8"_s, u"there is no setting \"rasterx\"; it is written \"RasterX\""_s},
           {u"set RasterX"_s, u"\"RasterX\" is not of the form KEY=VALUE"_s},
           {u"get Nothing"_s, u"there is no setting \"Nothing\""_s},
           {u"get"_s, u"The command is: settings list, settings get KEY, or settings set KEY=VALUE..."_s},
           {u"list all"_s, u"The command is: settings list, settings get KEY, or settings set KEY=VALUE..."_s}}) {
    EXPECT_EQ(Run(u"settings " + arguments), kExitUsage) << arguments.toStdString();
    EXPECT_EQ(error_, u"torvane-cli: " + reason + u"\nTry: torvane-cli --help\n");
  }
  EXPECT_EQ(Run(u"preset show x.tvp"_s), kExitUsage);
  EXPECT_FALSE(HostFiles::DirExists(u"C:\\s"_s));
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
