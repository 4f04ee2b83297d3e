#include "shell/tool_program.h"

#include <gtest/gtest.h>

#include <QFile>

#include "platform/host_files.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ToolProgram, TheCheckAtStartKnowsWhatABatchWillFind) {
  const test::DriveC drive;
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", drive.Path().toUtf8());
  const auto lay = [](const QString& dosPath, const QByteArray& content, bool isExecutable) {
    ASSERT_TRUE(HostFiles::WriteAtomically(dosPath, content));
    const auto run = isExecutable ? QFile::ExeOwner : QFile::Permissions();
    QFile::setPermissions(HostFiles::ToHost(dosPath), QFile::ReadOwner | QFile::WriteOwner | run);
  };
  const auto found = [] {
    QStringList names =
        u"dvdauthor.exe mkisofs.exe insnav.exe muxman.exe DGIndex.exe DGDecode.dll viewer.exe"_s.split(u' ');
    names.removeIf([](const QString& name) { return !HasTool(u"C:\\"_s + name); });
    return names.join(u' ');
  };
  EXPECT_EQ(found(), u"insnav.exe"_s) << "a tool of the console itself";
  EXPECT_EQ(MissingPrograms({uR"(C:\mplex.exe)"_s, uR"(C:\mpeg2enc.exe)"_s, uR"(C:\x\MPLEX.exe)"_s,
                             uR"(C:\insnav.exe)"_s, uR"(C:\requant.exe)"_s, uR"(C:\muxman.exe)"_s})
                .join(u'\n'),
            u"mplex is not installed; install the Debian package mjpegtools\n"
            u"mpeg2enc is not installed; install the Debian package mjpegtools\n"
            u"ffmpeg is not installed; install the Debian package ffmpeg\n"
            u"muxman is not available on this system"_s);
  lay(u"C:\\dvdauthor"_s, "#!/bin/sh\n", true);
  lay(u"C:\\genisoimage"_s, "#!/bin/sh\n", true);
  lay(u"C:\\DGIndex.exe"_s, "MZ", true);
  lay(u"C:\\dgdecode.DLL"_s, "MZ", false);
  lay(u"C:\\muxman.exe"_s, "MZ", true);
  lay(u"C:\\viewer.exe"_s, "#!/bin/sh\n", false);
  EXPECT_EQ(found(), u"dvdauthor.exe mkisofs.exe insnav.exe DGDecode.dll"_s);
  lay(u"C:\\wine"_s, "#!/bin/sh\n", true);
  lay(u"C:\\viewer.exe"_s, "#!/bin/sh\n", true);
  EXPECT_EQ(found(), u"dvdauthor.exe mkisofs.exe insnav.exe muxman.exe DGIndex.exe DGDecode.dll viewer.exe"_s);
  qputenv("PATH", path);
}

}  // namespace
}  // namespace torvane
