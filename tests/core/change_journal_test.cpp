#include "core/change_journal.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <csignal>

#include "core/edit.h"
#include "core/journal_format.h"
#include "core/left_journal.h"
#include "core/project_file.h"
#include "platform/host_files.h"
#include "support/project_builder.h"
#include "support/project_state.h"
#include "support/random_changes.h"
#include "support/recording_prompter.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

using test::WholeProject;

void SetText(Project& project, const QString& text) {
  Edit edit(project, u"Text"_s);
  project.Tree.SetCaption(u"MMB1Text"_s, u"Text="_s + text);
  edit.Commit();
}

class ChangeJournalTest : public testing::Test {
 protected:
  ChangeJournalTest() : project_(test::FixedSettings()) {
    test::BuildTwoFilms(project_);
    project_.History.Reset();
  }

  QStringList Files() const { return HostFiles::FileNames(dir_); }
  QByteArray Written() const { return *HostFiles::Read(journal_.Path()); }

  void ExpectAllIsWritten() const {
    JournalReplay replay;
    EXPECT_TRUE(Recovered(Written(), replay) == WholeProject(project_));
  }

  /// What a journal brings back, as its own program had it.
  static WholeProject Recovered(const QByteArray& journal, JournalReplay& replay) {
    Project project(test::FixedSettings());
    const Result<JournalReplay> result = ReplayJournal(journal, project);
    EXPECT_TRUE(result) << qPrintable(result.Error());
    replay = result ? *result : JournalReplay{-1, -1};
    EXPECT_FALSE(project.ProjectSaved());
    EXPECT_FALSE(project.History.CanUndo());
    return WholeProject(project);
  }

  QTemporaryDir temp_;
  QString dir_ = HostFiles::ToDos(temp_.path()) + u"\\Journal"_s;
  Project project_;
  qint64 now_ = 0;
  ChangeJournal journal_{project_, dir_, [this] { return now_; }};
};

TEST_F(ChangeJournalTest, IsThereExactlyWhileThereIsUnsavedWork) {
  const auto edit = [this] {
    SetText(project_, u"changed"_s);
    EXPECT_TRUE(journal_.Flush());
    EXPECT_EQ(Files().size(), 2) << "the journal and its lock";
  };
  ASSERT_TRUE(journal_.Flush());
  EXPECT_FALSE(HostFiles::DirExists(dir_));

  edit();
  project_.History.Undo();
  EXPECT_TRUE(journal_.Flush());
  EXPECT_EQ(Files(), QStringList());

  edit();
  test::RecordingPrompter prompter;
  project_.ProjectFile = HostFiles::ToDos(temp_.path()) + u"\\p.tvn"_s;
  ASSERT_TRUE(SaveProject(project_, prompter));
  EXPECT_EQ(Files(), QStringList());

  SetText(project_, u"behind the save"_s);
  EXPECT_TRUE(journal_.Flush());
  ExpectAllIsWritten();
  ASSERT_TRUE(LoadProject(project_, project_.ProjectFile, prompter));
  EXPECT_EQ(Files(), QStringList());

  {
    ChangeJournal other(project_, dir_);
    SetText(project_, u"x"_s);
    ASSERT_TRUE(other.Flush());
    ASSERT_TRUE(journal_.Flush());
    EXPECT_EQ(Files().size(), 4) << "two programs at work";
    EXPECT_TRUE(TakeLeftJournals(dir_).empty());
  }
  EXPECT_EQ(Files().size(), 2) << "one has ended";
}

TEST_F(ChangeJournalTest, IsWrittenWithinASecondButNotInsideAnEdit) {
  const auto pollUntil = [this](qint64 end) {
    for (; now_ < end; now_ += ChangeJournal::kPollMs) ASSERT_TRUE(journal_.Poll());
  };
  pollUntil(5100);
  SetText(project_, u"a"_s);
  EXPECT_TRUE(journal_.Poll());
  EXPECT_EQ(journal_.Path(), QString());
  pollUntil(now_ + 1000);
  ASSERT_NE(journal_.Path(), QString());
  const QByteArray before = Written();

  {
    Edit edit(project_, u"slow"_s);
    project_.Tree.SetCaption(u"MMB2Text"_s, u"Text=half"_s);
    pollUntil(now_ + 3000);
    EXPECT_EQ(Written(), before);
    project_.Tree.SetCaption(u"MMB3Text"_s, u"Text=whole"_s);
    edit.Commit();
  }
  pollUntil(now_ + 1000);
  EXPECT_TRUE(Written().startsWith(before));
  JournalReplay replay;
  EXPECT_TRUE(Recovered(Written(), replay) == WholeProject(project_));
  EXPECT_EQ(replay, (JournalReplay{1, 0}));
}

