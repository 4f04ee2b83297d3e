#include "render/menu_encoding.h"

#include "core/batch_lines.h"
#include "core/text.h"
#include "render/plane_drawing.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

BatchPiece FrameRate(const Settings& settings) {
  return settings.VideoNormPal ? BatchPiece("25") : "29.97";
}

BatchPiece Norm(const Settings& settings) {
  return settings.VideoNormPal ? "p" : "n";
}

BatchPiece AspectCode(bool wide) {
  return wide ? "3" : "2";
}

/// A single still frame with audio has no navigation structure in its whole length; the tool inserts it.
bool NeedsInsnav(const MenuView& menu, const Settings& settings) {
  return settings.UseInsnavForMenus && StillMenuFrames(menu, settings) <= settings.NumStillFrames;
}

void MultiplexLines(BatchLines& out, const MenuView& menu, const Settings& settings) {
  const auto file = [&](QStringView name) { return out.Temp(menu.Key() + name); };
  const QString audio = menu.Text(menu_node::BackgroundAudio).value_or(QString());
  const bool insnav = !audio.isEmpty() && NeedsInsnav(menu, settings);

  const BatchPiece line =
      out.Tool(u"mplex.exe") + " -M -f 8 -o " + file(insnav ? u"BackgN.mpg" : u"Backg.mpg") + " " + file(u"Backg.m2v");
  const QString audioKey = MenuNodeKey(menu.Key(), menu_node::BackgroundAudio);
  out.Line(audio.isEmpty() ? line : line + " " + out.Path(audio, audioKey));
  if (!insnav) return;
  out.Line(out.Tool(u"insnav.exe") + " -o " + file(u"Backg.mpg") + " " + file(u"BackgN.mpg"));
  out.Line("erase " + file(u"BackgN.mpg"));
}

}  // namespace

int StillMenuFrames(const MenuView& menu, const Settings& settings) {
  if (!menu.Has(menu_node::BackgroundFrames)) return settings.NumStillFrames;
  const double rate = settings.VideoNormPal ? 25 : 29.97003;
  const int frames = RoundToInt(Val(menu.Tag(menu_node::BackgroundDuration)) * rate);
  return frames > 0 ? frames : settings.NumStillFrames;
}

QByteArray StillMenuBatch1(const MenuView& menu, LineValues& values) {
  const Settings& settings = values.InForce();
  BatchLines out(values);
  const auto file = [&](QStringView name) { return out.Temp(menu.Key() + name); };
  const auto number = [](int value) { return BatchPiece(value); };
  out.Line("@echo off");
  out.Line("echo *creating " + out.Word(menu.Key()) + "back.m2v");
  out.Line(out.Tool(u"png2yuv.exe") + " -n " + number(StillMenuFrames(menu, settings)) + " -I p -L 0 -f " +
           FrameRate(settings) + " -j " + file(u"Backg.png") + " | " + out.Tool(u"mpeg2enc.exe") + " -f 8 -I 0 -q " +
           number(menu.Integer(menu_node::BackgroundQuality, 1)) + " -b " +
           number(menu.Integer(menu_node::BackgroundBitrate, 7000)) + " -a " + AspectCode(menu.IsWide(settings)) +
           " -n " + Norm(settings) + " -o " + file(u"Backg.m2v"));
  return out.Bytes();
}

QByteArray StillMenuBatch2(const MenuView& menu, LineValues& values) {
  const Settings& settings = values.InForce();
  BatchLines out(values);
  const BatchPiece key = out.Word(menu.Key());
  const auto file = [&](QStringView name) { return out.Temp(menu.Key() + name); };
  out.Line("@echo off");
  out.Line("echo *mux to " + key + "back.mpg");
  MultiplexLines(out, menu, settings);
  out.Line("echo *creating menufile " + key + "Menu.mpg");
  out.Line(out.Tool(u"spumux.exe") + " " + file(u"Spu.xml") + " <" + file(u"Backg.mpg") + " > " + file(u"Menu.mpg"));
  if (menu.IsWide(settings)) {
    out.Line("REM *creating letterbox menufile " + key + "MenuL.mpg");
    out.Line(out.Tool(u"spumux.exe") + " -s1 " + file(u"SpuL.xml") + " <" + file(u"Menu.mpg") + " > " +
             file(u"MenuL.mpg"));
  }
  return out.Bytes();
}

QByteArray EmptyMenuBatch(LineValues& values) {
  const Settings& settings = values.InForce();
  BatchLines out(values);
  const auto file = [&](QStringView name) { return out.Temp(u"Empty" + name); };
  out.Line("@echo off");
  out.Line("echo *creating EmptyBackg.m2v");
  out.Line(out.Tool(u"jpeg2yuv.exe") + " -n 1 -I t -L 1 -f " + FrameRate(settings) + " -j " + file(u"Backg.jpg") +
           " | " + out.Tool(u"mpeg2enc.exe") + " -f 8 -q 1 -b 3000 -a " + AspectCode(settings.DefMenuRatio) + " -n " +
           Norm(settings) + " -o " + file(u"Backg.m2v"));
  out.Line("echo *mux to EmptyBackg.mpg");
  out.Line(out.Tool(u"mplex.exe") + " -M -f 8 -o " + file(u"Backg.mpg") + " " + file(u"Backg.m2v"));
  return out.Bytes();
}

QImage EmptyMenuPicture(const Settings& settings) {
  return BlackPlane(settings);
}

}  // namespace torvane
