#pragma once

#include <gtest/gtest.h>

#include <QProcess>

namespace torvane::test {

/// Runs a line of the machine's shell in a directory and returns all that it prints; anything but success is a failure.
inline QString ShellCommand(const QString& directory, const QString& line) {
  QProcess shell;
  shell.setWorkingDirectory(directory);
  shell.setProcessChannelMode(QProcess::MergedChannels);
  shell.setStandardInputFile(QProcess::nullDevice());
  shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-ec"), line});
  EXPECT_TRUE(shell.waitForFinished(90000)) << line.toStdString();
  const QString output = QString::fromUtf8(shell.readAll());
  EXPECT_TRUE(shell.exitStatus() == QProcess::NormalExit && shell.exitCode() == 0) << line.toStdString() << '\n'
                                                                                   << output.toStdString();
  return output;
}

}  // namespace torvane::test
