#include "render/menu_encoding.h"

#include "core/line_text.h"
#include "core/text.h"
#include "render/plane_drawing.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QByteArray Tool(const Settings& settings, QStringView program) {
  return QuotedBatchPath(settings.DvdAuthorPath + u'\\' + program);
}

QByteArray File(const Settings& settings, const QString& stem, QStringView name) {
  return QuotedBatchPath(settings.TempDir + u'\\' + stem + name);
}

QByteArray FrameRate(const Settings& settings) {
  return settings.VideoNormPal ? "25" : "29.97";
}

QByteArray Norm(const Settings& settings) {
  return settings.VideoNormPal ? "p" : "n";
}

QByteArray AspectCode(bool wide) {
  return wide ? "3" : "2";
}

/// A single still frame with audio has no navigation structure in its whole length; the tool inserts it.
bool NeedsInsnav(const MenuView& menu, const Settings& settings) {
  return settings.UseInsnavForMenus && StillMenuFrames(menu, settings) <= settings.NumStillFrames;
}

void MultiplexLines(LineText& out, const MenuView& menu, const Settings& settings) {
  const auto file = [&](QStringView name) { return File(settings, menu.Key(), name); };
  const QString audio = menu.Text(menu_node::BackgroundAudio).value_or(QString());
  const bool insnav = !audio.isEmpty() && NeedsInsnav(menu, settings);

  out.Line(Tool(settings, u"mplex.exe") + " -M -f 8 -o " + file(insnav ? u"BackgN.mpg" : u"Backg.mpg") + ' ' +
           file(u"Backg.m2v") + (audio.isEmpty() ? QByteArray() : QByteArray(' ' + QuotedBatchPath(audio))));
  if (!insnav) return;
  out.Line(Tool(settings, u"insnav.exe") + " -o " + file(u"Backg.mpg") + ' ' + file(u"BackgN.mpg"));
  out.Line("erase " + file(u"BackgN.mpg"));
}

}  // namespace

int StillMenuFrames(const MenuView& menu, const Settings& settings) {
  if (!menu.Has(menu_node::BackgroundFrames)) return settings.NumStillFrames;
  const double rate = settings.VideoNormPal ? 25 : 29.97003;
  const int frames = RoundToInt(Val(menu.Tag(menu_node::BackgroundDuration)) * rate);
  return frames > 0 ? frames : settings.NumStillFrames;
}

QByteArray StillMenuBatch1(const MenuView& menu, const Settings& settings) {
  const auto file = [&](QStringView name) { return File(settings, menu.Key(), name); };
  const auto number = [](int value) { return QByteArray::number(value); };
  LineText out;
  out.Line(u"@echo off");
  out.Line("echo *creating " + BatchText(menu.Key()) + "back.m2v");
  out.Line(Tool(settings, u"png2yuv.exe") + " -n " + number(StillMenuFrames(menu, settings)) + " -I p -L 0 -f " +
           FrameRate(settings) + " -j " + file(u"Backg.png") + " | " + Tool(settings, u"mpeg2enc.exe") +
           " -f 8 -I 0 -q " + number(menu.Integer(menu_node::BackgroundQuality, 1)) + " -b " +
           number(menu.Integer(menu_node::BackgroundBitrate, 7000)) + " -a " + AspectCode(menu.IsWide(settings)) +
           " -n " + Norm(settings) + " -o " + file(u"Backg.m2v"));
  return out.Bytes();
}

QByteArray StillMenuBatch2(const MenuView& menu, const Settings& settings) {
  const QByteArray key = BatchText(menu.Key());
  const auto file = [&](QStringView name) { return File(settings, menu.Key(), name); };
  LineText out;
  out.Line(u"@echo off");
  out.Line("echo *mux to " + key + "back.mpg");
  MultiplexLines(out, menu, settings);
  out.Line("echo *creating menufile " + key + "Menu.mpg");
  out.Line(Tool(settings, u"spumux.exe") + ' ' + file(u"Spu.xml") + " <" + file(u"Backg.mpg") + " > " +
           file(u"Menu.mpg"));
  if (menu.IsWide(settings)) {
    out.Line("REM *creating letterbox menufile " + key + "MenuL.mpg");
    out.Line(Tool(settings, u"spumux.exe") + " -s1 " + file(u"SpuL.xml") + " <" + file(u"Menu.mpg") + " > " +
             file(u"MenuL.mpg"));
  }
  return out.Bytes();
}

QByteArray EmptyMenuBatch(const Settings& settings) {
  const auto file = [&](QStringView name) { return File(settings, u"Empty"_s, name); };
  LineText out;
  out.Line(u"@echo off");
  out.Line(u"echo *creating EmptyBackg.m2v");
  out.Line(Tool(settings, u"jpeg2yuv.exe") + " -n 1 -I t -L 1 -f " + FrameRate(settings) + " -j " + file(u"Backg.jpg") +
           " | " + Tool(settings, u"mpeg2enc.exe") + " -f 8 -q 1 -b 3000 -a " + AspectCode(settings.DefMenuRatio) +
           " -n " + Norm(settings) + " -o " + file(u"Backg.m2v"));
  out.Line(u"echo *mux to EmptyBackg.mpg");
  out.Line(Tool(settings, u"mplex.exe") + " -M -f 8 -o " + file(u"Backg.mpg") + ' ' + file(u"Backg.m2v"));
  return out.Bytes();
}

QImage EmptyMenuPicture(const Settings& settings) {
  return BlackPlane(settings);
}

}  // namespace torvane
