#include "compilers/disc_keeper.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QtEndian>

#include "compilers/disc_look.h"
#include "platform/host_files.h"
#include "platform/real_place.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kSector = 2048;

/// An IFO that tells of `sectors` for itself, its films and its backup.
QByteArray Ifo(const char* magic, quint32 sectors, quint16 titlesets = 0) {
  QByteArray ifo(kSector, '\0');
  ifo.replace(0, 12, magic);
  qToBigEndian(quint32(sectors - 1), ifo.data() + 0x0C);
  qToBigEndian(titlesets, ifo.data() + 0x3E);
  return ifo;
}

QByteArray Image(quint32 sectors) {
  QByteArray image(sectors * kSector, '\0');
  image.replace(16 * kSector, 6, "\1CD001");
  qToLittleEndian(sectors, image.data() + 16 * kSector + 80);
  qToLittleEndian(quint16(kSector), image.data() + 16 * kSector + 128);
  return image;
}

class DiscKeeperTest : public testing::Test {
 protected:
  DiscKeeperTest() {
    settings_.OutDir = u"C:\\O"_s;
    settings_.ISOPath = u"C:\\iso"_s;
    settings_.ISO_Name = u"FILM"_s;
    settings_.CreateISO = true;
  }

  void WriteDisc(const QByteArray& film = QByteArray(3 * kSector, 'f')) const {
    for (const QString& end : {u"IFO"_s, u"BUP"_s}) {
      drive_.Write(disc_ + u"VIDEO_TS."_s + end, Ifo("DVDVIDEO-VMG", 32, 1));
      drive_.Write(disc_ + u"VTS_01_0."_s + end, Ifo("DVDVIDEO-VTS", 5));
    }
    drive_.Write(disc_ + u"VTS_01_1.VOB"_s, film);
  }
  void WriteFormer() const {
    drive_.Write(disc_ + u"VIDEO_TS.IFO"_s, "former");
    drive_.Write(disc_ + u"sub/notes"_s, "former");
    drive_.Write(u"iso/FILM.ISO"_s, "former");
  }

