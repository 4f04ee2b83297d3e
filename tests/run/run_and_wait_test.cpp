#include "run/run_and_wait.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(RunAndWait, WaitsToTheEndAndGivesHostPaths) {
  const QTemporaryDir dir;
  const QString folder = HostFiles::ToDos(dir.path());
  int pumps = 0;
  QString message;
  EXPECT_TRUE(RunAndWait(
      u"sh -c \"sleep 0.3; touch $1/seen\" viewer \""_s + folder + u'"', [&] { ++pumps; }, message));
  EXPECT_EQ(HostFiles::FileNames(folder), QStringList{u"seen"_s});
  EXPECT_GE(pumps, 1);
  EXPECT_EQ(message, QString());
}

TEST(RunAndWait, SaysWhenItCannotWatch) {
  QString message;
  EXPECT_FALSE(RunAndWait(
      u"Z:\\nowhere\\viewer.exe"_s, [] { FAIL(); }, message));
  EXPECT_EQ(message,
            u"This program could not determine whether the process started.\n"
            u"Please watch the program and check it completes."_s);
}

}  // namespace
}  // namespace torvane
