#include "run/run_log.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QTemporaryDir>
#include <csignal>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Keeps files from growing beyond a size, as a full disk does, for the life of the object.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t most) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit small{most, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFiles() {
    setrlimit(RLIMIT_FSIZE, &former_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit former_{};
};

TEST(RunLog, ReplacesWhatWasThereAndKeepsWhatFitsOnAFullDisk) {
  const QTemporaryDir dir;
  const RunLog log(HostFiles::ToDos(dir.path()) + u"\\TorvaneAuthor.log"_s);
  const auto content = [&] { return HostFiles::Read(log.File()); };
  ASSERT_TRUE(HostFiles::WriteAtomically(log.File(), QByteArray(5000, 'z')));
  ASSERT_TRUE(log.Start(u"Start"_s));
  log.AddLine(u"Größe"_s);
  EXPECT_EQ(*content(), u"Start\r\nGröße\r\n"_s.toUtf8());
  ASSERT_TRUE(log.Finish(u"all\n"_s));
  EXPECT_EQ(*content(), "all\n");

  const SmallFiles fullDisk(3000);
  const Status failed = log.Finish(QString(4000, u'x'));
  EXPECT_FALSE(failed);
  EXPECT_EQ(failed.Error(), dir.path() + u"/TorvaneAuthor.log: File too large"_s);
  EXPECT_EQ(*content(), QByteArray(3000, 'x'));
}

}  // namespace
}  // namespace torvane
