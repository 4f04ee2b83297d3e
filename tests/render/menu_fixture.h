#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <set>

#include "core/text.h"
#include "platform/host_files.h"
#include "render/bitmap.h"
#include "render/compositor.h"
#include "support/menu_builder.h"

namespace torvane::test {

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
    project_.Settings.TempDir = HostFiles::ToDos(dir_.path());
    AddDefaultProject(project_);
    project_.Settings.TempDir = HostFiles::ToDos(dir_.path());
    QImage background(720, 576, QImage::Format_RGB32);
    background.fill(kGrey);
    SetCaptions(project_,
                {{QStringLiteral("MMBGPath"), u"Image=" + SavePicture(QStringLiteral("back.png"), background)},
                 {QStringLiteral("MMHC1"), QStringLiteral("FillColor=255,0,0")},
                 {QStringLiteral("MMHC2"), QStringLiteral("FrameColor=0,255,0")},
                 {QStringLiteral("MMAC1"), QStringLiteral("FillColor=0,0,255")},
                 {QStringLiteral("MMAC2"), QStringLiteral("FrameColor=255,255,255")}});
    for (const QString& key :
         {QStringLiteral("MMHCT1"), QStringLiteral("MMHCT2"), QStringLiteral("MMACT1"), QStringLiteral("MMACT2")}) {
      project_.Tree.SetCaption(key, QStringLiteral("Transparenz=0%"));
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
    return SavePicture(QStringLiteral("half.png"), mask);
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

  static std::set<QRgb> ColorsOf(const QImage& picture) {
    std::set<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) colors.insert(picture.pixel(x, y));
    }
    return colors;
  }

  /// The smallest rectangle around all pixels for which `test` is true.
  template <class Test>
  static QRect AreaOf(const QImage& picture, Test test) {
    QRect area;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (test(picture.pixel(x, y))) area |= QRect(x, y, 1, 1);
      }
    }
    return area;
  }

  static QRect AreaOf(const QImage& picture, QRgb color) {
    return AreaOf(picture, [color](QRgb pixel) { return pixel == color; });
  }

  static qsizetype CountOf(const QImage& picture, QRgb color) {
    qsizetype count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixel(x, y) == color ? 1 : 0;
    }
    return count;
  }

  QTemporaryDir dir_;
  Project project_;
};

}  // namespace torvane::test
