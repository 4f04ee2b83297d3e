#pragma once

#include <QByteArrayView>
#include <optional>

#include "media/media_kind.h"

namespace torvane {

/// The kind of sound of which these are the first bytes (a few hundred are enough); nothing when they are no sound.
std::optional<MediaKind> IdentifySound(QByteArrayView head);

/// The bytes that an ID3 tag takes at the start of a file; 0 where there is none.
qint64 LeadingTagSize(QByteArrayView head);

}  // namespace torvane
