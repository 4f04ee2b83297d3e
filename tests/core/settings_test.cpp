#include "core/settings.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QTemporaryDir>

#include "core/grid_layout.h"
#include "core/settings_overrides.h"
#include "core/settings_store.h"
#include "core/settings_table.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(Settings, TheTableDescribesEachKeyOnce) {
  QSet<QString> seen;
  const auto expectNew = [&seen](const QString& name) {
    EXPECT_FALSE(seen.contains(name)) << name.toStdString();
    seen += name;
  };
  for (const SettingRow& row : SettingsTable()) {
    expectNew(u"key "_s + row.key);
    if (row.project.element != 0) expectNew(u"place %1 %2"_s.arg(row.project.element).arg(row.project.position));
  }
  EXPECT_EQ(WriteSettings({}).size(), 150);
}

/// Gives every setting a value that is not its default; where two rows shared a member, one of them would not hold.
TEST(Settings, EveryValueSurvivesItsText) {
  SettingTexts texts;
  int n = 0;
  for (const SettingRow& row : SettingsTable()) {
    if (row.key.isEmpty()) continue;
    ++n;
    const QString defaultText = SettingText(Settings{}, row);
    QString text = defaultText == u"0"_s ? u"1"_s : u"0"_s;
    if (row.kind == SettingKind::Number) text = QString::number(100000 + n);
    if (row.kind == SettingKind::Byte) text = QString::number(n % 100);
    if (row.kind == SettingKind::Text || row.kind == SettingKind::Path) text = u"text %1 = x "_s.arg(n);
    if (row.kind == SettingKind::Mask) text = u"1;%1.5;-3;4;2;"_s.arg(n);
    if (row.kind == SettingKind::Font) text = u"Font %1\\9.5\\1\\0\\1\\0"_s.arg(n);
    ASSERT_NE(text, defaultText);
    texts.insert(row.key.toString(), text);
  }
  Settings settings;
  ReadSettings(texts, settings);
  EXPECT_EQ(WriteSettings(settings), texts);
}

TEST(Settings, DamagedTextsReadByTheRuleOfTheirKind) {
  const struct {
    QString key;
    QString text;
    QString readAs;
  } cases[] = {
      {u"AskForSave"_s, u"-1"_s, u"1"_s},
      {u"AskForSave"_s, u"yes"_s, u"0"_s},
      {u"ToolPatience"_s, u"2.50"_s, u"2.5"_s},
      {u"ToolPatience"_s, u"-1"_s, u"0"_s},
      {u"Engine"_s, u"7"_s, u"1"_s},
      {u"AutoChapter"_s, u"2"_s, u"2"_s},
      {u"RasterX"_s, u"12 px"_s, u"12"_s},
      {u"RasterX"_s, u""_s, u"0"_s},
      {u"DefTextColor"_s, u"99999999999"_s, u"2147483647"_s},
      {u"DefHighLightFillTrans"_s, u"300"_s, u"255"_s},
      {u"DefHighLightFillTrans"_s, u"-3"_s, u"0"_s},
      {u"DefAnimGif"_s, u""_s, u"0;100;0;0;0;"_s},
      {u"DefAnimGif"_s, u"1;x;40000"_s, u"1;0;32767;0;0;"_s},
      {u"DefaultFont"_s, u""_s, u"Arial\\12\\0\\0\\0\\0"_s},
      {u"DefaultFont"_s, u"Comic\\-4\\1"_s, u"Comic\\12\\1\\0\\0\\0"_s},
      {u"DefaultFont"_s, u"\\9,5\\0\\-1"_s, u"Arial\\9.5\\0\\1\\0\\0"_s},
  };
  for (const auto& [key, text, readAs] : cases) {
    Settings settings;
    ReadSettings({{key, text}}, settings);
    EXPECT_EQ(SettingText(settings, *FindSetting(key)), readAs) << key.toStdString() << " " << text.toStdString();
  }
}

TEST(Settings, TheGridLayoutHoldsSixNumbers) {
  const GridLayoutRecord standard{10, 1, 100, 100, 300, 64};
  EXPECT_EQ(ParseGridLayout(Settings{}.GridLayout), standard);
  EXPECT_EQ(FormatGridLayout(standard), Settings{}.GridLayout);
  EXPECT_EQ(ParseGridLayout(u"R2DX5"_s), (GridLayoutRecord{2, 0, 0, 0, 5, 0}));
}

TEST(SettingsStore, KeepsKeysItDoesNotKnowAndAnyText) {
  const QTemporaryDir dir;
  const SettingsStore store(dir.path() + u"/new/profile"_s);
  EXPECT_EQ(*store.Read(), SettingTexts());
  const SettingTexts texts{{u"OutDir"_s, u"C:\\Temp\\new"_s},
                           {u"DefBackButtonText"_s, u" 100%0D\r\nzurück = Menü "_s},
                           {u"FromALaterVersion"_s, u"1"_s}};
  ASSERT_TRUE(store.Write(texts));
  ASSERT_TRUE(store.Write({{u"InDir"_s, u"C:\\In"_s}}));
  SettingTexts expected = texts;
  expected.insert(u"InDir"_s, u"C:\\In"_s);
  EXPECT_EQ(*store.Read(), expected);
  EXPECT_EQ(HostFiles::FileNames(HostFiles::FromUser(dir.path() + u"/new/profile"_s)).size(), 1);
}

TEST(SettingsStore, AFailedWriteIsTold) {
  const QTemporaryDir dir;
  ASSERT_TRUE(HostFiles::WriteAtomically(HostFiles::ToDos(dir.path() + u"/file"_s), "x"));
  EXPECT_FALSE(SettingsStore(dir.path() + u"/file"_s).Write({}));
}

TEST(SettingsOverrides, ASettingsFileGivesItsLinesInOrder) {
  const Result<QList<SettingOverride>> settings = ParseSettingsFile(
      "\xEF\xBB\xBF# defaults\r\n\r\nOutDir=C:\\Größe \r\nDefBackButtonText=a=b\n   \nOutDir=", u"my.conf"_s);
  ASSERT_TRUE(settings) << settings.Error().toStdString();
  EXPECT_EQ(*settings, (QList<SettingOverride>{
                           {u"OutDir"_s, u"C:\\Größe "_s}, {u"DefBackButtonText"_s, u"a=b"_s}, {u"OutDir"_s, u""_s}}));
}

TEST(SettingsOverrides, ABadLineIsNamed) {
  const std::pair<QByteArray, QString> cases[] = {
      {"OutDir=x\noutdir=y\n", u"my.conf:2: there is no setting \"outdir\"; it is written \"OutDir\""_s},
      {"#\r\n\r\nOutDir =y", u"my.conf:3: there is no setting \"OutDir \""_s},
      {"=1", u"my.conf:1: there is no setting \"\""_s},
      {"Rubbish", u"my.conf:1: \"Rubbish\" is not of the form KEY=VALUE"_s},
      {"OutDir=\xFF\n", u"my.conf: the file is not UTF-8 text"_s},
  };
  for (const auto& [content, error] : cases) {
    EXPECT_EQ(ParseSettingsFile(content, u"my.conf"_s).Error(), error);
  }
}

}  // namespace
}  // namespace torvane
