#include "render/audio_slide.h"

#include "core/text.h"
#include "render/bitmap.h"
#include "render/plane_drawing.h"
#include "render/text_painter.h"

namespace torvane {
namespace {

void DrawText(QImage& slide, const QString& text, const AudioTextLayout& layout) {
  constexpr int kOpaque = 255;
  const TextPainter painter(layout.Font);
  QPoint position(layout.XPos, layout.YPos);
  for (const QString& line : text.split(QStringLiteral("\r\n"))) {
    Print(slide, position, painter.Draw({line, position}, slide.size()), MakeARGB(layout.Color, kOpaque));
    position.ry() += painter.TextHeight();
  }
}

}  // namespace

QImage DrawAudioSlide(const AudioTitle& title, const AudioLayout& layout, const Settings& settings,
                      PictureLoader& pictures) {
  QImage slide = BlackPlane(settings);
  DrawPicture(slide, slide.rect(), pictures.Load(title.Image));
  DrawText(slide, title.Artist, layout.Author);
  DrawText(slide, title.Album, layout.Album);
  DrawText(slide, title.Title, layout.Title);
  if (layout.UseBlur) Blur32HV(slide, layout.BlurX, layout.BlurY);
  slide.convertTo(QImage::Format_RGB32);
  return slide;
}

}  // namespace torvane
