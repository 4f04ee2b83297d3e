#include "shell/tool_table.h"

#include <array>

#include "shell/insnav.h"
#include "shell/requant.h"
#include "shell/sup2png.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Minutes. Erasing a disc takes long, and a drive tells nothing meanwhile.
constexpr double kBurnPatience = 60;

/// MPEG_program_end_code (ISO/IEC 13818-1, 2.5.3.2) and sequence_end_code (ISO/IEC 13818-2, 6.2.1).
const QByteArray kProgramEnd("\0\0\1\xB9", 4);
const QByteArray kSequenceEnd("\0\0\1\xB7", 4);

}  // namespace

const ToolEntry* FindTool(const QString& stem) {
  using ControlFile = ToolEntry::ControlFile;
  static const std::array kTools{
      ToolEntry{.stem = u"dvdauthor"_s,
                .program = u"dvdauthor"_s,
                .package = u"dvdauthor"_s,
                .controlFile = ControlFile::Dvdauthor,
                .dropped = {u"-w"_s, u"-r"_s}},
      ToolEntry{.stem = u"spumux"_s,
                .program = u"spumux"_s,
                .package = u"dvdauthor"_s,
                .controlFile = ControlFile::Spumux,
                .dropped = {u"-ma"_s, u"-w"_s},
                .streamsOutput = true},
      ToolEntry{.stem = u"mplex"_s,
                .program = u"mplex"_s,
                .package = u"mjpegtools"_s,
                .patternValue = {u"-o"_s},
                .outputOption = u"-o"_s,
                .ending = kProgramEnd,
                .isMplex = true},
      ToolEntry{.stem = u"mpeg2enc"_s,
                .program = u"mpeg2enc"_s,
                .package = u"mjpegtools"_s,
                .outputOption = u"-o"_s,
                .ending = kSequenceEnd},
      ToolEntry{.stem = u"png2yuv"_s,
                .program = u"png2yuv"_s,
                .package = u"mjpegtools"_s,
                .patternValue = {u"-j"_s},
                .streamsOutput = true},
      ToolEntry{.stem = u"jpeg2yuv"_s,
                .program = u"jpeg2yuv"_s,
                .package = u"mjpegtools"_s,
                .patternValue = {u"-j"_s},
                .streamsOutput = true},
      ToolEntry{.stem = u"mkisofs"_s,
                .program = u"genisoimage"_s,
                .package = u"genisoimage"_s,
                .plainValue = {u"-V"_s},
                .outputOption = u"-o"_s},
      ToolEntry{.stem = u"insnav"_s, .outputOption = u"-o"_s, .own = &kInsnav},
      ToolEntry{
          .stem = u"requant"_s, .program = u"ffmpeg"_s, .package = u"ffmpeg"_s, .outputPlace = 3, .own = &kRequant},
      ToolEntry{.stem = u"sup2png"_s, .own = &kSup2Png},
      ToolEntry{.stem = u"muxman"_s},
      ToolEntry{.stem = u"hcenc"_s},
      ToolEntry{.stem = u"quenc"_s},
      ToolEntry{.stem = u"nerocmd"_s, .patience = kBurnPatience},
      ToolEntry{.stem = u"imgburn"_s, .patience = kBurnPatience},
  };
  for (const ToolEntry& tool : kTools) {
    if (tool.stem.compare(stem, Qt::CaseInsensitive) == 0) return &tool;
  }
  return nullptr;
}

}  // namespace torvane
