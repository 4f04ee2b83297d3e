#include <gtest/gtest.h>

#include "core/project.h"
#include "media/chapter_form.h"
#include "media/language_list.h"
#include "media/palette_form.h"
#include "media/sub_format_form.h"
#include "media/video_title.h"
#include "platform/host_files.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(LanguageList, HasATagForEachEntry) {
  ASSERT_EQ(LanguageList().size(), 137U);
  for (int i = 1; i < 137; ++i) EXPECT_EQ(LanguageTag(LanguageOfTag(LanguageTag(i))), LanguageTag(i));
  EXPECT_EQ(LanguageList()[size_t(LanguageOfTag(u"GA"))], u"GA (IRISH)");
  EXPECT_EQ(LanguageOfTag(u"no") + LanguageOfTag(u"en") + LanguageOfTag(u"  ") + LanguageOfTag(u""), 0);
  EXPECT_EQ(LanguageTag(0) + LanguageTag(137), u"    ");
}

TEST(LanguageTags, StandInTheirPlaces) {
  const FilmLanguages languages = ParseLanguageTags(u"EN,  ,DE,FR,xx,ZU"_s);
  EXPECT_EQ(languages, (FilmLanguages{{1, 0, 2}, {3, 0, 136}}));
  EXPECT_EQ(FormatLanguageTags(languages), u"EN,  ,DE,FR,  ,ZU");
  EXPECT_EQ(ParseLanguageTags(u"EN"_s), (FilmLanguages{{1}}));
  EXPECT_EQ(FormatLanguageTags({}), QString());
}

TEST(ChapterForm, CreatesAndNormalises) {
  ChapterForm form(u"00:00:00.000,00:00:10.000"_s, 25, 600);
  EXPECT_EQ(form.Text, u"00:00:00.000\r\n00:00:10.000");
  form.Text += u"\r\nnever\r\n500\r\n0:05.12"_s;
  EXPECT_EQ(form.Chapters(), u"00:00:00.000,00:00:05.120,00:00:10.000,00:00:20.000");
  form.CreateEach(u"4"_s);
  EXPECT_EQ(form.Chapters(), u"00:00:00,00:04:00,00:08:00");
  form.CreateCount(2);
  EXPECT_EQ(form.Chapters(), u"00:00:00,00:05:00");
}

TEST(PaletteForm, KeepsStableColours) {
  EXPECT_EQ(PaletteForm(QString()).Colors, (std::array<int, kPaletteSize>{}));
  PaletteForm form;
  form.Colors[0] = 0xFFFFFF;
  form.Colors[15] = 0x0000FF;
  const QString list = form.List();
  EXPECT_EQ(PaletteForm(list).List(), list);
  EXPECT_EQ(PaletteColors(list)[1], RgbToPalette(0));
}

TEST(SubFormatForm, OfAStreamAndOfTheSettings) {
  Project project(test::FixedSettings());
  test::RecordingPrompter prompter;
  VideoTitle title(project, {.VideoFile = u"C:\\a.m2v"_s, .ResV = 480, .FPS = 29.97}, prompter);
  title.Open();
  title.Fields.Languages.Subtitle[1] = 3;
  SubFormatForm form(title, 2, project.Settings);
  EXPECT_TRUE(form.HasStreamFields());
  EXPECT_EQ(form.Language, 3);
  EXPECT_EQ(form.Format.Text(), u"ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30/29.97/29.97/720/480");
  form.Format[SubField::Width] = u"59"_s;
  form.Format[SubField::FontSize] = u"5"_s;
  EXPECT_EQ(form.Validate(), (QList<SubFieldFault>{{SubField::LeftMargin, u"Must be less than 59 Pixel"_s},
                                                   {SubField::RightMargin, u"Must be less than 59 Pixel"_s},
                                                   {SubField::FontSize, u"Must be more than 5 Point"_s}}));
  form.Format[SubField::MovieFps] = u"25"_s;
  form.Format[SubField::SubtitleFps] = u"25"_s;
  form.Language = 0;
  form.Accept(title);
  EXPECT_EQ(title.SubFormatStr(2), u"ISO-8859-1/5/arial.ttf/center/bottom/60/60/30/30/29.97/25/59/480");
  EXPECT_EQ(title.Fields.Languages, FilmLanguages());

  SubFormatForm stored(project.Settings);
  EXPECT_FALSE(stored.HasStreamFields());
  EXPECT_TRUE(stored.Validate().isEmpty());
  stored.Format[SubField::CharSet] = u"CP1250"_s;
  stored.SetDefault(project.Settings);
  EXPECT_EQ(project.Settings.DefaultSubFormatStr, u"CP1250/28.0/arial.ttf/center/bottom/60/60/30/30");
}

TEST(SystemFonts, AreFoundWithTheirViewer) {
  const test::DriveC drive({u"Fonts"_s, u"System32"_s});
  test::RecordingPrompter prompter;
  EXPECT_EQ(FontViewer(u"C:"_s, prompter), QString());
  ASSERT_EQ(prompter.boxes.size(), 1U);
  EXPECT_EQ(prompter.boxes[0].text, u"No Player found");
  for (const QString& file : {u"Fonts\\b.TTF"_s, u"Fonts\\a.ttf"_s, u"Fonts\\c.fon"_s, u"fontview.exe"_s}) {
    ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\" + file, "x"));
  }
  EXPECT_EQ(SubtitleFonts(u"C:"_s), (QStringList{u"a.ttf"_s, u"b.TTF"_s}));
  EXPECT_EQ(FontViewer(u"C:"_s, prompter), u"C:\\fontview.exe");
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\System32\\fontview.exe"_s, "x"));
  EXPECT_EQ(FontViewer(u"C:"_s, prompter), u"C:\\system32\\fontview.exe");
}

}  // namespace
}  // namespace torvane
