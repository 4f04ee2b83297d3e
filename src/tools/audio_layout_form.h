#pragma once

#include <QList>
#include <QString>

#include "core/audio_title_set.h"

namespace torvane {

/// How one text stands on the pictures, as the fields hold it.
struct AudioTextFields {
  FontRecord Font = {};
  int Color = 0;
  QString XPosition = {};  ///< pixels
  QString YPosition = {};
};

enum class AudioLayoutField { AuthorX, AuthorY, AlbumX, AlbumY, TitleX, TitleY, BlurX, BlurY };

/// A field that may not stand as it is, and why.
struct AudioLayoutFault {
  AudioLayoutField Field = AudioLayoutField::AuthorX;
  QString Text = {};
  bool operator==(const AudioLayoutFault&) const = default;
};

/// The layout of an audio titleset under edit.
class AudioLayoutForm {
 public:
  /// `videoHeight` is 576 or 480.
  AudioLayoutForm(const AudioLayout& layout, int videoHeight);

  AudioTextFields Author;
  AudioTextFields Album;
  AudioTextFields Title;
  bool Blur = false;
  QString BlurX;  ///< "0.50", "." or "," in front of the decimals
  QString BlurY;

  QList<AudioLayoutFault> Validate() const;
  AudioLayout Layout() const;

  /// Makes what stands there the layout of new titlesets.
  void SetDefault(Settings& settings) const;

 private:
  int videoHeight_;
};

}  // namespace torvane
