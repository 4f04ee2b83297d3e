#pragma once

#include <QImage>
#include <QStandardPaths>

#include "console_fixture.h"
#include "media/palette.h"
#include "media/palette_file.h"

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
  /// Runs a program of this machine in C:\T; what it prints is part of a failure's message.
  void Make(const QString& program, const QStringList& arguments) const {
    QProcess process;
    process.setWorkingDirectory(Host({}));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QStandardPaths::findExecutable(program), arguments);
    ASSERT_TRUE(process.waitForFinished(60000));
    ASSERT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
  }

  void Ffmpeg(const QString& arguments) const {
    Make(u"ffmpeg"_s, u"-v error -y %1"_s.arg(arguments).split(QChar(u' ')));
  }

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
