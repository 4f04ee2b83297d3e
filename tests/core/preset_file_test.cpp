#include "core/preset_file.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/settings_table.h"
#include "platform/host_files.h"
#include "support/golden.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(PresetFile, IsWrittenLineByLineInItsOrder) {
  Settings settings;
  settings.UseBlur = true;
  settings.DefBackButtonText = u"Zur\u00fcck\r\nhier"_s;
  settings.DefTextButtonGif = {.Enabled = true, .File = u"Star.gif"_s, .RelSize = 62.5, .XOffset = -3};
  settings.OwnGifMaskDir = u"D:\\masks"_s;
  test::ExpectGolden(PresetText(settings).replace("\r\n", "\n"), u"look.tvp"_s);
}

TEST(PresetFile, HoldsOnlyWhatItsLinesSay) {
  struct Case {
    const char* content;
    SettingTexts read;
  };
  const Case cases[] = {
      {"", {}},
      {"no preset at all\n[Unknown]=1\n", {}},
      {"[GridLayout]=R2C2PX50PY60DX200DY90\n", {}},
      {"[UseBlur]=1", {{u"UseBlur"_s, u"1"_s}}},
      {"[useblur]=1\r\n[BLURX]=  7 \r\n", {{u"UseBlur"_s, u"1"_s}, {u"BlurX"_s, u"  7 "_s}}},
      {"[BlurX]=1\n[BlurX]=2\n", {{u"BlurX"_s, u"1"_s}}},
      {"[AutoCropVal]=\n", {{u"AutoCropVal"_s, u""_s}}},
      {"[DefFreeButtonText]=a]=b\n", {{u"DefFreeButtonText"_s, u"a]=b"_s}}},
      {"[DefFreeButtonText]=[BlurX]=9\n[BlurX]=4\n",
       {{u"DefFreeButtonText"_s, u"[BlurX]=9"_s}, {u"BlurX"_s, u"4"_s}}},
      {"  [BlurX]=94\n", {{u"BlurX"_s, u"]=94"_s}}},
      {"[AudioTSType]=2\n[DefAudioTSType]=3\n", {{u"DefAudioTSType"_s, u"2"_s}}},
      {"[DefBackButtonText]=Zur\xfc"
       "ck\n",
       {{u"DefBackButtonText"_s, u"Zur\u00fcck"_s}}},
      {"[CustImageSizeX]=1\n[CustImageSizeY]=2\n[CustTextSizeX]=3\n[CustTextSizeY]=4\n[DefRasterX]=5\n[DefRasterY]=6\n",
       {{u"ImageSizeX"_s, u"1"_s}, {u"ImageSizeY"_s, u"2"_s}, {u"FixTextSizeX"_s, u"3"_s},
        {u"FixTextSizeY"_s, u"4"_s}, {u"RasterX"_s, u"5"_s}, {u"RasterY"_s, u"6"_s}}},
      {"[DefRasterX]=5\n[RasterX]=8\n", {{u"RasterX"_s, u"8"_s}}},
  };
  for (const Case& each : cases) EXPECT_EQ(ReadPreset(each.content), each.read) << each.content;
  EXPECT_EQ(ReadPresetValue(u"[BlurX]=1"_s, u"blury"_s, u"5"_s), u"5"_s);
}

TEST(PresetFile, BringsEveryValueButTheGridToAnotherInstallation) {
  const QTemporaryDir dir;
  const QString root = HostFiles::ToDos(dir.path());
  ASSERT_TRUE(HostFiles::MakeDir(root + u"\\masks"));
  ASSERT_TRUE(HostFiles::WriteAtomically(root + u"\\masks\\Own.gif", "GIF"));

  Settings source;
  source.OwnGifMaskDir = root + u"\\masks";
  for (const SettingRow& row : SettingsTable()) {
    if (row.preset.position == 0 || row.key == u"GridLayout") continue;
    if (row.kind == SettingKind::Path) continue;
    QString text = QString::number(row.preset.position);
    if (row.kind == SettingKind::Flag) text = SettingText(source, row) == u"1" ? u"0"_s : u"1"_s;
    if (row.kind == SettingKind::Text) text = u"of "_s + row.key;
    if (row.kind == SettingKind::Mask) text = u"1;50;1;2;1;Own.gif"_s;
    if (row.kind == SettingKind::Font) text = u"Courier\\10.5\\1\\0\\1\\0"_s;
    SetSettingText(source, row, text);
  }
  const QString file = root + u"\\look.tvp";
  ASSERT_TRUE(SavePreset(file, source));

  const Result<SettingTexts> texts = LoadPreset(file);
  ASSERT_TRUE(texts) << texts.Error().toStdString();
  Settings target;
  ReadSettings(*texts, target);
  EXPECT_TRUE(target == source);
}

TEST(PresetFile, FailsWithAReason) {
  const Status saved = SavePreset(u"C:\\nowhere\\a.tvp"_s, {});
  ASSERT_FALSE(saved);
  EXPECT_TRUE(saved.Error().startsWith(u"ERROR! File is probably write protected!\r\n")) << saved.Error().toStdString();
  const Result<SettingTexts> loaded = LoadPreset(u"C:\\nowhere\\a.tvp"_s);
  ASSERT_FALSE(loaded);
  EXPECT_TRUE(loaded.Error().contains(u"a.tvp"));
}

TEST(PresetFile, NamesEndInTheExtension) {
  for (const auto& [typed, file] : std::initializer_list<std::pair<QString, QString>>{
           {u"a"_s, u"a.tvp"_s}, {u"C:\\a.TVP"_s, u"C:\\a.TVP"_s}, {u"tvp"_s, u"tvp.tvp"_s}, {u"a.tvn"_s, u"a.tvn.tvp"_s}}) {
    EXPECT_EQ(WithPresetExtension(typed), file);
  }
}

}  // namespace
}  // namespace torvane
