#include <QGuiApplication>

#include "cli/commands.h"
#include "platform/utf8_locale.h"

namespace {

/// Passes Qt's own messages on, but for its remark on a missing runtime directory, since nothing here needs one, and
/// what its picture readers say of a damaged file: they name no file, and whoever reads it tells the user.
void PrintQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.startsWith(u"QStandardPaths: XDG_RUNTIME_DIR")) return;
  if (context.category && QByteArrayView(context.category).startsWith("qt.gui.imageio")) return;
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

}  // namespace

int main(int argc, char** argv) {
  torvane::EnsureUtf8Locale();
  qputenv("QT_QPA_PLATFORM", "offscreen");  // pictures are drawn without a display
  qInstallMessageHandler(PrintQtMessage);
  // Qt takes options that it knows, such as --style, out of the command line, so it gets to see the name alone.
  int shown = 1;
  const QGuiApplication application(shown, argv);
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  return torvane::RunCli(arguments);
}
