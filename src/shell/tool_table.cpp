#include "shell/tool_table.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace torvane {

const ToolEntry* FindTool(const QString& stem) {
  using ControlFile = ToolEntry::ControlFile;
  static const std::array kTools{
      ToolEntry{u"dvdauthor"_s, u"dvdauthor"_s, u"dvdauthor"_s, ControlFile::Dvdauthor, {u"-w"_s, u"-r"_s}, {}, {}},
      ToolEntry{u"spumux"_s, u"spumux"_s, u"dvdauthor"_s, ControlFile::Spumux, {u"-ma"_s, u"-w"_s}, {}, {}},
      ToolEntry{u"mplex"_s, u"mplex"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {u"-o"_s}},
      ToolEntry{u"mpeg2enc"_s, u"mpeg2enc"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {}},
      ToolEntry{u"png2yuv"_s, u"png2yuv"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {u"-j"_s}},
      ToolEntry{u"jpeg2yuv"_s, u"jpeg2yuv"_s, u"mjpegtools"_s, ControlFile::None, {}, {}, {u"-j"_s}},
      ToolEntry{u"mkisofs"_s, u"genisoimage"_s, u"genisoimage"_s, ControlFile::None, {}, {u"-V"_s}, {}},
      ToolEntry{u"requant"_s, {}, {}, ControlFile::None, {}, {}, {}},
      ToolEntry{u"sup2png"_s, {}, {}, ControlFile::None, {}, {}, {}},
      ToolEntry{u"insnav"_s, {}, {}, ControlFile::None, {}, {}, {}},
      ToolEntry{u"muxman"_s, {}, {}, ControlFile::None, {}, {}, {}},
      ToolEntry{u"hcenc"_s, {}, {}, ControlFile::None, {}, {}, {}},
      ToolEntry{u"quenc"_s, {}, {}, ControlFile::None, {}, {}, {}},
  };
  for (const ToolEntry& tool : kTools) {
    if (tool.stem.compare(stem, Qt::CaseInsensitive) == 0) return &tool;
  }
  return nullptr;
}

}  // namespace torvane
