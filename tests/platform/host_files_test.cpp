#include "platform/host_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include <QFile>
#include <QFileInfo>
#include <vector>

#include "platform/generated_file.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class HostFilesTest : public testing::Test {
 protected:
  QString Host(const QString& relative) const { return drive_.Host(relative); }

  test::DriveC drive_;
};

TEST_F(HostFilesTest, MapsDrivesBothWays) {
  EXPECT_EQ(HostFiles::ToDos(u"/home/u/a b.m2v"_s), u"Z:\\home\\u\\a b.m2v"_s);
  const std::pair<QString, QString> paths[] = {
      {u"Z:\\home\\u\\nothing here.m2v"_s, u"/home/u/nothing here.m2v"_s}, {u"C:\\T\\x.xml"_s, Host(u"T/x.xml"_s)},
      {u"c:/T/x.xml"_s, Host(u"T/x.xml"_s)}, {u"C:\\"_s, drive_.Path()},
      {u"relative\\x.bat"_s, u"relative/x.bat"_s}, {QString(), QString()}};
  for (const auto& [dos, host] : paths) EXPECT_EQ(HostFiles::ToHost(dos), host) << dos.toStdString();
  EXPECT_TRUE(HostFiles::ToHost(u"Q:\\x"_s).endsWith(u"/torvane/drive_q/x"_s));
}

TEST_F(HostFilesTest, NoPathLeadsOutOfItsDrive) {
  const QString root = drive_.Path();
  const QString former = QDir::currentPath();
  QDir().mkpath(Host(u"work"_s));
  QDir::setCurrent(Host(u"work"_s));
  const std::vector<std::pair<QString, QString>> paths{
      {u"C:\\..\\..\\etc\\passwd"_s, root + u"/etc/passwd"_s},
      {u"C:\\a\\..\\..\\b\\.\\c"_s, root + u"/b/c"_s},
      {u"C:..\\.."_s, root},
      {u"Z:\\..\\..\\usr"_s, u"/usr"_s},
      {u"\\usr\\bin"_s, root + u"/usr/bin"_s},
      {u"/usr/bin"_s, root + u"/usr/bin"_s},
      {u"\\"_s, root},
      {u"\\\\server\\share\\a"_s, root + u"/server/share/a"_s},
      {u"\\..\\..\\etc"_s, root + u"/etc"_s},
      {u"..\\x"_s, u"../x"_s},
  };
  EXPECT_EQ(HostFiles::CurrentDirectory(), u"C:\\work"_s);
  for (const auto& [dos, host] : paths) EXPECT_EQ(HostFiles::ToHost(dos), host) << dos.toStdString();
  QDir::setCurrent(u"/usr"_s);
  EXPECT_EQ(HostFiles::CurrentDirectory(), u"Z:\\usr"_s);
  EXPECT_EQ(HostFiles::ToHost(u"\\usr\\bin"_s), u"/usr/bin"_s);
  QDir::setCurrent(former);
}

TEST_F(HostFilesTest, TakesWhatAUserTypes) {
  EXPECT_EQ(HostFiles::FromUser(u"/tmp/../etc/x"_s), u"Z:\\etc\\x"_s);
  EXPECT_EQ(HostFiles::FromUser(u"C:/T/x"_s), u"C:\\T\\x"_s);
  EXPECT_EQ(HostFiles::FromUser(u"x.tvn"_s), HostFiles::ToDos(QDir::currentPath() + u"/x.tvn"_s));
}

TEST_F(HostFilesTest, FindsNamesWithoutRegardToCase) {
  drive_.Write(u"Filme/Größe/Urlaub.MPG"_s);
  EXPECT_TRUE(HostFiles::FileExists(u"C:\\FILME\\GRÖßE\\urlaub.mpg"_s));
  EXPECT_EQ(HostFiles::ToHost(u"C:\\filme\\größe\\urlaub.mpg"_s), Host(u"Filme/Größe/Urlaub.MPG"_s));
  EXPECT_EQ(HostFiles::ToHost(u"C:\\filme\\Neu.mpg"_s), Host(u"Filme/Neu.mpg"_s));
  EXPECT_FALSE(HostFiles::FileExists(u"C:\\filme"_s));
  EXPECT_TRUE(HostFiles::DirExists(u"C:\\filme"_s));
}

TEST_F(HostFilesTest, AFailedWriteLeavesTheFormerFileAndNothingElse) {
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\keep.txt"_s, "first"));
  EXPECT_FALSE(HostFiles::WriteAtomically(u"C:\\missing\\x.txt"_s, "y"));
  QDir(drive_.Path()).mkdir(u"folder"_s);
  const Status refused = HostFiles::WriteAtomically(u"C:\\folder"_s, "y");
  EXPECT_FALSE(refused);
  EXPECT_TRUE(refused.Error().startsWith(Host(u"folder"_s))) << refused.Error().toStdString();
  EXPECT_EQ(*HostFiles::Read(u"C:\\keep.txt"_s), "first");
  EXPECT_EQ(HostFiles::FileNames(u"C:\\"_s), QStringList{u"keep.txt"_s});
  EXPECT_FALSE(HostFiles::Read(u"C:\\folder"_s));
}

TEST_F(HostFilesTest, AGeneratedFileIsWholeOrAsItWas) {
  ASSERT_TRUE(WriteGeneratedFile(u"C:\\Author.xml"_s, "first"));
  ASSERT_TRUE(WriteGeneratedFile(u"C:\\AUTHOR.XML"_s, "second"));
  EXPECT_EQ(*HostFiles::Read(u"C:\\Author.xml"_s), "second");
  EXPECT_EQ(QFileInfo(Host(u"Author.xml"_s)).permissions() & QFile::ReadGroup, QFile::ReadGroup);
  QDir(drive_.Path()).mkpath(u"folder/full"_s);
  const Status refused = WriteGeneratedFile(u"C:\\folder"_s, "y");
  EXPECT_EQ(refused.Error(), Host(u"folder"_s) + u": Is a directory"_s);
  EXPECT_EQ(WriteGeneratedFile(u"C:\\missing\\x.txt"_s, "y").Error(),
            Host(u"missing/x.txt"_s) + u": No such file or directory"_s);
  // A disk that takes the first two bytes.
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small{2, limit.rlim_max};
  const auto former = signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const Status cut = WriteGeneratedFile(u"C:\\Author.xml"_s, "third");
  setrlimit(RLIMIT_FSIZE, &limit);
  signal(SIGXFSZ, former);
  EXPECT_EQ(cut.Error(), Host(u"Author.xml"_s) + u": File too large"_s);
  EXPECT_EQ(*HostFiles::Read(u"C:\\Author.xml"_s), "second");
  EXPECT_EQ(HostFiles::FileNames(u"C:\\"_s), QStringList{u"Author.xml"_s});
}

TEST_F(HostFilesTest, AsksFreeSpaceOfTheNearestParentThatExists) {
  EXPECT_TRUE(HostFiles::DriveFreeMB(u"C:\\not\\yet\\there"_s).has_value());
  EXPECT_EQ(HostFiles::FileSizeOf(u"C:\\nothing"_s), std::nullopt);
}

}  // namespace
}  // namespace torvane
