#include "platform/folder_lock.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <array>

#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// A process that holds folders until it is killed.
class Holder {
 public:
  explicit Holder(const QStringList& folders) {
    std::array<int, 2> ready{};
    if (pipe(ready.data()) != 0) return;
    process_ = fork();
    if (process_ == 0) {
      const Result<FolderLock> lock = FolderLock::Take(folders);
      (void)!write(ready[1], lock ? "y" : "n", 1);
      while (true) pause();
    }
    char answer = 'n';
    (void)!read(ready[0], &answer, 1);
    holds_ = answer == 'y';
    close(ready[0]);
    close(ready[1]);
  }
  ~Holder() { Kill(); }
  Q_DISABLE_COPY_MOVE(Holder)

  void Kill() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

  bool Holds() const { return holds_; }
  pid_t Process() const { return process_; }

 private:
  pid_t process_ = 0;
  bool holds_ = false;
};

TEST(FolderLockTest, AFolderBelongsToOneProcessUntilThatEndsOrIsKilled) {
  const test::DriveC drive{{u"O/T"_s, u"P"_s}};
  ASSERT_TRUE(QFile::link(drive.Host(u"O"_s), drive.Host(u"Way"_s)));
  Holder holder({u"C:\\O"_s, u"C:\\O\\T"_s, u"C:\\way"_s});
  ASSERT_TRUE(holder.Holds()) << "one folder named twice is no conflict";
  for (const QString& folder : {u"C:\\O"_s, u"C:\\Way"_s, u"C:\\P\\..\\o"_s, u"C:\\Way\\T"_s}) {
    const Result<FolderLock> second = FolderLock::Take({u"C:\\P"_s, folder});
    ASSERT_FALSE(second) << folder.toStdString();
    EXPECT_TRUE(second.Error().contains(u"(process %1)"_s.arg(holder.Process()))) << second.Error().toStdString();
  }
  EXPECT_TRUE(FolderLock::Take({u"C:\\P"_s})) << "what was taken before a refusal is free again";
  holder.Kill();
  EXPECT_TRUE(FolderLock::Take({u"C:\\O"_s, u"C:\\O\\T"_s}));
  EXPECT_EQ(QDir(drive.Host(u"O"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{u"T"_s});
  EXPECT_FALSE(FolderLock::Take({u"C:\\missing"_s}));
}

}  // namespace
}  // namespace torvane