TEST_F(ChangeJournalTest, BringsRandomWorkBackAndIgnoresADamagedEnd) {
  test::RandomChanges random(project_, 7);
  std::vector<WholeProject> states;  // by number of groups
  std::vector<qsizetype> ends;
  for (int round = 0; round < 60; ++round) {
    switch (random.Below(6)) {
      case 0:
        project_.History.Undo();
        break;
      case 1:
        project_.History.Redo();
        break;
      case 2:
        random.Make(1);  // outside of any edit
        break;
      case 3: {
        const Edit edit(project_, u"given up"_s);
        random.Make(10);
        break;
      }
      default: {
        Edit edit(project_, u"kept"_s);
        random.Make(10);
        project_.ProjectFps = round / 7.0;
        project_.Settings.DefaultFont.Size = 10 + round;
        project_.Settings.DefImagGif.RelSize = 100.0F / float(1 + round);
        project_.Settings.VideoNormPal = round % 2;
        FollowVideoNorm(project_.Settings);
        edit.Commit();
      }
    }
    project_.History.MarkUnsaved();
    ASSERT_TRUE(journal_.Flush());
    if (!ends.empty() && Written().size() == ends.back()) continue;
    states.emplace_back(project_);
    ends.push_back(Written().size());
  }
  ASSERT_GT(states.size(), 20U);

  const QByteArray journal = Written();
  JournalReplay replay;
  for (std::size_t i = 0; i < states.size(); ++i) {
    EXPECT_TRUE(Recovered(journal.first(ends[i]), replay) == states[i]) << i;
    EXPECT_EQ(replay, (JournalReplay{int(i), 0}));
    if (i == 0) continue;
    const qsizetype cut = ends[i - 1] + 1 + random.Below(int(ends[i] - ends[i - 1]) - 1);
    EXPECT_TRUE(Recovered(journal.first(cut), replay) == states[i - 1]) << "cut in group " << i;
    EXPECT_EQ(replay, (JournalReplay{int(i) - 1, cut - ends[i - 1]}));
    QByteArray damaged = journal;
    damaged[cut] = char(damaged[cut] ^ (1 << random.Below(8)));
    EXPECT_TRUE(Recovered(damaged, replay) == states[i - 1]) << "damaged in group " << i;
    EXPECT_EQ(replay, (JournalReplay{int(i) - 1, journal.size() - ends[i - 1]}));
  }

  const WholeProject before(project_);
  for (const QByteArray& nothing : {QByteArray(), QByteArray("TorvaneJournal9\n"), journal.first(ends[0] - 1)}) {
    EXPECT_FALSE(ReplayJournal(nothing, project_));
    EXPECT_TRUE(WholeProject(project_) == before);
  }
}

TEST_F(ChangeJournalTest, BeginsAnewBeforeItGrowsWithoutEnd) {
  const QString text(1 << 20, u'x');
  qsizetype largest = 0;
  for (int i = 0; i < 30; ++i) {
    SetText(project_, text + QString::number(i));
    ASSERT_TRUE(journal_.Flush());
    largest = std::max(largest, Written().size());
  }
  EXPECT_LT(largest, 16 << 20);
  ExpectAllIsWritten();
}

TEST_F(ChangeJournalTest, TellsOnceWhenItCannotBeWritten) {
  ASSERT_TRUE(HostFiles::WriteAtomically(dir_, "a file in the way"));
  SetText(project_, u"a"_s);
  const Status told = journal_.Flush();
  EXPECT_EQ(told.Error(), u"Unsaved work cannot be kept safe from a crash: the directory %1 cannot be made"_s.arg(dir_));
  now_ += ChangeJournal::kRetryMs;
  EXPECT_TRUE(journal_.Poll());
  ASSERT_TRUE(HostFiles::RemoveFile(dir_));
  now_ += ChangeJournal::kRetryMs;
  EXPECT_TRUE(journal_.Poll());
  ExpectAllIsWritten();
}

