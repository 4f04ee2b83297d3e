#include "run/source_guard.h"

#include <gtest/gtest.h>

#include <QFile>

#include "platform/host_files.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class SourceGuardTest : public testing::Test {
 protected:
  void Make(const QStringList& files) {
    for (const QString& file : files) ASSERT_TRUE(HostFiles::WriteAtomically(file, "x")) << file.toStdString();
  }
  void Link(const QString& target, const QString& link) {
    ASSERT_TRUE(QFile::link(drive_.Path() + u'/' + target, drive_.Path() + u'/' + link));
  }

  test::DriveC drive_{{u"T/TempSub.d"_s, u"T/TempAudioMpg"_s, u"T/mine"_s, u"Films"_s}};
};

TEST_F(SourceGuardTest, NamesTheSourcesThatCleaningWouldDelete) {
  Make({u"C:\\T\\a.mpg"_s, u"C:\\T\\TempSub.d\\b.png"_s, u"C:\\T\\mine\\c.mpg"_s, u"C:\\Films\\d.mpg"_s});
  Link(u"T"_s, u"Way"_s);
  Link(u"T/a.mpg"_s, u"Films/link.mpg"_s);
  Link(u"Films/d.mpg"_s, u"T/d.mpg"_s);
  const QStringList inDanger =
      uR"(C:\T\a.mpg|c:\t\A.MPG|C:\Films\..\T\a.mpg|C:\Way\a.mpg|C:\T\d.mpg|C:\Films\link.mpg|C:\T\tempsub.d\b.png|)"
      uR"(C:\T\missing.mpg|C:\Way\TempAudioMpg\e.mp2)"_s.split(u'|') +
      QStringList{HostFiles::ToDos(drive_.Path()) + u"\\T\\a.mpg"_s};
  const QStringList safe{u""_s, u"C:\\Films\\d.mpg"_s, u"C:\\T\\mine\\c.mpg"_s, u"C:\\T.mpg"_s, u"C:\\T2\\a.mpg"_s};
  EXPECT_EQ(CheckSourcesOutsideTemp(safe + inDanger + inDanger, u"C:\\T"_s), inDanger);
  EXPECT_EQ(CheckSourcesOutsideTemp(safe + inDanger, u"C:\\FILMS\\..\\t\\"_s), inDanger);
}

}  // namespace
}  // namespace torvane
