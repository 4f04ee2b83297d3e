#include "run/temp_files.h"

#include <gtest/gtest.h>

#include <QFile>

#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class TempFilesTest : public testing::Test {
 protected:
  void Link(const QString& target, const QString& link) {
    ASSERT_TRUE(QFile::link(drive_.Host(target), drive_.Host(link)));
  }
  QString Files(const QString& dir = u"C:\\T"_s) const { return HostFiles::FileNames(dir).join(u' '); }

  const test::DriveC drive_{{u"T"_s, u"Films"_s}};
  const SourceGuard nothing_{{}};
};

TEST_F(TempFilesTest, OnlyWhatWasNotedBeforeIsCleaned) {
  drive_.Write(u"T/mine.mpg"_s);
  drive_.Write(u"T/photos/mine.png"_s);
  drive_.Write(u"Films/a.mpg"_s);
  TempFiles before(u"C:\\T"_s);
  ASSERT_TRUE(before.Write(u"Author.xml"_s, "x"));
  ASSERT_TRUE(before.Note({u"Film.mpg"_s, u"source.mpg"_s, u"TempSub.d"_s, u"TempAudioMpg"_s, u"TempAudioMpg/F1.mpg"_s,
                           u"never made"_s, u"../Films/a.mpg"_s, u"photos/../mine.mpg"_s}));
  for (const QString& file : {u"Film.mpg"_s, u"Film.mpg.part"_s, u"source.mpg"_s, u"TempSub.d/sub00001.png"_s,
                              u"TempSub.d/holiday.png"_s, u"photos/Film.mpg"_s}) {
    drive_.Write(u"T/"_s + file);
  }
  Link(u"Films"_s, u"T/TempAudioMpg"_s);
  drive_.Write(u"Films/F1.mpg"_s);

  TempFiles files(u"C:\\T"_s);
  EXPECT_EQ(files.Others(SourceGuard({u"C:\\T\\photos"_s})).join(u' '), u"TempSub.d/holiday.png mine.mpg");
  files.Clean(SourceGuard({u"C:\\T\\source.mpg"_s}));
  EXPECT_EQ(Files(), u".torvane-files mine.mpg source.mpg");
  EXPECT_EQ(Files(u"C:\\T\\TempSub.d"_s), u"holiday.png");
  EXPECT_EQ(Files(u"C:\\T\\photos"_s), u"Film.mpg mine.png");
  EXPECT_EQ(Files(u"C:\\Films"_s), u"F1.mpg a.mpg");

  ASSERT_TRUE(HostFiles::RemoveFile(u"C:\\T\\TempSub.d\\holiday.png"_s));
  TempFiles(u"C:\\T"_s).Clean(nothing_);
  EXPECT_EQ(Files(), u"mine.mpg") << "the list goes with the last file";
}

TEST_F(TempFilesTest, WhatIsNotOursIsNeverWrittenOver) {
  for (const QString& name : {u"a.xml"_s, u"B.PNG"_s, u"c.bat.part"_s}) drive_.Write(u"T/"_s + name);
  Link(u"Films/a.mpg"_s, u"T/d.mpg"_s);
  TempFiles files(u"C:\\T"_s);
  for (const QString& name : {u"A.xml"_s, u"b.png"_s, u"c.bat"_s, u"d.mpg"_s}) {
    const Status written = files.Write(name, "new");
    ASSERT_FALSE(written) << name.toStdString();
    EXPECT_TRUE(written.Error().contains(u"would be overwritten")) << written.Error().toStdString();
  }
  EXPECT_EQ(Files(u"C:\\Films"_s), QString());
  EXPECT_EQ(files.OthersMatching({u"*.xml"_s, u"*.mpg"_s, u"none/*.*"_s}).join(u' '), u"a.xml d.mpg");
  Link(u"Films"_s, u"T/TempSub.d"_s);
  EXPECT_EQ(files.OthersMatching({u"TempSub.d/*.*"_s}).join(u' '), u"TempSub.d");

  ASSERT_TRUE(files.Note({u"d.mpg"_s, u"TempSub.d"_s}));
  EXPECT_TRUE(files.RemoveLinks({u"d.mpg"_s, u"TempSub.d"_s, u"none"_s}));
  EXPECT_EQ(files.OthersAmong({u"d.mpg"_s, u"a.xml"_s}).join(u' '), u"a.xml");
  EXPECT_TRUE(HostFiles::DirExists(u"C:\\Films"_s) && !HostFiles::DirExists(u"C:\\T\\TempSub.d"_s));
}

TEST_F(TempFilesTest, AListIsBelievedAsFarAsItIsOurs) {
  const QByteArray head = "Torvane temporary files 1\n";
  const struct {
    QByteArray list;
    QString others;  ///< beside "keep"
  } cases[] = {
      {head + "a.xml\nb.xml\n", {}},
      {head + "a.xml\nb.xml", u"b.xml "_s},
      {head + "../T/a.xml\n/b.xml\na.xml/../b.xml\n", u"a.xml b.xml "_s},
      {"a.xml\nb.xml\n", u".torvane-files a.xml b.xml "_s},
  };
  for (const auto& [list, others] : cases) {
    for (const QString& name : {u"a.xml"_s, u"b.xml"_s, u"keep"_s}) drive_.Write(u"T/"_s + name);
    drive_.Write(u"T/.torvane-files"_s, list);
    EXPECT_EQ(TempFiles(u"C:\\T"_s).Others(nothing_).join(u' '), others + u"keep") << list.toStdString();
    EXPECT_EQ(bool(TempFiles(u"C:\\T"_s).Note({u"new"_s})), list.startsWith(head));
  }
  ASSERT_TRUE(QFile::rename(drive_.Host(u"T/.torvane-files"_s), drive_.Host(u"list"_s)));
  Link(u"list"_s, u"T/.torvane-files"_s);
  EXPECT_FALSE(TempFiles(u"C:\\T"_s).Note({u"new"_s}));
}

TEST_F(TempFilesTest, AFormerVersionIsKnownByItsFirstBatch) {
  drive_.Write(u"T/batchrun0.bat"_s, "@echo off\r\necho.\r\necho (shrink and) mux video and audio files\r\nmplex\r\n");
  drive_.Write(u"T/Author.xml"_s);
  TempFiles files(u"C:\\T"_s);
  ASSERT_TRUE(files.IsFromFormerVersion());
  files.Adopt({u"batchrun0.bat"_s, u"Author.xml"_s});
  EXPECT_EQ(files.Others(nothing_), QStringList());
  ASSERT_TRUE(files.Write(u"author.bat"_s, "x"));
  EXPECT_FALSE(TempFiles(u"C:\\T"_s).IsFromFormerVersion());
  EXPECT_EQ(TempFiles(u"C:\\T"_s).Others(nothing_), QStringList());
  drive_.Write(u"T/batchrun0.bat"_s, "@echo off\r\ndel *.*\r\n");
  ASSERT_TRUE(HostFiles::RemoveFile(u"C:\\T\\.torvane-files"_s));
  EXPECT_FALSE(TempFiles(u"C:\\T"_s).IsFromFormerVersion());
}

}  // namespace
}  // namespace torvane
