#include "compilers/run_batches.h"

#include "core/line_text.h"
#include "core/messages.h"

namespace torvane {
namespace {

QByteArray DvdAuthorLine(const Settings& settings, const QByteArray& options) {
  return QuotedBatchPath(settings.DvdAuthorPath + u"\\dvdauthor.exe") + options + " -x " +
         QuotedBatchPath(settings.TempDir + u"\\Author.xml");
}

bool IsBurnBatch(const QString& name) {
  return name.contains(u"ImgBurn", Qt::CaseInsensitive) || name.contains(u"Nero", Qt::CaseInsensitive);
}

}  // namespace

QByteArray AuthorBatch(const Settings& settings) {
  QByteArray options;
  if (settings.ShortDVDALog) options += " -w";
  if (settings.ForceSCR) options += " -r";
  LineText out;
  out.Line(u"@echo off");
  out.Line(u"echo.");
  out.Line(u"echo author DVD");
  out.Line(DvdAuthorLine(settings, options));
  return out.Bytes();
}

QByteArray IsoBatch(const Settings& settings, const QString& isoFile, BatchUse use) {
  LineText out;
  out.Line(u"@echo off");
  out.Line(u"echo.");
  if (settings.AutoDelete) {
    out.Line(u"echo Delete temp files");
    for (const QStringView mask : {u"TempSub.d\\*.*", u"TempAudioMpg\\*.*", u"*.xml", u"*.png", u"*.bmp", u"*.mxp",
                                   u"*.vob", u"*.mpg", u"*.jpg", u"*.m2v", u"*.mpv"}) {
      const QByteArray line = "erase " + QuotedBatchPath(settings.TempDir + u'\\' + mask) + " /Q";
      out.Line(use == BatchUse::WriteOnly ? QByteArray("REM " + line) : line);
    }
  }
  out.Line(u"echo create ISO image");
  out.Line(QuotedBatchPath(settings.DvdAuthorPath + u"\\mkisofs.exe") + " -dvd-video -V \"" +
           BatchText(settings.ISO_Name) + "\" -udf -o " + QuotedBatchPath(isoFile) + ' ' +
           QuotedBatchPath(settings.OutDir + u"\\DVD"));
  return out.Bytes();
}

QByteArray EndBatch() {
  LineText out;
  out.Line(u"@echo off");
  out.Line(u"echo.");
  out.Line("echo " + BatchText(GetMessage(113)));
  out.Line(u"echo.");
  return out.Bytes();
}

QByteArray MainBatch(const QStringList& batchList) {
  LineText out;
  for (int message = 118; message <= 128; ++message) out.Line(BatchText(GetMessage(message)));
  out.Line(u"REM");
  for (const QString& name : batchList) {
    out.Line((IsBurnBatch(name) ? QByteArray("REM Call ") : QByteArray("Call ")) + BatchText(name));
  }
  return out.Bytes();
}

QByteArray SyntaxBatch(const Settings& settings) {
  LineText out;
  out.Line(u"@echo off");
  out.Line(u"echo author DVD");
  out.Line(DvdAuthorLine(settings, {}));
  return out.Bytes();
}

}  // namespace torvane
