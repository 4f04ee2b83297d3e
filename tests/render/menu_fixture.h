#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "core/text.h"
#include "pixels.h"
#include "platform/host_files.h"
#include "render/bitmap.h"
#include "render/compositor.h"
#include "support/menu_builder.h"

namespace torvane::test {

using namespace Qt::Literals::StringLiterals;

/// A main menu over a grey background, with a directory for its pictures. Its highlight colours are opaque: fill red
/// and frame green, activated fill blue and frame white.
class MenuFixture : public testing::Test {
 protected:
  static constexpr QRgb kGrey = 0xFF646464;
  static constexpr QRgb kFill = 0xFFFF0000;
  static constexpr QRgb kFrame = 0xFF00FF00;
  static constexpr QRgb kActFill = 0xFF0000FF;
  static constexpr QRgb kActFrame = 0xFFFFFFFF;

  MenuFixture() : project_(FixedSettings()) {
    AddDefaultProject(project_);
    project_.Settings.TempDir = HostFiles::ToDos(dir_.path());
    QImage background(720, 576, QImage::Format_RGB32);
    background.fill(kGrey);
    SetCaptions(project_, {{u"MMBGPath"_s, u"Image=" + SavePicture(u"back.png"_s, background)},
                           {u"MMHC1"_s, u"FillColor=255,0,0"_s},
                           {u"MMHC2"_s, u"FrameColor=0,255,0"_s},
                           {u"MMAC1"_s, u"FillColor=0,0,255"_s},
                           {u"MMAC2"_s, u"FrameColor=255,255,255"_s}});
    for (const QString& key : {u"MMHCT1"_s, u"MMHCT2"_s, u"MMACT1"_s, u"MMACT2"_s}) {
      project_.Tree.SetCaption(key, u"Transparenz=0%"_s);
    }
  }

  /// Saves a picture and answers its DOS path.
  QString SavePicture(const QString& name, const QImage& picture) {
    EXPECT_TRUE(picture.save(dir_.filePath(name)));
    return HostFiles::ToDos(dir_.filePath(name));
  }

  /// A mask of two halves: the left one opaque yellow, the right one transparent.
  QString HalfMask() {
    QImage mask(40, 20, QImage::Format_ARGB32);
    mask.fill(Qt::transparent);
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 20; ++x) mask.setPixel(x, y, 0xFFFFFF00);
    }
    return SavePicture(u"half.png"_s, mask);
  }

  MenuView Menu() const { return {project_.Tree, MainMenuKey()}; }

  ComposedMenu Compose(ComposeMode mode = ComposeMode::Compile) const {
    const Result<ComposedMenu> composed = ComposeMenu(Menu(), project_.Settings, mode);
    EXPECT_TRUE(composed) << composed.Error().toStdString();
    return composed ? *composed : ComposedMenu();
  }

  static QImage PictureOf(const ComposedMenu& menu, QStringView suffix) {
    for (const MenuPicture& picture : menu.Pictures) {
      if (picture.Suffix == suffix) return picture.Image;
    }
    ADD_FAILURE() << "no picture " << suffix.toString().toStdString();
    return {};
  }

  QTemporaryDir dir_;
  Project project_;
};

}  // namespace torvane::test
