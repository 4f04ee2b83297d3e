#include "run/batch_outputs.h"

#include <gtest/gtest.h>

#include <QFile>

#include "platform/dos_code_page.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(BatchOutputs, TellsWhatLinesMakeFromWhatTheyRead) {
  const test::DriveC drive{{u"T"_s, u"O"_s}};
  ASSERT_TRUE(QFile::link(drive.Host(u"T"_s), drive.Host(u"Way"_s)));
  const QByteArray batch = ToDosCodePage(
      u"@echo off\r\necho \"C:\\T\\told.txt\"\r\nREM erase \"C:\\T\\*.xml\" /Q\r\n"
      u"\"C:\\p\\requant.exe\" 1.2 \"C:\\T\\in.m2v\" \"C:\\T\\Größe 100%%_req.mpv\"\r\n"
      u"\"C:\\p\\mplex.exe\" -M -f 8 -O 20ms -o \"C:\\T\\film.mpg\" \"C:\\T\\in.m2v\" \"C:\\v\\a.ac3\"\r\n"
      u"\"C:\\p\\png2yuv.exe\" -n 1 -j \"C:\\T\\MMBackg.png\" | \"C:\\p\\mpeg2enc.exe\" -f 8 -o \"C:\\t\\MM.m2v\"\r\n"
      u"\"C:\\p\\spumux.exe\" -s0 \"C:\\T\\Spu.xml\" <\"C:\\T\\film.mpg\" > \"C:\\Way\\film_SUB1.mpg\" \r\n"
      u"erase \"C:\\T\\film.mpg\" \r\nerase \"C:\\T\\TempSub.d\\*.*\" /Q\r\nrmdir \"C:\\T\\TempSub.d\"\r\n"
      u"copy \"C:\\T\\x.sup\" \"C:\\T\\TempSub.sup\"\r\nerase \"C:\\T\\*.vob\" /Q\r\nerase \"C:\\O\\*.vob\" /Q\r\n"
      u"\"C:\\p\\mkisofs.exe\" -dvd-video -o \"C:\\O\\x.ISO\" \"C:\\O\\DVD\"\r\n"_s);
  const BatchOutputs outputs = OutputsInTemp(batch, u"C:\\T"_s);
  EXPECT_EQ(outputs.names.join(u'|'), u"Größe 100%_req.mpv|film.mpg|MM.m2v|film_SUB1.mpg|TempSub.d|TempSub.sup");
  EXPECT_EQ(outputs.masks.join(u'|'), u"TempSub.d/*.*|*.vob");
  EXPECT_EQ(ProgramsOf(batch).join(u'|').remove(u"C:\\p\\"_s),
            u"requant.exe|mplex.exe|png2yuv.exe|mpeg2enc.exe|spumux.exe|mkisofs.exe");
}

}  // namespace
}  // namespace torvane
