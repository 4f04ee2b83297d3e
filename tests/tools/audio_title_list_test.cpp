#include "tools/audio_title_list.h"

#include <gtest/gtest.h>

#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"
#include "tools/title_pattern.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(TitlePattern, IsCutFromItsEnd) {
  const std::pair<QString, TitlePattern> cases[] = {
      {u"A - X - B - 07 - C"_s, {u"A - X"_s, u"B"_s, u"07"_s, u"C"_s}},
      {u"B - 07 - C"_s, {.Track = u"07"_s, .Title = u"C"_s}},
      {u"07 - C"_s, {.Title = u"C"_s}},
      {u"A - B -  - C"_s, {.Title = u"C"_s}},  // nothing between the last two
      {u"A - B - "_s, {.Title = u"A - B - "_s}},
      {u""_s, {}},
  };
  for (const auto& [name, parts] : cases) EXPECT_EQ(ParseTitlePattern(name), parts) << name.toStdString();
  EXPECT_EQ(TitleOfFile(u"C:\\x.y\\My_song..mp2"_s), u"My song");
}

class AudioTitleListTest : public testing::Test {
 protected:
  /// A file of 48 kHz by its ending; 44.1 kHz, or of no kind at all when asked for.
  QString File(const QString& name, int frequencyCode = 0) {
    QByteArray head = QByteArray("\x0B\x77\0\0", 4) + char(frequencyCode << 6 | 20);
    if (!name.endsWith(u"3")) head = QByteArray("\xFF\xFD\xA4\0", 4);
    if (name.endsWith(u"wav"))
      head =
          "RIFF____WAVEfmt ____" + QByteArray("\1\0\2\0\0\x77\1\0\0\xEE\2\0", 12) + QByteArray("\4\0\20\0\0\0\0\0", 8);
    if (frequencyCode > 1) head = "x";
    drive_.Write(name, head);
    return name;
  }

  static QString Titles(const AudioTitleList& list) {
    QStringList titles;
    for (const AudioTitleRow& row : list.Rows()) titles << row.Title.Title;
    return titles.join(u' ');
  }

  test::DriveC drive_;
  Settings settings_ = test::FixedSettings();
  test::RecordingPrompter prompter_;
  const QString onlyOneKind_ =
      u"Only files of the same type (ac3 OR mp2/mpa OR wav) may be used within one titleset!"_s;
};

TEST_F(AudioTitleListTest, FilesBecomeTitles) {
  AudioTitleList list(settings_, prompter_);
  EXPECT_FALSE(list.Accept());
  EXPECT_EQ(prompter_.Told(), QStringList{u"At least one title is necessary!"_s});
  list.Fields.UsePattern = list.Fields.AddTrack = true;
  list.AddFiles(u"C:\\"_s, {File(u"A - B - 07 - C.ac3"_s), File(u"My_song.ac3"_s), File(u"x.wav"_s),
                            File(u"A - B - 07 - C.ac3"_s)});
  EXPECT_EQ(prompter_.Told(), QStringList{onlyOneKind_});
  EXPECT_EQ(list.Selected(), 1);
  EXPECT_EQ(list.Rows()[1].Info, u"Bitrate=192  Sampl.Freq=48000  Duration=00:00:00.000  Size=0MB");
  list.Fields.AudiotitlesetName = u"Songs"_s;
  list.Fields.Title = u"Edited last"_s;
  list.SetActions(u"g1=1;"_s, {}, {});
  AudioTitleStore expected;
  expected.Name = u"Songs"_s;
  expected.AudioTSLayoutType = u"1"_s;
  expected.Layout = DefaultAudioLayout(settings_);
  const QString image = u"C:\\App\\default.jpg"_s;
  expected.Titles = {{u"C:\\A - B - 07 - C.ac3"_s, u"A"_s, u"B"_s, u"#07  C"_s, image, 200006},
                     {u"C:\\My_song.ac3"_s, u"Artist"_s, u"Album"_s, u"Edited last"_s, image, 200006}};
  expected.PreAction = u"g1=1;"_s;
  const std::optional<AudioTitleStore> store = list.Accept();
  ASSERT_TRUE(store);
  EXPECT_EQ(*store, expected);
  EXPECT_FALSE(list.ChooseTitles());
  EXPECT_TRUE(list.Fields.Chapters && list.MayEditActions());
  EXPECT_EQ(prompter_.Told(),
            QStringList{u"User defined pre/post actions are only possible for audiotitlesets with chapters!"_s});
  list.SetActions({}, {}, {});
  EXPECT_TRUE(list.ChooseTitles());
  EXPECT_FALSE(list.MayEditActions());

  // What was stored comes back, and knows its kind.
  prompter_.Told();
  AudioTitleList again(*store, settings_, prompter_);
  again.AddFiles(u"C:"_s, {File(u"y.mp2"_s)});
  EXPECT_EQ(prompter_.Told(), QStringList{onlyOneKind_});
  EXPECT_EQ(again.Accept(), store);
}

