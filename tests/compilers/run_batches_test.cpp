#include "compilers/run_batches.h"

#include <gtest/gtest.h>

#include "support/golden.h"
#include "support/harmless_values.h"
#include "support/project_builder.h"
#include "support/text_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::ExpectGolden;
using test::WithCrLf;

TEST(RunBatches, AreWrittenWordForWord) {
  Settings settings = test::FixedSettings();
  EXPECT_EQ(AuthorBatch(test::Harmless(settings)),
            WithCrLf("@echo off\necho.\necho author DVD\n\"C:\\tools\\dvdauthor.exe\" -x \"C:\\T\\Author.xml\"\n"));
  settings.ShortDVDALog = settings.ForceSCR = true;
  EXPECT_EQ(test::LinesWith(AuthorBatch(test::Harmless(settings)), "exe").front(),
            "\"C:\\tools\\dvdauthor.exe\" -w -r -x \"C:\\T\\Author.xml\"");
  EXPECT_EQ(SyntaxBatch(test::Harmless(settings)),
            WithCrLf("@echo off\necho author DVD\n\"C:\\tools\\dvdauthor.exe\" -x \"C:\\T\\Author.xml\"\n"));
  EXPECT_EQ(EndBatch(test::Harmless(settings)), WithCrLf("@echo off\necho.\necho Batchrun finished\necho.\n"));
}

TEST(RunBatches, TheImageBatchErasesOnlyInARealRun) {
  Settings settings = test::FixedSettings();
  settings.ISO_Name = u"My 100% film"_s;
  EXPECT_EQ(
      IsoBatch(u"C:\\iso\\My 100% film.ISO"_s, BatchUse::Run, test::Harmless(settings)),
      WithCrLf("@echo off\necho.\necho create ISO image\n\"C:\\tools\\mkisofs.exe\" -dvd-video -V \"My 100%% film\" "
               "-udf -o \"C:\\iso\\My 100%% film.ISO\" \"C:\\O\\DVD\"\n"));
  settings.AutoDelete = true;
  const QByteArray erases = R"(erase "C:\T\TempSub.d\*.*" /Q
erase "C:\T\TempAudioMpg\*.*" /Q
erase "C:\T\*.xml" /Q
erase "C:\T\*.png" /Q
erase "C:\T\*.bmp" /Q
erase "C:\T\*.mxp" /Q
erase "C:\T\*.vob" /Q
erase "C:\T\*.mpg" /Q
erase "C:\T\*.jpg" /Q
erase "C:\T\*.m2v" /Q
erase "C:\T\*.mpv" /Q
)";
  EXPECT_TRUE(
      IsoBatch(u"C:\\x.ISO"_s, BatchUse::Run, test::Harmless(settings))
          .startsWith(WithCrLf("@echo off\necho.\necho Delete temp files\n" + erases + "echo create ISO image\n")));
  QByteArray disabled = erases;
  disabled.replace("erase", "REM erase");
  EXPECT_TRUE(IsoBatch(u"C:\\x.ISO"_s, BatchUse::WriteOnly, test::Harmless(settings)).contains(WithCrLf(disabled)));
}

TEST(RunBatches, TheMainBatchLeavesBurningToTheUser) {
  ExpectGolden(
      MainBatch({u"batchrun0.bat"_s, u"MMBrun1.bat"_s, u"xNERO.bat"_s, u"ImgBurnRun.bat"_s}, test::Harmless({})),
      u"MainBatch.bat"_s);
}

}  // namespace
}  // namespace torvane