TEST_F(ChangeJournalTest, AFullDiskCostsNothingThatWasWritten) {
  SetText(project_, u"a"_s);
  ASSERT_TRUE(journal_.Flush());
  const QString path = journal_.Path();
  const test::WholeProject written(project_);

  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  const auto formerHandler = signal(SIGXFSZ, SIG_IGN);
  rlimit full = former;
  full.rlim_cur = rlim_t(HostFiles::FileSizeOf(path).value()) + 10;
  setrlimit(RLIMIT_FSIZE, &full);
  SetText(project_, QString(1000, u'b'));
  EXPECT_FALSE(journal_.Flush()) << "the change does not fit";
  now_ += ChangeJournal::kRetryMs;
  EXPECT_TRUE(journal_.Poll()) << "told once, though the whole does not fit either";
  setrlimit(RLIMIT_FSIZE, &former);
  signal(SIGXFSZ, formerHandler);

  Project left(test::FixedSettings());
  const Result<QByteArray> journal = HostFiles::Read(path);
  ASSERT_TRUE(journal && ReplayJournal(*journal, left));
  EXPECT_EQ(test::WholeProject(left).tree, written.tree);

  now_ += ChangeJournal::kRetryMs;
  EXPECT_TRUE(journal_.Poll());
  EXPECT_EQ(journal_.Path(), path);
  ExpectAllIsWritten();
}

/// A process that edits a project, and is killed without warning some time after it says that it has.
class Victim {
 public:
  Victim(Project& project, const QString& dir) {
    int ends[2];
    if (pipe(ends) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      ChangeJournal journal(project, dir);
      SetText(project, u"before the crash"_s);
      while (journal.Path().isEmpty()) {
        if (!journal.Poll()) _exit(1);
        usleep(10000);
      }
      Edit edit(project, u"never done"_s);
      project.Tree.Remove(u"MM"_s);
      if (!journal.Flush() || write(ends[1], "x", 1) != 1) _exit(1);
      pause();
      _exit(1);
    }
    close(ends[1]);
    char ready = 0;
    isReady_ = read(ends[0], &ready, 1) == 1;
    close(ends[0]);
  }
  ~Victim() { Kill(); }

  bool IsReady() const { return isReady_; }

  void Kill() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    pid_ = 0;
  }

 private:
  pid_t pid_ = 0;
  bool isReady_ = false;
};

TEST_F(ChangeJournalTest, AKilledProgramOffersItsWorkToOneOther) {
  project_.ProjectFile = u"C:\\films\\holiday.tvn"_s;
  project_.ProjectNamed = true;
  Victim victim(project_, dir_);
  ASSERT_TRUE(victim.IsReady());
  EXPECT_TRUE(TakeLeftJournals(dir_).empty()) << "it still runs";
  victim.Kill();
  ASSERT_TRUE(HostFiles::WriteAtomically(dir_ + u"\\1-1.tvj.new"_s, "begun by another that was killed"));
  ASSERT_TRUE(HostFiles::WriteAtomically(dir_ + u"\\2-1.tvj"_s, "no journal"));
  const QByteArray nobody = "999999999\nnobody\n" + QSysInfo::machineHostName().toUtf8() + '\n';
  ASSERT_TRUE(HostFiles::WriteAtomically(dir_ + u"\\3-1.tvj.lock"_s, nobody));

  std::vector<LeftJournal> left = TakeLeftJournals(dir_);
  EXPECT_TRUE(TakeLeftJournals(dir_).empty()) << "it is offered once";
  ASSERT_EQ(left.size(), 2U);
  if (!left[0].Head()) std::swap(left[0], left[1]);
  EXPECT_EQ(left[1].Head().Error(), HostFiles::ToHost(left[1].Path()) + u" is no journal of this program");
  EXPECT_EQ(*left[0].Head(), (JournalHead{u"C:\\films\\holiday.tvn"_s, true}));

  Project recovered(test::FixedSettings());
  const Result<JournalReplay> replay = left[0].Recover(recovered);
  ASSERT_TRUE(replay) << qPrintable(replay.Error());
  SetText(project_, u"before the crash"_s);
  EXPECT_TRUE(WholeProject(recovered) == WholeProject(project_));
  EXPECT_EQ(recovered.ProjectFile, project_.ProjectFile);
  EXPECT_TRUE(recovered.ProjectNamed);

  ChangeJournal own(recovered, dir_);
  EXPECT_TRUE(own.Flush()) << "the work is safe again before the old journal goes";
  EXPECT_NE(own.Path(), QString());
  for (LeftJournal& journal : left) EXPECT_TRUE(journal.Discard());
  left.clear();
  EXPECT_TRUE(TakeLeftJournals(dir_).empty());
  EXPECT_EQ(Files().size(), 2) << Files().join(u' ').toStdString();
}

}  // namespace
}  // namespace torvane
