#include "shell/video_norm.h"

#include <gtest/gtest.h>

#include <QTemporaryFile>
#include <map>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

TEST(VideoNorm, IsReadFromThePictureHeight) {
  const auto header = [](int width, int height) -> QByteArray {
    return QByteArray("\x00\x00\x01\xBA some pack", 14) + QByteArray("\x00\x00\x01\xB3", 4) + char(width >> 4) +
           char((width & 15) << 4 | height >> 8) + char(height & 255) + "rest";
  };
  const std::map<QByteArray, QString> cases{{header(720, 576), u"PAL"_s},    {header(352, 288), u"PAL"_s},
                                            {header(720, 480), u"NTSC"_s},   {header(352, 240), u"NTSC"_s},
                                            {header(1920, 1080), QString()}, {header(720, 576).first(19), QString()},
                                            {"no film", QString()},          {"", QString()}};
  for (const auto& [bytes, norm] : cases) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(bytes);
    file.flush();
    EXPECT_EQ(VideoNormOf(file.fileName()), norm) << bytes.toHex().toStdString();
  }
  EXPECT_EQ(VideoNormOf(u"/nonexistent"_s), QString());
}

}  // namespace torvane
