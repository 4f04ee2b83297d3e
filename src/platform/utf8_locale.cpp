#include "platform/utf8_locale.h"

#include <langinfo.h>

#include <QByteArray>
#include <clocale>
#include <cstring>

namespace torvane {

void EnsureUtf8Locale() {
  if (std::setlocale(LC_ALL, "") && std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0) return;
  qputenv("LC_ALL", "C.UTF-8");
  std::setlocale(LC_ALL, "");
}

}  // namespace torvane
