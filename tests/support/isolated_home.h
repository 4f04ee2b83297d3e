#pragma once

#include <QTemporaryDir>

namespace torvane::test {

/// Points every user folder into a temporary one for the life of the object, so that no test sees or
/// changes what belongs to the person who runs it.
class IsolatedHome {
 public:
  IsolatedHome() {
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
      qputenv(name, dir_.path().toUtf8());
    }
  }

 private:
  QTemporaryDir dir_;
};

}  // namespace torvane::test
