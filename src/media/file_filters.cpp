#include "media/file_filters.h"

#include "core/engine.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

FileFilter VideoFilter(int engine) {
  if (engine == kEngineMuxMan) return {u"Video Files (**.MPV;*.M2V;*.M1V)"_s, u"*.MPV;*.M2V;*.M1V"_s};
  return {u"Video Files (*.MPG;*.MPV;*.M2V;*.M1V;*.VOB)"_s, u"*.MPG;*.MPV;*.M2V;*.M1V;*.VOB"_s};
}

FileFilter AudioFilter(int engine) {
  if (engine == kEngineMuxMan) {
    return {u"Audio Files (*.MP2;*.AC3;*.MPA;*.WAV;*.DTS)"_s, u"*.MP2;*.AC3;*.MPA;*.WAV;*.DTS"_s};
  }
  return {u"Audio Files (*.MP2;*.AC3;*.MPA;*.M2P;*.DTS)"_s, u"*.MP2;*.AC3;*.MPA;*.M2P;*.DTS"_s};
}

FileFilter SubtitleFilter(int engine) {
  if (engine == kEngineMuxMan) return {u"Subtitle Files (*.sup, *.sst)"_s, u"*.sup;*.sst"_s};
  return {u"Subtitle Files (*.sub, *.sup, *.srt, *.ssa, *.smi, *.rt, *.txt, *.aqt, *.jss, *.js)"_s,
          u"*.sub;*.sup;*.srt;*.ssa;*.smi;*.rt;*.txt;*.aqt;*.jss;*.js"_s};
}

FileFilter ChapterFilter() {
  return {u"Chapter Files (*.txt)"_s, u"*.TXT"_s};
}

FileFilter PaletteFilter() {
  return {u"IFO + Palette Files (*.IFO;*.PAL;*.RGB;*.SST)"_s, u"*.IFO;*.PAL;*.RGB;*.SST"_s};
}

}  // namespace torvane
