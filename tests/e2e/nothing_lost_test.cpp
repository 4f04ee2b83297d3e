// Runs that meet what is not theirs: former discs, the user's own files, links, other runs. Nothing of it is lost.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using testing::HasSubstr;

/// Every file below a directory with a hash of its content, every link with its target.
QStringList Snapshot(const QString& dir) {
  QStringList lines;
  QDirIterator all(dir, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDirIterator::Subdirectories);
  while (all.hasNext()) {
    const QString path = all.next();
    QByteArray content = all.fileInfo().symLinkTarget().toUtf8();
    if (!all.fileInfo().isSymLink() && all.fileInfo().isFile()) {
      content = QCryptographicHash::hash(ContentOf(path), QCryptographicHash::Md5).toHex();
    }
    lines << path.sliced(dir.size()) + u' ' + QString::fromLatin1(content);
  }
  lines.sort();
  return lines;
}

/// Puts a shell script in the place of a tool for the life of the object.
class FakeTool {
 public:
  FakeTool(const QString& dir, const QString& name, const QByteArray& script) : path_(qgetenv("PATH")) {
    QDir().mkpath(dir);
    Put(dir + u'/' + name, "#!/bin/sh\n" + script);
    QFile::setPermissions(dir + u'/' + name, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", dir.toUtf8() + ':' + path_);
  }
  ~FakeTool() { qputenv("PATH", path_); }
  Q_DISABLE_COPY_MOVE(FakeTool)

 private:
  QByteArray path_;
};

TEST(NothingLostTest, AFormerDiscOutlivesRunsThatAreRefusedFailOrAreKilled) {
  Workshop workshop;
  ASSERT_TRUE(Succeeded(workshop.Run(u"build"_s)));
  const QStringList disc = Snapshot(workshop.OutDir() + u"/DVD"_s);
  const QByteArray image = ContentOf(workshop.IsoFile());
  const auto expectFormer = [&] {
    EXPECT_EQ(Snapshot(workshop.OutDir() + u"/DVD"_s), disc);
    EXPECT_TRUE(ContentOf(workshop.IsoFile()) == image);
    EXPECT_FALSE(QFile::exists(workshop.OutDir() + u"/DVD.former"_s));
  };
  const QString tools = workshop.Dir() + u"/tools"_s;
  const QString half = workshop.OutDir() + u"/DVD/VIDEO_TS/half"_s;
  // The commands are checked before, with a disc of their own.
  const QByteArray begins = "for last; do :; done\ngrep -q 'dest=\"" + workshop.OutDir().toUtf8() +
                            "' \"$last\" || exec /usr/bin/dvdauthor \"$@\"\nmkdir -p '" +
                            QFileInfo(half).path().toUtf8() + "'\ntouch '" + half.toUtf8() + "'\n";
  {
    const FakeTool fails(tools, u"dvdauthor"_s, begins + "echo 'ERR: it fails' >&2\nexit 1\n");
    const CliResult failed = workshop.Run(u"build"_s);
    EXPECT_EQ(failed.exitCode, 1);
    EXPECT_THAT(failed.messages.toStdString(), HasSubstr("The former disc is back in "));
    expectFormer();
  }
  const FakeTool hangs(tools, u"dvdauthor"_s, begins + "exec sleep 5\n");
  const std::unique_ptr<QProcess> build = workshop.Start(u"build"_s);
  QElapsedTimer patience;
  patience.start();
  while (!QFile::exists(half) && patience.elapsed() < 60'000) QThread::msleep(20);
  ASSERT_TRUE(QFile::exists(half)) << build->readAllStandardError().toStdString();
  for (const QString& command : {u"build"_s, u"check"_s, u"compile"_s}) {
    const CliResult second = workshop.Run(command);
    EXPECT_EQ(second.exitCode, 1) << command.toStdString();
    EXPECT_THAT(second.messages.toStdString(),
                HasSubstr("is in use by torvane-cli (process " + std::to_string(build->processId()) + ')'));
  }
  EXPECT_THAT(workshop.RunPlain(u"recover"_s, {u"list"_s}).Words(), testing::Not(HasSubstr("disc\t")));
  EXPECT_TRUE(QFile::exists(half)) << "the run that goes on was not disturbed";

  kill(pid_t(build->processId()), SIGKILL);
  ASSERT_TRUE(build->waitForFinished(60'000));
  EXPECT_THAT(workshop.RunPlain(u"recover"_s, {u"list"_s}).Words(), HasSubstr("disc\t"));
  EXPECT_TRUE(Succeeded(workshop.RunPlain(u"recover"_s, {u"disc"_s})));
  expectFormer();
}

TEST(NothingLostTest, TheUsersOwnFilesOutliveARunThatCleansUp) {
  Workshop workshop;
  ASSERT_TRUE(Succeeded(workshop.Run(u"tree"_s)));
  const QString own = workshop.Dir() + u"/own"_s;
  for (const QString& name : {u"/photos/a.png"_s, u"/b.png"_s, u"/c.mpg"_s, u"/.hidden"_s}) {
    QDir().mkpath(QFileInfo(own + name).path());
    Put(own + name, "mine");
  }
  ASSERT_TRUE(QFile::link(own, workshop.TempDir() + u"/d.mpg"_s));
  const QStringList before = Snapshot(own);
  const auto build = [&] {
    return workshop.RunPlain(u"--set"_s, {u"AutoDelete=1"_s, u"build"_s, workshop.ProjectFile()});
  };
  const QString cleaned = workshop.TempDir();
  workshop.SetTempDir(own);
  CliResult built = build();
  ASSERT_TRUE(Succeeded(built));
  EXPECT_THAT(built.messages.toStdString(),
              HasSubstr("holds what Torvane did not make, such as .hidden, b.png, c.mpg"));
  QStringList after = Snapshot(own);
  for (const QString& line : before) EXPECT_TRUE(after.removeOne(line)) << line.toStdString();

  // Once they are away, all that is left is ours, and goes.
  for (const QString& line : before) {
    if (!line.startsWith(u"/photos ")) QDir(own).rename(line.section(u' ', 0, 0).mid(1), workshop.Dir() + u"/away"_s);
    QFile::remove(workshop.Dir() + u"/away"_s);
  }
  QDir(own).rmdir(u"photos"_s);
  ASSERT_TRUE(Succeeded(build()));
  EXPECT_EQ(Snapshot(own), QStringList());

  // A link in the place of what a run writes.
  workshop.SetTempDir(cleaned);
  Put(own + u"/film"_s, "mine");
  ASSERT_TRUE(QFile::link(own + u"/film"_s, cleaned + u"/First_film.mpg"_s));
  built = build();
  EXPECT_EQ(built.exitCode, 1);
  EXPECT_THAT(built.messages.toStdString(), HasSubstr("First_film.mpg"));
  EXPECT_EQ(ContentOf(own + u"/film"_s), "mine");
}

TEST(NothingLostTest, ADirectoryIsMadeWhereItIsNamedOrTheRunIsRefused) {
  Workshop workshop;
  workshop.SetOutDir(workshop.Dir() + u"/disc1"_s);
  workshop.SetTempDir(workshop.Dir() + u"/disc1/work"_s);
  EXPECT_TRUE(Succeeded(workshop.Run(u"compile"_s)));
  EXPECT_TRUE(QFile::exists(workshop.TempDir() + u"/MainBatch.bat"_s));
  workshop.SetOutDir(workshop.Dir() + u"/no/such"_s);
  const CliResult refused = workshop.Run(u"compile"_s);
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.messages.toStdString(),
              HasSubstr("OutDir: the directory \"" + workshop.OutDir().toStdString() + '"'));
  EXPECT_FALSE(QFile::exists(workshop.Dir() + u"/no"_s));
}

}  // namespace
}  // namespace torvane::test
