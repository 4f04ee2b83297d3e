#include "render/menu_pictures.h"

#include "menu_fixture.h"
#include "support/shell_command.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

class MenuPictures : public test::MenuFixture {
 protected:
  QString Host(const QString& name) const { return dir_.filePath(name); }
  QString Shell(const QString& command) const { return test::ShellCommand(dir_.path(), command); }
};

TEST_F(MenuPictures, ComeBackFromTheirFilesAsTheyWere) {
  test::AddButton(project_, u"MM"_s, 1, u"Some text"_s, {100, 100, 300, 60}, {u"FontSize=28"_s});
  for (const QString& blur : {u"Blur=0"_s, u"Blur=1"_s}) {
    project_.Tree.SetCaption(u"MMBGBlur"_s, blur);
    const ComposedMenu menu = Compose();
    ASSERT_TRUE(WriteMenuPictures(menu.Pictures, menu.MenuKey, project_.Settings.TempDir));
    for (const MenuPicture& picture : menu.Pictures) {
      const QImage loaded(Host(u"MM" + picture.Suffix));
      EXPECT_EQ(loaded.convertToFormat(QImage::Format_ARGB32), picture.Image.convertToFormat(QImage::Format_ARGB32))
          << picture.Suffix.toStdString();
    }
  }
}

TEST_F(MenuPictures, FailWithTheNameOfTheFileThatCannotBeWritten) {
  const Status written = WriteMenuPictures(Compose().Pictures, u"MM"_s, project_.Settings.TempDir + u"\\none");
  ASSERT_FALSE(written);
  EXPECT_TRUE(written.Error().contains(u"none/MMHigh.png"_s)) << written.Error().toStdString();
}

TEST_F(MenuPictures, AreEncodedAsTheExtensionSays) {
  QImage picture(16, 16, QImage::Format_RGB32);
  picture.fill(0xFF204060);
  EXPECT_EQ(EncodePicture(picture, u"C:\\a.png"_s)->left(4), QByteArray("\x89PNG"));
  EXPECT_EQ(EncodePicture(picture, u"C:\\a.JPG"_s)->left(2), QByteArray("\xFF\xD8"));
  EXPECT_EQ(EncodePicture(picture, u"C:\\a.bmp"_s)->left(2), QByteArray("BM"));
  EXPECT_FALSE(EncodePicture(picture, u"C:\\a.xyz"_s));
  EXPECT_FALSE(EncodePicture(picture, u"C:\\a"_s));
}

TEST_F(MenuPictures, SurviveJpegAtFullQuality) {
  QImage black(720, 576, QImage::Format_RGB32);
  black.fill(Qt::black);
  const Result<QByteArray> jpeg = EncodePicture(black, u"EmptyBackg.jpg"_s);
  ASSERT_TRUE(jpeg);
  ASSERT_TRUE(HostFiles::WriteAtomically(project_.Settings.TempDir + u"\\EmptyBackg.jpg", *jpeg));
  EXPECT_EQ(test::ColorsOf(QImage(Host(u"EmptyBackg.jpg"_s))), std::set{kPlaneBlack});
  const QString output = Shell(u"jpeg2yuv -n 1 -I t -L 1 -f 25 -j EmptyBackg.jpg 2>log | head -c 60"_s);
  EXPECT_TRUE(output.startsWith(u"YUV4MPEG2 W720 H576 F25:1 It"_s)) << output.toStdString();
}

}  // namespace
}  // namespace torvane
