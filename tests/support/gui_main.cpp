#include <gtest/gtest.h>

#include <QGuiApplication>

#include "isolated_home.h"

int main(int argc, char** argv) {
  const torvane::test::IsolatedHome home;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
