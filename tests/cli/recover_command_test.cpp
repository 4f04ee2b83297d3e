#include "cli/recover_command.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "cli/commands.h"
#include "core/journal_format.h"
#include "core/journal_place.h"
#include "core/project_file.h"
#include "platform/host_files.h"
#include "support/project_builder.h"
#include "support/project_state.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class RecoverCommandTest : public testing::Test {
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

  int Run(const QStringList& arguments) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int code = RunCli(QStringList{u"--profile"_s, dir_.path(), u"--set"_s, u"OutDir="_s + dir_.path(), u"recover"_s} +
                            arguments);
    out_ = QString::fromStdString(testing::internal::GetCapturedStdout());
    error_ = QString::fromStdString(testing::internal::GetCapturedStderr());
    return code;
  }

  QTemporaryDir dir_;
  QString journals_ = JournalDir(dir_.path());
  Project project_;
  QString out_;
  QString error_;
};

TEST_F(RecoverCommandTest, ListsSavesAndDiscardsLeftWork) {
  ASSERT_EQ(Run({u"list"_s}), kExitDone);
  EXPECT_TRUE(out_.startsWith(u"1-1\t20"_s) && out_.endsWith(u"\t/films/holiday.tvn\n"_s)) << out_.toStdString();
  EXPECT_TRUE(error_.startsWith(u"warning: 2-1: "_s)) << error_.toStdString();

  const QString saved = HostFiles::ToDos(dir_.path()) + u"\\again.tvn";
  EXPECT_EQ(Run({u"save"_s, u"1-1"_s, dir_.path() + u"/missing/again.tvn"}), kExitFailed);
  EXPECT_EQ(HostFiles::FileNames(journals_).size(), 2) << "what is not saved is kept";
  ASSERT_EQ(Run({u"save"_s, u"1-1"_s, dir_.path() + u"/again"}), kExitDone) << error_.toStdString();
  EXPECT_EQ(error_, u"warning: The end of the journal is damaged; what was changed last may be missing.\n"_s);
  Project recovered(test::FixedSettings());
  test::RecordingPrompter prompter;
  ASSERT_TRUE(LoadProject(recovered, saved, prompter));
  EXPECT_EQ(test::DumpTree(recovered.Tree), test::DumpTree(project_.Tree));

  EXPECT_EQ(Run({u"save"_s, u"2-1"_s, saved}), kExitFailed);
  EXPECT_EQ(Run({u"discard"_s, u"2-1"_s}), kExitDone);
  EXPECT_EQ(Run({u"discard"_s, u"2-1"_s}), kExitFailed);
  EXPECT_EQ(error_, u"error: There is no journal \"2-1\", or the program that writes it still runs.\n"_s);
  EXPECT_EQ(HostFiles::FileNames(journals_), QStringList());
  EXPECT_EQ(Run({u"list"_s}), kExitDone);
  EXPECT_EQ(out_, QString());
  EXPECT_EQ(Run({u"save"_s, u"1-1"_s}), kExitUsage);
}

}  // namespace
}  // namespace torvane
