// What is written in the tree for a newcomer must hold: the sample is a file as the program writes it, and the commands
// of the README work as they stand.

#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>

#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

TEST(SampleTest, IsWrittenAsTheProgramWritesIt) {
  Workshop workshop;
  // Without its media the project keeps the paths it has.
  for (const QString& name : QDir(workshop.Dir()).entryList(QDir::Files)) workshop.RemoveMedia(name);
  const CliResult saved = workshop.Run(u"save"_s, {workshop.Dir() + u"/saved.tvn"_s});
  ASSERT_EQ(saved.exitCode, 0) << saved.messages.toStdString();
  EXPECT_EQ(ContentOf(workshop.Dir() + u"/saved.tvn"_s).toStdString(), workshop.project.Text().toStdString());
}

TEST(CommandLineTest, KeepsOptionsThatQtKnowsToo) {
  const CliResult added = Workshop().Run(u"add-button"_s, {u"Sea"_s, u"--style"_s, u"bold"_s});
  EXPECT_EQ(added.exitCode, 1);
  EXPECT_EQ(added.messages, "error: --style takes graphic, text or combined.\n");
}

/// The lines of the README that show a call of a program, without the remark behind it.
QStringList CommandsOf(const QString& text) {
  static const QRegularExpression call(u"^    ((?:cd \\S+ && )?torvane-(?:cli|cmd) .*?)\\s*(?:#.*)?$"_s,
                                       QRegularExpression::MultilineOption);
  QStringList commands;
  for (const QRegularExpressionMatch& match : call.globalMatch(text)) commands.append(match.captured(1));
  return commands;
}

TEST(ReadmeTest, ItsCommandsWorkInTheirOrder) {
  const QStringList commands =
      CommandsOf(QString::fromUtf8(ContentOf(QStringLiteral(TORVANE_SOURCE_DIR "/README.md"))));
  ASSERT_GE(commands.size(), 7);

  Workshop workshop;
  ASSERT_TRUE(QDir(workshop.Dir()).mkdir(u"samples"_s));
  for (const QString& name : {u"holiday.tvn"_s, u"samples/sample.tvn"_s}) {
    QFile file(workshop.Dir() + u'/' + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(workshop.project.Text()) > 0);
  }
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"PATH"_s, QStringLiteral(TORVANE_BIN_DIR ":") + environment.value(u"PATH"_s));
  for (QString command : commands) {
    command.replace(u"/data/dvd"_s, workshop.OutDir());
    QProcess shell;
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.setStandardInputFile(QProcess::nullDevice());
    shell.setWorkingDirectory(workshop.Dir());
    shell.start(u"/bin/bash"_s, {u"-c"_s, command});
    ASSERT_TRUE(shell.waitForFinished(300'000)) << command.toStdString();
    EXPECT_EQ(shell.exitCode(), 0) << command.toStdString() << '\n' << shell.readAll().toStdString();
  }
  EXPECT_TRUE(QFile::exists(workshop.OutDir() + u"/DVD/VIDEO_TS/VIDEO_TS.IFO"_s));
  EXPECT_TRUE(QFile::exists(workshop.Dir() + u"/pictures/MMBackg.png"_s));
}

}  // namespace
}  // namespace torvane::test
