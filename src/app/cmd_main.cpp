#include <QString>
#include <QStringList>

#include "shell/console.h"

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  return torvane::RunConsole(arguments);
}
