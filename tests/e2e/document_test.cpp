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
  ASSERT_TRUE(Succeeded(workshop.Run(u"save"_s, {workshop.Dir() + u"/saved.tvn"_s})));
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
  for (const QString& name : {u"holiday.tvn"_s, u"samples/sample.tvn"_s})
    Put(workshop.Dir() + u'/' + name, workshop.project.Text());
  const QString films = workshop.Dir() + u"/films"_s;
  ASSERT_TRUE(QDir().mkdir(films));
  const QString path = QStringLiteral(TORVANE_BIN_DIR ":") + qEnvironmentVariable("PATH");
  for (QString command : commands) {
    command.replace(u"/data/dvd"_s, workshop.OutDir()).replace(u"/data/films"_s, films);
    EXPECT_TRUE(Succeeded(RunProgram(u"/bin/bash"_s, {u"-c"_s, command}, workshop.Dir(), {u"PATH"_s, path})))
        << qPrintable(command);
  }
  for (const QString& dir : {workshop.OutDir(), films}) {
    EXPECT_TRUE(QFile::exists(dir + u"/DVD/VIDEO_TS/VIDEO_TS.IFO"_s)) << qPrintable(dir);
  }
  EXPECT_TRUE(QFile::exists(workshop.Dir() + u"/pictures/MMBackg.png"_s));
}

}  // namespace
}  // namespace torvane::test
