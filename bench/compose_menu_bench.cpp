// Budget: a full menu as pictures below 50 ms, without writing them.

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "platform/host_files.h"
#include "render/audio_slide.h"
#include "render/compositor.h"
#include "support/menu_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// 36 buttons with outlines and 36 labels with all effects, over a picture of another size.
void FillMenu(Project& project, const QString& background) {
  AddDefaultProject(project);
  project.Tree.SetCaption(u"MMBGPath"_s, u"Image=" + background);
  project.Tree.SetCaption(u"MMHT2"_s, u"Frame=1"_s);
  for (int i = 0; i < 36; ++i) {
    const QRect place(20 + i % 6 * 115, 20 + i / 6 * 90, 100, 40);
    test::AddButton(project, u"MM"_s, i + 1, u"Chapter %1\r\n00:%1:00"_s.arg(i), place,
                    {u"FontSize=12"_s, u"Align=2"_s, u"Outline=0,0,0"_s});
    test::AddLabel(project, u"MM"_s, 37 + i, u"A free text %1"_s.arg(i), place.translated(0, 50),
                   {u"FontSize=12"_s, u"Shadow=1"_s, u"Block=1"_s, u"Outline=0,0,64"_s});
  }
}

void ComposeFullMenu(benchmark::State& state) {
  const QTemporaryDir dir;
  QImage background(768, 576, QImage::Format_RGB32);
  for (int y = 0; y < background.height(); ++y) {
    for (int x = 0; x < background.width(); ++x) background.setPixel(x, y, qRgb(x / 3, y / 3, x * y % 256));
  }
  background.save(dir.filePath(u"back.jpg"_s));
  Settings settings = test::FixedSettings();
  settings.UseBlur = state.range(0) != 0;
  settings.DefMenuRatio = state.range(1) != 0;
  Project project(settings);
  FillMenu(project, HostFiles::ToDos(dir.filePath(u"back.jpg"_s)));
  const MenuView menu(project.Tree, MainMenuKey());
  for (auto _ : state) benchmark::DoNotOptimize(ComposeMenu(menu, project.Settings, ComposeMode::Compile));
}
BENCHMARK(ComposeFullMenu)->ArgNames({"blur", "wide"})->ArgsProduct({{0, 1}, {0, 1}})->Unit(benchmark::kMillisecond);

/// One slide of an audio titleset as a picture file; 96 of them belong to a full one.
void DrawSlide(benchmark::State& state) {
  const QTemporaryDir dir;
  QImage image(1024, 768, QImage::Format_RGB32);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x / 4, y / 3, x * y % 256));
  }
  image.save(dir.filePath(u"image.jpg"_s));
  AudioLayout layout;
  layout.Author = {.Font = {.Size = 24}, .Color = 0xFFFFFF, .XPos = 60, .YPos = 100};
  layout.Title = layout.Album = layout.Author;
  layout.UseBlur = state.range(0) != 0;
  layout.BlurX = layout.BlurY = 50;
  const QString file = HostFiles::ToDos(dir.filePath(u"image.jpg"_s));
  const AudioTitle title{{}, u"The artist"_s, u"The album"_s, u"The title"_s, file, 0};
  PictureLoader pictures(u"film 1"_s);
  for (auto _ : state) {
    const QImage slide = DrawAudioSlide(title, layout, test::FixedSettings(), pictures);
    benchmark::DoNotOptimize(EncodePicture(slide, u"slide.png"_s));
  }
}
BENCHMARK(DrawSlide)->ArgName("blur")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
