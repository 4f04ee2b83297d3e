#include <QGuiApplication>

#include "cli/commands.h"
#include "platform/utf8_locale.h"

int main(int argc, char** argv) {
  torvane::EnsureUtf8Locale();
  qputenv("QT_QPA_PLATFORM", "offscreen");  // pictures are drawn without a display
  const QGuiApplication application(argc, argv);
  return torvane::RunCli(QGuiApplication::arguments().sliced(1));
}