  /// What stands in place of disc and image: "former", "new", "" or what else, and what is aside.
  QString State() const {
    const auto content = [](const QString& path) {
      const Result<QByteArray> bytes = HostFiles::Read(path);
      return !bytes ? u"-"_s : *bytes == "former" ? u"former"_s : u"new"_s;
    };
    QString state = content(u"C:\\O\\DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s) + u' ' + content(u"C:\\iso\\FILM.ISO"_s);
    if (NameExists(u"C:\\O\\DVD.former"_s))
      state += u" aside: " + HostFiles::FileNames(u"C:\\O\\DVD.former"_s).join(u' ');
    return state;
  }

  const QString disc_ = u"O/DVD/VIDEO_TS/"_s;
  const test::DriveC drive_{{u"O"_s, u"iso"_s}};
  Settings settings_;
};

TEST_F(DiscKeeperTest, TheFormerDiscAndImageStayUntilTheNewOnesAreWhole) {
  struct Case {
    const char* name;
    bool discFails, discIsHalf, imageFails, imageIsHalf;
    QString state;
    int faults;
  };
  const Case cases[] = {
      {"all is well", false, false, false, false, u"new new"_s, 0},
      {"author.bat fails", true, false, false, false, u"former former"_s, 0},
      {"author.bat makes half a disc", false, true, false, false, u"former former"_s, 1},
      {"makeiso.bat fails", false, false, true, false, u"new former"_s, 0},
      {"makeiso.bat makes half an image", false, false, false, true, u"new former"_s, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    WriteFormer();
    DiscKeeper keeper(settings_, 1);
    ASSERT_TRUE(keeper.Begin(FormerFate::SetAside));
    EXPECT_EQ(State(), u"- - aside: FILM.ISO former.txt");
    EXPECT_EQ(keeper.StepEnded(u"batchrun0.bat"_s, false), QStringList());
    WriteDisc(c.discIsHalf ? QByteArray(kSector, 'f') : QByteArray(3 * kSector, 'f'));
    QStringList faults = keeper.StepEnded(u"author.bat"_s, c.discFails);
    if (!c.discFails && faults.isEmpty()) {
      const QByteArray image = Image(40);
      drive_.Write(u"iso/FILM.ISO"_s, c.imageIsHalf ? image.left(image.size() / 2) : image);
      faults = keeper.StepEnded(u"makeiso.bat"_s, c.imageFails);
    }
    keeper.RunEnded();
    EXPECT_EQ(State(), c.state);
    EXPECT_EQ(faults.size(), c.faults) << faults.join(u'\n').toStdString();
    EXPECT_EQ(HostFiles::FileExists(u"C:\\O\\DVD\\VIDEO_TS\\sub\\notes"_s), c.state.startsWith(u"former"));
    for (const QString& dir : {u"C:\\O\\DVD\\VIDEO_TS\\sub\\notes"_s, u"C:\\O\\DVD\\VIDEO_TS\\VTS_01_1.VOB"_s}) {
      ASSERT_TRUE(HostFiles::RemoveFile(dir));
    }
  }
}

TEST_F(DiscKeeperTest, ARunThatEndsBeforeItsResultBringsTheFormerBack) {
  WriteFormer();
  {
    DiscKeeper aborted(settings_, 1);
    ASSERT_TRUE(aborted.Begin(FormerFate::SetAside));
    drive_.Write(disc_ + u"VIDEO_TS.IFO"_s, "half");
    aborted.RunEnded();
    EXPECT_EQ(State(), u"former former");
    EXPECT_EQ(aborted.Summary().size(), 2);
  }
  {
    DiscKeeper killed(settings_, 1);
    ASSERT_TRUE(killed.Begin(FormerFate::SetAside));
    drive_.Write(disc_ + u"VIDEO_TS.IFO"_s, "half");
  }
  FormerDisc left(u"C:\\O"_s);
  ASSERT_TRUE(left.IsLeft());
  EXPECT_EQ(left.PutBackAll()->size(), 2);
  EXPECT_EQ(State(), u"former former");
  EXPECT_FALSE(left.IsLeft());

  DiscKeeper given(settings_, 1);
  ASSERT_TRUE(given.Begin(FormerFate::DeletedFirst));
  given.RunEnded();
  EXPECT_EQ(State(), u"- -");
}

TEST_F(DiscKeeperTest, AProgramKilledWhileItDeletesBringsBackNothing) {
  WriteDisc();
  drive_.Write(u"O/DVD.former/former.txt"_s, "Torvane former disc 1\n\n");
  drive_.Write(u"O/DVD.former/dropped/VIDEO_TS.IFO"_s, "former");
  EXPECT_EQ(FormerDisc(u"C:\\O"_s).PutBackAll()->size(), 0);
  EXPECT_EQ(State(), u"new -");
}

TEST_F(DiscKeeperTest, LinksGoThemselvesAndComeBack) {
  drive_.Write(u"Films/VIDEO_TS.IFO"_s, "former");
  drive_.Write(u"Films/keep.iso"_s, "former");
  QDir(drive_.Path()).mkpath(u"O/DVD"_s);
  ASSERT_TRUE(QFile::link(drive_.Host(u"Films"_s), drive_.Host(u"O/DVD/VIDEO_TS"_s)));
  ASSERT_TRUE(QFile::link(drive_.Host(u"Films/keep.iso"_s), drive_.Host(u"iso/FILM.ISO"_s)));
  for (const bool works : {false, true}) {
    DiscKeeper keeper(settings_, 1);
    ASSERT_TRUE(keeper.Begin(FormerFate::SetAside));
    WriteDisc();
    drive_.Write(u"iso/FILM.ISO"_s, Image(40));
    EXPECT_EQ(keeper.StepEnded(u"author.bat"_s, !works).size() + keeper.StepEnded(u"makeiso.bat"_s, !works).size(), 0);
    keeper.RunEnded();
    EXPECT_EQ(State(), works ? u"new new" : u"former former");
    EXPECT_EQ(IsLink(u"C:\\O\\DVD\\VIDEO_TS"_s), !works);
    EXPECT_EQ(*HostFiles::Read(u"C:\\Films\\VIDEO_TS.IFO"_s) + *HostFiles::Read(u"C:\\Films\\keep.iso"_s),
              "formerformer");
  }
}

TEST_F(DiscKeeperTest, WhatCannotBeSetAsideStopsTheRunWithEverythingInItsPlace) {
  WriteFormer();
  drive_.Write(u"O/DVD.former/mine"_s);
  EXPECT_FALSE(DiscKeeper(settings_, 1).Begin(FormerFate::SetAside));
  EXPECT_EQ(State(), u"former former aside: mine");
  EXPECT_FALSE(FormerDisc(u"C:\\O"_s).IsLeft());
}

TEST_F(DiscKeeperTest, ADiscIsLookedAtFileByFile) {
  const QString dir = u"C:\\O\\DVD\\VIDEO_TS"_s;
  WriteDisc();
  EXPECT_EQ(DiscFaults(dir, 1), QStringList());
  EXPECT_EQ(DiscFaults(dir, std::nullopt), QStringList());
  EXPECT_EQ(DiscFaults(dir, 2).size(), 2);
  const std::pair<QString, QByteArray> damages[] = {
      {u"VIDEO_TS.IFO"_s, QByteArray(kSector, 'x')},
      {u"VIDEO_TS.BUP"_s, "short"},
      {u"VIDEO_TS.VOB"_s, QByteArray(40 * kSector, 'm')},
      {u"VTS_01_0.IFO"_s, {}},
      {u"VTS_01_0.BUP"_s, {}},
      {u"VTS_01_1.VOB"_s, {}},
      {u"VTS_01_1.VOB"_s, QByteArray(kSector, 'f')},
      {u"VTS_01_2.VOB"_s, QByteArray(kSector, 'f')},
  };
  for (const auto& [name, content] : damages) {
    drive_.Write(disc_ + name, content);
    const QStringList faults = DiscFaults(dir, 1);
    ASSERT_EQ(faults.size(), 1) << name.toStdString();
    EXPECT_TRUE(faults[0].startsWith(u"The disc is not whole: ")) << faults[0].toStdString();
    ASSERT_TRUE(HostFiles::RemoveFile(dir + u'\\' + name));
    WriteDisc();
  }
}

}  // namespace
}  // namespace torvane
