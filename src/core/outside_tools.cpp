#include "core/outside_tools.h"

#include "core/engine.h"
#include "core/messages.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

QString MainToolPath(const Settings& settings) {
  return settings.DvdAuthorPath + (settings.Engine == kEngineMuxMan ? u"\\muxman.exe" : u"\\dvdauthor.exe");
}

void CheckOutsideTools(const Settings& settings, const ToolLookup& lookup, Prompter& prompter) {
  if (!lookup.hasAviSynth()) prompter.Warn(GetMessage(629));
  if (!lookup.hasAviSynthPlugins()) prompter.Warn(GetMessage(630));
  const QString encoder = settings.AniEncoder == u"HC" ? u"HCenc.exe"_s : u"QuEnc.exe"_s;
  for (const QString& tool : {u"DGIndex.exe"_s, u"DGDecode.dll"_s, encoder}) {
    if (lookup.hasTool(settings.DvdAuthorPath + u'\\' + tool)) continue;
    prompter.Warn(GetMessage(663, {{u"|1", tool}, {u"|2", settings.DvdAuthorPath}}));
  }
}

}  // namespace torvane
