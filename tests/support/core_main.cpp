#include <gtest/gtest.h>

#include <QCoreApplication>

#include "isolated_home.h"

int main(int argc, char** argv) {
  const torvane::test::IsolatedHome home;

  QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
