#include "tools/audio_layout_form.h"

#include "core/messages.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kMargin = 10;
constexpr int kMostX = 700;
constexpr double kHundredths = 100;

AudioTextFields FieldsOf(const AudioTextLayout& layout) {
  return {layout.Font, layout.Color, QString::number(layout.XPos), QString::number(layout.YPos)};
}

AudioTextLayout LayoutOf(const AudioTextFields& fields) {
  return {fields.Font, fields.Color, ValToInt(fields.XPosition), ValToInt(fields.YPosition)};
}

double BlurValue(QString text) {
  return Val(text.replace(u',', u'.'));
}

QString BlurText(int hundredths) {
  return QString::number(hundredths / kHundredths, 'f', 2);
}

QString PositionFault(const QString& text, int most) {
  const double value = Val(text);
  if (value >= kMargin && value <= most) return {};
  return GetMessage(383, {{u"|1", QString::number(kMargin)}, {u"|2", QString::number(most)}});
}

QString BlurFault(const QString& text) {
  const double value = BlurValue(text);
  if (value <= -0.01) return GetMessage(469, {{u"|1", u"-0.0"_s}});
  return value < 1.59 ? QString() : GetMessage(470, {{u"|1", u"1.59"_s}});
}

}  // namespace

AudioLayoutForm::AudioLayoutForm(const AudioLayout& layout, int videoHeight)
    : Author(FieldsOf(layout.Author)),
      Album(FieldsOf(layout.Album)),
      Title(FieldsOf(layout.Title)),
      Blur(layout.UseBlur),
      BlurX(BlurText(layout.BlurX)),
      BlurY(BlurText(layout.BlurY)),
      videoHeight_(videoHeight) {}

QList<AudioLayoutFault> AudioLayoutForm::Validate() const {
  const int mostY = videoHeight_ - kMargin;
  using Field = AudioLayoutField;
  const AudioLayoutFault checks[] = {{Field::AuthorX, PositionFault(Author.XPosition, kMostX)},
                                     {Field::AuthorY, PositionFault(Author.YPosition, mostY)},
                                     {Field::AlbumX, PositionFault(Album.XPosition, kMostX)},
                                     {Field::AlbumY, PositionFault(Album.YPosition, mostY)},
                                     {Field::TitleX, PositionFault(Title.XPosition, kMostX)},
                                     {Field::TitleY, PositionFault(Title.YPosition, mostY)},
                                     {Field::BlurX, BlurFault(BlurX)},
                                     {Field::BlurY, BlurFault(BlurY)}};
  QList<AudioLayoutFault> faults;
  for (const AudioLayoutFault& check : checks) {
    if (!check.Text.isEmpty()) faults << check;
  }
  return faults;
}

AudioLayout AudioLayoutForm::Layout() const {
  return {.Author = LayoutOf(Author),
          .Album = LayoutOf(Album),
          .Title = LayoutOf(Title),
          .UseBlur = Blur,
          .BlurX = RoundToInt(BlurValue(BlurX) * kHundredths),
          .BlurY = RoundToInt(BlurValue(BlurY) * kHundredths)};
}

void AudioLayoutForm::SetDefault(Settings& settings) const {
  const AudioLayout layout = Layout();
  settings.ArtistFont = layout.Author.Font;
  settings.ArtistColor = layout.Author.Color;
  settings.ArtistXpos = layout.Author.XPos;
  settings.ArtistYpos = layout.Author.YPos;
  settings.AlbumFont = layout.Album.Font;
  settings.AlbumColor = layout.Album.Color;
  settings.AlbumXpos = layout.Album.XPos;
  settings.AlbumYpos = layout.Album.YPos;
  settings.TitleFont = layout.Title.Font;
  settings.TitleColor = layout.Title.Color;
  settings.TitleXpos = layout.Title.XPos;
  settings.TitleYpos = layout.Title.YPos;
  settings.AudioTSBlur = layout.UseBlur;
  settings.AudioTSBlurX = layout.BlurX;
  settings.AudioTSBlurY = layout.BlurY;
}

}  // namespace torvane
