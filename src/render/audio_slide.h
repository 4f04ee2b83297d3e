#pragma once

#include <QImage>

#include "core/audio_title_set.h"
#include "core/settings.h"
#include "render/picture_loader.h"

namespace torvane {

/// The picture that stands while a track plays: its image, stretched to the frame, with the artist, album and title
/// text over it, and softened if the layout says so. 720 by frame height, Format_RGB32. An image that cannot be loaded
/// is told by `pictures` and leaves the frame black.
QImage DrawAudioSlide(const AudioTitle& title, const AudioLayout& layout, const Settings& settings,
                      PictureLoader& pictures);

}  // namespace torvane
