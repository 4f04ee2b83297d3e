#include "cli/picture_check.h"

#include "platform/host_files.h"
#include "render/picture_loader.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool CheckPicture(const QString& path, Prompter& prompter) {
  if (!HostFiles::FileExists(path)) {
    prompter.Fail(u"There is no picture "_s + path);
    return false;
  }
  if (!PictureLoader(QString()).Load(path).isNull()) return true;
  prompter.Fail(u"The file %1 holds no picture that can be read; give a PNG, JPG, BMP or GIF."_s.arg(path));
  return false;
}

}  // namespace torvane
