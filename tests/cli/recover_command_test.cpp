#include "cli_bench.h"
#include "core/journal_format.h"
#include "core/journal_place.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class RecoverCommandTest : public test::CliTest {
 protected:
  RecoverCommandTest() : project_(test::FixedSettings()) {
    test::BuildTwoFilms(project_);
    CalculateTotalSize(project_);
    project_.ProjectFile = u"Z:\\films\\holiday.tvn"_s;
    JournalBlock block;
    block.AddWhole(project_);
    EXPECT_TRUE(HostFiles::MakeDir(journals_));
    EXPECT_TRUE(HostFiles::WriteAtomically(journals_ + u"\\1-1.tvj"_s, kJournalMark.toByteArray() + block.Take() + "torn"));
    EXPECT_TRUE(HostFiles::WriteAtomically(journals_ + u"\\2-1.tvj"_s, "torn"));
  }

  QString journals_ = JournalDir(u"C:\\s"_s);
  Project project_;
};

TEST_F(RecoverCommandTest, ListsSavesAndDiscardsLeftWork) {
  ASSERT_EQ(Run(u"recover list"_s), kExitDone);
  EXPECT_TRUE(out_.startsWith(u"1-1\t20"_s) && out_.endsWith(u"\t/films/holiday.tvn\n"_s)) << out_.toStdString();
  EXPECT_TRUE(error_.startsWith(u"warning: 2-1: "_s)) << error_.toStdString();

  EXPECT_EQ(Run(uR"(recover save 1-1 C:\missing\again.tvn)"_s), kExitFailed);
  drive_.Write(u"mine.tvn"_s, "mine");
  EXPECT_EQ(Run(uR"(recover save 1-1 C:\mine)"_s), kExitFailed);
  EXPECT_EQ(*HostFiles::Read(uR"(C:\mine.tvn)"_s), "mine");
  EXPECT_EQ(HostFiles::FileNames(journals_).size(), 2) << "what is not saved is kept";
  ASSERT_EQ(Run(u"recover save 1-1 "_s + drive_.Host(u"again"_s)), kExitDone) << error_.toStdString();
  EXPECT_EQ(error_, u"warning: The end of the journal is damaged; what was changed last may be missing.\n"_s);
  Project recovered(test::FixedSettings());
  test::RecordingPrompter prompter;
  ASSERT_TRUE(LoadProject(recovered, u"C:\\again.tvn"_s, prompter));
  EXPECT_EQ(test::DumpTree(recovered.Tree), test::DumpTree(project_.Tree));

  EXPECT_EQ(Run(uR"(recover save 2-1 C:\again.tvn)"_s), kExitFailed);
  EXPECT_EQ(Run(u"recover discard 2-1"_s), kExitDone);
  EXPECT_EQ(Run(u"recover discard 2-1"_s), kExitFailed);
  EXPECT_EQ(error_, u"error: There is no journal \"2-1\", or the program that writes it still runs.\n"_s);
  EXPECT_EQ(HostFiles::FileNames(journals_), QStringList());
  EXPECT_EQ(Run(u"recover list"_s), kExitDone);
  EXPECT_EQ(out_, QString());
  EXPECT_EQ(Run(u"recover save 1-1"_s), kExitUsage);
}

}  // namespace
}  // namespace torvane
