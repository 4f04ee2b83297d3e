#pragma once

#include <QProcess>

#include "cli/commands.h"
#include "core/project_file.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"
#include "support/tree_dump.h"

namespace torvane::test {

/// Runs commands of torvane-cli on a drive C: of their own, with the profile C:\s, and catches what they print.
class CliTest : public testing::Test {
 protected:
  /// `line` holds words apart by blanks, those with blanks in double quotation marks.
  int Run(const QString& line, const QStringList& settings = {}) {
    QStringList arguments{QStringLiteral("--profile"), QStringLiteral("C:\\s")};
    for (const QString& setting : QStringList{QStringLiteral("OutDir=C:\\O"), QStringLiteral("TempDir=C:\\T")} + settings) {
      arguments << QStringLiteral("--set") << setting;
    }
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code = RunCli(arguments + QProcess::splitCommand(line));
    out_ = QString::fromStdString(testing::internal::GetCapturedStdout());
    error_ = QString::fromStdString(testing::internal::GetCapturedStderr()).remove(u'\r');
    return code;
  }

  /// The captions of a node and all below it in a saved project, one a line; "" where the node is missing.
  static QString Captions(const QString& file, const QString& key) {
    RecordingPrompter prompter;
    Project project(FixedSettings());
    EXPECT_TRUE(LoadProject(project, file, prompter));
    QStringList captions;
    for (const QString& line : DumpTree(project.Tree, key).split(u'\n', Qt::SkipEmptyParts)) {
      captions << line.section(u'|', 1, 1);
    }
    return captions.join(u'\n');
  }

  DriveC drive_{{QStringLiteral("O"), QStringLiteral("T")}};
  QString out_;
  QString error_;
};

}  // namespace torvane::test
