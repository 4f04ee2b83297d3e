#pragma once

#include <QByteArray>
#include <QString>

#include "core/film_view.h"
#include "core/line_values.h"

namespace torvane {

/// Control file with which spumux adds a text subtitle to a film; `stream` is 1 to 3. A field that the film's subtitle
/// format string lacks gives no attribute.
QByteArray WriteTextSubXml(const FilmView& film, int stream, LineValues& values);

}  // namespace torvane