TEST_F(AudioTitleListTest, KindsAndWrongFiles) {
  const struct {
    QStringList names;
    QString titles;
    bool refused;
  } cases[] = {
      {{u"a.mp2"_s, u"b.mpa"_s, u"c.m2p"_s, u"d.ac3"_s}, u"a b c"_s, true},
      {{u"d.AC3"_s, u"c.m2p"_s, u"a.mp2"_s}, u"d c"_s, true},
      {{u"e.wav"_s, u"d.ac3"_s}, u"e"_s, true},
      {{u"e.wav"_s}, u"e"_s, false},
  };
  for (const auto& [names, titles, refused] : cases) {
    for (const QString& name : names) File(name);
    AudioTitleList list(settings_, prompter_);
    list.AddFiles(u"C:\\"_s, names);
    EXPECT_EQ(Titles(list), titles);
    EXPECT_EQ(prompter_.Told(), refused ? QStringList{onlyOneKind_} : QStringList());
  }
  AudioTitleList list(settings_, prompter_);
  list.AddFiles(u"C:\\"_s, {File(u"e.wav"_s)});
  EXPECT_TRUE(list.Accept());  // 96 kHz
  const QString wrong = u"The list contains at least one audio file with wrong properties!"_s;
  for (const int code : {1, 2}) {
    list.RemoveAll();
    list.AddFiles(u"C:\\"_s, {File(u"good.ac3"_s), File(u"bad.ac3"_s, code)});
    EXPECT_TRUE(list.Rows()[1].Wrong && !list.Rows()[0].Wrong);
    EXPECT_FALSE(list.Accept());
    const QStringList told = prompter_.Told();
    EXPECT_EQ(told.value(0), wrong);
    EXPECT_TRUE(told.value(1).contains(code == 1 ? u"bad.ac3 is AC3 sound of 44100 Hz" : u"bad.ac3 is a text"));
  }
  EXPECT_EQ(list.Rows()[1].Info, u"Unkown filetype  Size=0MB");
  EXPECT_EQ(list.Rows()[1].Title.Size, 200001);
  File(u"bad.ac3"_s);
  EXPECT_TRUE(list.Accept());
  File(u"good.ac3"_s, 2);
  EXPECT_FALSE(list.Accept());

  // A name that ends well does not make MP3 a sound of discs.
  drive_.Write(u"mp3.mp2"_s, QByteArray("\xFF\xFB\xA4\0", 4));
  list.RemoveAll();
  prompter_.Told();
  list.AddFiles(u"C:\\"_s, {u"mp3.mp2"_s});
  EXPECT_FALSE(list.Accept());
  EXPECT_TRUE(prompter_.Told().value(1).contains(u"mp3.mp2 is MP3 (MPEG layer III) sound"));
}

TEST_F(AudioTitleListTest, HoldsNinetySix) {
  QStringList names;
  for (int i = 0; i < 97; ++i) names << File(QString::number(i) + u".mp2");
  AudioTitleList list(settings_, prompter_);
  list.AddFiles(u"C:\\"_s, names);
  list.AddFiles(u"C:\\"_s, {names.back()});
  EXPECT_EQ(list.Rows().size(), 96U);
  EXPECT_EQ(prompter_.Told(), QStringList(2, u"Only 96 Audio titles allowed"_s));
  EXPECT_EQ(list.NumberText(0) + list.NumberText(95), u"0196");
}

TEST_F(AudioTitleListTest, RowsMoveAndGo) {
  AudioTitleList list(settings_, prompter_);
  list.AddFiles(u"C:\\"_s, {File(u"a.mp2"_s), File(u"b.mp2"_s), File(u"c.mp2"_s), File(u"d.mp2"_s)});
  list.MoveDown();
  list.MoveUp();
  EXPECT_EQ(Titles(list), u"a b d c");
  list.Select(0);
  list.MoveUp();
  list.MoveDown();
  EXPECT_EQ(Titles(list), u"b a d c");
  EXPECT_EQ(list.Selected(), 1);
  list.Shuffle([](int limit) { return limit - 1; });
  EXPECT_EQ(Titles(list), u"a c d b");
  list.RemoveFiles({0, 2});
  EXPECT_EQ(Titles(list), u"c b");
  list.Fields = {.Author = u"X"_s, .Album = u"Y"_s, .Image = u"C:\\p.png"_s};
  list.UpdateSelected();  // of no row
  list.SetAllAuthor();
  list.SetAllAlbum();
  list.SetAllImages();
  list.Select(1);
  list.SetImage(u"C:\\q.png"_s);
  EXPECT_EQ(list.Rows()[0].Title, (AudioTitle{u"C:\\c.mp2"_s, u"X"_s, u"Y"_s, u"c"_s, u"C:\\p.png"_s, 200005}));
  EXPECT_EQ(list.Rows()[1].Title, (AudioTitle{u"C:\\b.mp2"_s, u"X"_s, u"Y"_s, u"b"_s, u"C:\\q.png"_s, 200005}));
  list.RemoveFiles({0, 1});
  list.AddFiles(u"C:\\"_s, {File(u"z.ac3"_s)});  // an empty list takes any kind
  EXPECT_EQ(Titles(list), u"z");
  EXPECT_EQ(prompter_.Told(), QStringList());
}

}  // namespace
}  // namespace torvane
