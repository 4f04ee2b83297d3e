#pragma once

#include <QImage>

#include "console_fixture.h"
#include "media/palette.h"
#include "media/palette_file.h"
#include "support/shell_command.h"

namespace torvane::test {

/// Sixteen colours that come back from RGB as they were.
inline QList<int> StableColors() {
  QList<int> colors;
  for (int step = 0; colors.size() < kPaletteSize; ++step) {
    const int color = RgbToPalette(250 - step * 4, 10 + step * 5, step * step % 256);
    if (IsStablePaletteColor(color)) colors << color;
  }
  return colors;
}

/// A console with the tools of this machine, and small media that they make.
class RealMediaTest : public ConsoleTest {
 protected:
  void Ffmpeg(const QString& arguments) const { ShellCommand(Host({}), u"ffmpeg -v error -y "_s + arguments); }

  /// A still picture of one colour as an elementary stream "v.m2v", in the lines of a generated batch.
  std::string MakeStill(const char* norm) const {
    const bool pal = norm[0] == 'p';
    QImage picture(720, pal ? 576 : 480, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    picture.save(Host(u"v.png"_s));
    return RunBatch(QStringLiteral("\"C:\\Tools\\png2yuv.exe\" -n 1 -I p -L 0 -f %1 -j \"C:\\T\\v.png\" | "
                                   "\"C:\\Tools\\mpeg2enc.exe\" -f 8 -q 1 -b 5000 -a 2 -n %2 -o \"C:\\T\\v.m2v\"\r\n")
                        .arg(QLatin1StringView(pal ? "25" : "29.97"), QLatin1StringView(norm))
                        .toUtf8());
  }
};

}  // namespace torvane::test
