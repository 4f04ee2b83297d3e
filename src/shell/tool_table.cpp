#include "shell/tool_table.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

const ToolEntry* FindTool(const QString& stem) {
  using ControlFile = ToolEntry::ControlFile;
  const auto missing = [](const QString& name) { return ToolEntry{name, {}, {}, ControlFile::None, {}, {}, {}, {}}; };
  static const std::array kTools{
      ToolEntry{u"dvdauthor"_s, u"dvdauthor"_s, u"dvdauthor"_s, ControlFile::Dvdauthor, {u"-w"_s, u"-r"_s}, {}, {}, {}},
      ToolEntry{u"spumux"_s, u"spumux"_s, u"dvdauthor"_s, ControlFile::Spumux, {u"-ma"_s, u"-w"_s}, {}, {}, {}},
      ToolEntry{u"mplex"_s, u"mplex"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {u"-o"_s}, u"-o"_s},
      ToolEntry{u"mpeg2enc"_s, u"mpeg2enc"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {}, u"-o"_s},
      ToolEntry{u"png2yuv"_s, u"png2yuv"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {u"-j"_s}, {}},
      ToolEntry{u"jpeg2yuv"_s, u"jpeg2yuv"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {u"-j"_s}, {}},
      ToolEntry{u"mkisofs"_s, u"genisoimage"_s, u"genisoimage"_s, ControlFile::None, {}, {u"-V"_s}, {}, u"-o"_s},
      missing(u"requant"_s),
      missing(u"sup2png"_s),
      missing(u"insnav"_s),
      missing(u"muxman"_s),
      missing(u"hcenc"_s),
      missing(u"quenc"_s),
  };
  for (const ToolEntry& tool : kTools) {
    if (tool.stem.compare(stem, Qt::CaseInsensitive) == 0) return &tool;
  }
  return nullptr;
}

}  // namespace torvane
