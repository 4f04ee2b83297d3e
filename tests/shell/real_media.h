#pragma once

#include <QImage>
#include <QStandardPaths>

#include "console_fixture.h"

namespace torvane::test {

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
    Make(QStringLiteral("ffmpeg"), QStringLiteral("-v error -y %1").arg(arguments).split(QChar(u' ')));
  }

  /// A still picture of one colour as an elementary stream "v.m2v", in the lines of a generated batch.
  std::string MakeStill(const char* norm) const {
    const bool pal = norm[0] == 'p';
    QImage picture(720, pal ? 576 : 480, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    picture.save(Host(QStringLiteral("v.png")));
    return RunBatch(QStringLiteral("\"C:\\Tools\\png2yuv.exe\" -n 1 -I p -L 0 -f %1 -j \"C:\\T\\v.png\" | "
                                   "\"C:\\Tools\\mpeg2enc.exe\" -f 8 -q 1 -b 5000 -a 2 -n %2 -o \"C:\\T\\v.m2v\"\r\n")
                        .arg(QLatin1StringView(pal ? "25" : "29.97"), QLatin1StringView(norm))
                        .toUtf8());
  }
};

}  // namespace torvane::test
