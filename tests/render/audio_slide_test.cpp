#include "render/audio_slide.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "pixels.h"
#include "platform/host_files.h"
#include "render/text_painter.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(AudioSlide, ShowsTheTextsOverTheStretchedImage) {
  const QTemporaryDir dir;
  QImage halves(20, 10, QImage::Format_RGB32);
  halves.fill(qRgb(0, 0, 80));
  const QString file = HostFiles::FromUser(dir.path() + u"/i.png"_s);
  ASSERT_TRUE(halves.save(HostFiles::ToHost(file)));

  const QRgb colors[] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(255, 255, 0)};
  AudioLayout layout;
  layout.Author = {.Font = {.Size = 30}, .Color = 255, .XPos = 40, .YPos = 100};
  layout.Album = {.Font = {.Size = 20, .Bold = true}, .Color = 255 * 256, .XPos = 300, .YPos = 200};
  layout.Title = {.Font = {.Size = 24}, .Color = 255 + 255 * 256, .XPos = 600, .YPos = 400};
  const AudioTitle title{{}, u"H|H"_s, u"H|H\r\nH|H"_s, u"H|H|H|H|H"_s, file, 0};
  for (const int height : {576, 480}) {
    Settings settings = test::FixedSettings();
    settings.VideoNormPal = height == 576;
    settings.VideoHeight = height;
    PictureLoader pictures(u"film 1"_s);
    const QImage slide = DrawAudioSlide(title, layout, settings, pictures);
    EXPECT_EQ(pictures.Errors(), QStringList());
    EXPECT_EQ(slide.size(), QSize(720, height));
    EXPECT_EQ(slide.format(), QImage::Format_RGB32);
    for (const QPoint& corner : {QPoint(0, 0), QPoint(719, height - 1)}) EXPECT_EQ(slide.pixel(corner), qRgb(0, 0, 80));
    for (std::size_t i = 0; i < 3; ++i) {
      const AudioTextLayout& text = i == 0 ? layout.Author : i == 1 ? layout.Album : layout.Title;
      const TextPainter painter(text.Font);
      const int lines = i == 1 ? 2 : 1;
      const int width = std::min(painter.TextWidth(i == 2 ? title.Title : title.Artist), 720 - text.XPos);
      const QRect cell(text.XPos, text.YPos, width, painter.TextHeight() * lines);
      const QRect ink = test::AreaOf(slide, colors[i]);
      EXPECT_TRUE(cell.contains(ink)) << i;
      EXPECT_GT(ink.width(), cell.width() * 2 / 3) << i;
      EXPECT_GT(ink.height(), cell.height() * 2 / 5) << i;
    }
  }
}

TEST(AudioSlide, IsSoftenedAsTheLayoutSaysAndBlackWithoutImage) {
  AudioLayout layout;
  layout.Title = {.Font = {.Size = 24}, .Color = 255, .XPos = 100, .YPos = 100};
  const AudioTitle title{{}, {}, {}, u"III"_s, u"C:\\no\\such.png"_s, 0};
  const Settings settings = test::FixedSettings();
  PictureLoader pictures(u"film 4 (Songs)"_s);
  const QImage sharp = DrawAudioSlide(title, layout, settings, pictures);
  EXPECT_EQ(pictures.Errors(), QStringList{u"Picture \"C:\\no\\such.png\" of film 4 (Songs): File Not Found"_s});
  EXPECT_EQ(sharp.pixel(0, 0), qRgb(0, 0, 0));
  ASSERT_FALSE(test::AreaOf(sharp, qRgb(255, 0, 0)).isEmpty());

  layout.BlurX = layout.BlurY = 100;
  EXPECT_EQ(DrawAudioSlide(title, layout, settings, pictures), sharp);
  layout.UseBlur = true;
  const QImage soft = DrawAudioSlide(title, layout, settings, pictures);
  EXPECT_TRUE(test::AreaOf(soft, qRgb(255, 0, 0)).isEmpty());
  EXPECT_EQ(soft.pixel(0, 0), qRgb(0, 0, 0));
}

}  // namespace
}  // namespace torvane
