#include "platform/removal.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDirIterator>
#include <QFile>

#include "platform/generated_file.h"
#include "platform/real_place.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class RemovalTest : public testing::Test {
 protected:
  RemovalTest() {
    for (const QString& file : {u"T/a"_s, u"T/sub/b"_s, u"T/sub/deep/c"_s, u"Films/keep"_s, u"Films/more/keep"_s}) {
      drive_.Write(file);
    }
  }

  void Link(const QString& target, const QString& link) {
    ASSERT_TRUE(QFile::link(drive_.Host(target), drive_.Host(link)));
  }

  /// Everything below the drive, links by their names alone.
  QString Tree() const {
    QStringList names;
    QDirIterator all(drive_.Path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
      const QString path = all.next();
      if (all.fileInfo().isSymLink() || !all.fileInfo().isDir()) names << path.sliced(drive_.Path().size() + 1);
    }
    names.sort();
    return names.join(u' ');
  }

  const test::DriveC drive_{{u"T/empty"_s}};
  const QString films_ = u"Films/keep Films/more/keep"_s;
};

TEST_F(RemovalTest, ATreeGoesAndWhatLiesBehindItsLinksStays) {
  Link(u"Films"_s, u"T/sub/folder"_s);
  Link(u"Films/keep"_s, u"T/file"_s);
  Link(u"nowhere"_s, u"T/dangling"_s);
  Link(u"T"_s, u"Way"_s);
  EXPECT_TRUE(RemoveTree(u"C:\\Way"_s));
  EXPECT_EQ(Tree(), films_ + u" T/a T/dangling T/file T/sub/b T/sub/deep/c T/sub/folder") << "the link went alone";
  Link(u"."_s, u"Way"_s);
  EXPECT_TRUE(RemoveTree(u"C:\\Way\\T"_s));
  EXPECT_EQ(Tree(), films_ + u" Way");
  EXPECT_TRUE(RemoveTree(u"C:\\T"_s)) << "nothing is there any more";
}

TEST_F(RemovalTest, WhatIsNoFolderOfARunIsNeverDeleted) {
  const QString before = Tree();
  const QString formerHome = qEnvironmentVariable("HOME");
  const QString formerDir = QDir::currentPath();
  qputenv("HOME", drive_.Host(u"T/sub"_s).toUtf8());
  ASSERT_TRUE(QDir::setCurrent(drive_.Host(u"Films/more"_s)));
  Link(u"T"_s, u"Way"_s);
  // None of them is a folder whose loss would matter, should one be deleted after all.
  const QString nobody = u"Z:\\torvane-no-such-folder"_s;
  for (const QString& folder : {QString(), nobody, u"C:\\T"_s, u"C:\\T\\sub"_s, u"C:\\Films"_s, u"C:\\Films\\more"_s,
                                u"C:\\Way\\..\\Films"_s, u"C:\\t\\SUB\\..\\sub"_s}) {
    EXPECT_FALSE(RemoveTree(folder)) << folder.toStdString();
  }
  EXPECT_TRUE(QDir::setCurrent(formerDir));
  qputenv("HOME", formerHome.toUtf8());
  EXPECT_EQ(Tree(), before + u" Way");
}

TEST_F(RemovalTest, OneNameBelowAFolderGoesAndNothingElseCan) {
  Link(u"Films"_s, u"T/link"_s);
  const struct {
    QString relative;
    bool removed;
  } cases[] = {
      {u"a"_s, true},
      {u"sub/b"_s, true},
      {u"empty"_s, true},
      {u"link"_s, true},
      {u"missing"_s, true},
      {u"link/keep"_s, false},
      {u"../Films/keep"_s, false},
      {u"sub/../../Films/keep"_s, false},
      {u"sub"_s, false},
      {u"/etc/missing"_s, false},
      {u"."_s, false},
      {u".."_s, false},
      {QString(), false},
      {u"sub//deep"_s, false},
  };
  for (const auto& [relative, removed] : cases) {
    if (removed) continue;
    EXPECT_FALSE(RemoveBelow(u"C:\\T"_s, relative)) << relative.toStdString();
  }
  EXPECT_EQ(Tree(), films_ + u" T/a T/link T/sub/b T/sub/deep/c");
  for (const auto& [relative, removed] : cases) {
    if (!removed) continue;
    EXPECT_TRUE(RemoveBelow(u"C:\\T"_s, relative)) << relative.toStdString();
  }
  EXPECT_EQ(Tree(), films_ + u" T/sub/deep/c");
  EXPECT_FALSE(RemoveBelow(QString(), u"a"_s));
}

TEST_F(RemovalTest, AGeneratedFileReplacesALinkAndIsNotWrittenThroughIt) {
  Link(u"Films/keep"_s, u"T/x.bat"_s);
  Link(u"Films/more/keep"_s, u"T/x.bat.part"_s);
  ASSERT_TRUE(WriteGeneratedFile(u"C:\\T\\x.bat"_s, "new"));
  EXPECT_EQ(*HostFiles::Read(u"C:\\Films\\keep"_s), "x");
  EXPECT_EQ(*HostFiles::Read(u"C:\\Films\\more\\keep"_s), "x");
  EXPECT_EQ(*HostFiles::Read(u"C:\\T\\x.bat"_s), "new");
  EXPECT_FALSE(IsLink(u"C:\\T\\x.bat"_s) || NameExists(u"C:\\T\\x.bat.part"_s));
}

TEST_F(RemovalTest, APlaceIsTheSameOnEveryWayToIt) {
  Link(u"Films"_s, u"T/link"_s);
  Link(u"Films/keep"_s, u"T/film"_s);
  ASSERT_EQ(link(qPrintable(drive_.Host(u"Films/keep"_s)), qPrintable(drive_.Host(u"hard"_s))), 0);
  for (const QString& way : {u"c:\\FILMS\\Keep"_s, u"C:\\T\\link\\keep"_s, u"C:\\T\\film"_s, u"C:\\hard"_s,
                             HostFiles::ToDos(drive_.Host(u"T/../Films/keep"_s))}) {
    EXPECT_EQ(PlaceOf(way), PlaceOf(u"C:\\Films\\keep"_s)) << way.toStdString();
  }
  EXPECT_NE(PlaceOfName(u"C:\\T\\film"_s), PlaceOf(u"C:\\T\\film"_s));
  EXPECT_EQ(PlaceOf(u"C:\\T\\link\\New"_s), PlaceOf(u"C:\\Films\\nEW"_s));

  for (const QString& inside : {u"C:\\T\\link\\more\\keep"_s, u"C:\\T\\film"_s, u"C:\\films\\none\\x"_s}) {
    EXPECT_TRUE(LiesWithin(inside, u"C:\\Films"_s)) << inside.toStdString();
  }
  for (const QString& outside : {u"C:\\Films"_s, u"C:\\Films2\\x"_s, u"C:\\T\\link"_s, u"C:\\Films\\..\\x"_s}) {
    EXPECT_EQ(LiesWithin(outside, u"C:\\Films"_s), false) << outside.toStdString();
  }
  EXPECT_TRUE(LiesDirectlyIn(u"C:\\T\\film"_s, u"C:\\Films"_s) && LiesDirectlyIn(u"C:\\T\\film"_s, u"C:\\T"_s));
  EXPECT_FALSE(LiesDirectlyIn(u"C:\\Films\\more\\keep"_s, u"C:\\Films"_s));
}

}  // namespace
}  // namespace torvane
