#include "tools/audio_layout_form.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(AudioLayoutForm, ShowsChecksAndStores) {
  AudioLayout layout = DefaultAudioLayout({});
  AudioLayoutForm form(layout, 480);
  EXPECT_EQ(form.BlurX + u' ' + form.BlurY, u"0.50 1.00");
  EXPECT_TRUE(form.Validate().isEmpty());
  EXPECT_EQ(form.Layout(), layout);

  form.Author.XPosition = u"9"_s;
  form.Album.YPosition = u"471"_s;
  form.Title.XPosition = u"700"_s;
  form.Title.YPosition = u"470"_s;
  form.BlurX = u"1.59"_s;
  form.BlurY = u"-0.01"_s;
  EXPECT_EQ(form.Validate(), (QList<AudioLayoutFault>{
                                 {AudioLayoutField::AuthorX, u"Must be between 10 and 700 Pixels"_s},
                                 {AudioLayoutField::AlbumY, u"Must be between 10 and 470 Pixels"_s},
                                 {AudioLayoutField::BlurX, u"Must be smaller than 1.59!"_s},
                                 {AudioLayoutField::BlurY, u"Must be greater than -0.0!"_s},
                             }));
  form.Author.XPosition = u"10"_s;
  form.Album.YPosition = u"470"_s;
  form.BlurX = u"1,58"_s;
  form.BlurY = u"0"_s;
  form.Blur = true;
  form.Title.Color = 255;
  EXPECT_TRUE(form.Validate().isEmpty());
  layout.Author.XPos = 10;
  layout.Album.YPos = 470;
  layout.Title = {layout.Title.Font, 255, 700, 470};
  layout.UseBlur = true;
  layout.BlurX = 158;
  layout.BlurY = 0;
  EXPECT_EQ(form.Layout(), layout);
  Settings settings;
  form.SetDefault(settings);
  EXPECT_EQ(DefaultAudioLayout(settings), layout);
}

}  // namespace
}  // namespace torvane
