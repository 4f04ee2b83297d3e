#include "compilers/run_batches.h"

#include "core/batch_lines.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

void DvdAuthorLine(BatchLines& out, const BatchPiece& options) {
  out.Line(out.Tool(u"dvdauthor.exe") + options + " -x " + out.Temp(u"Author.xml"_s));
}

bool IsBurnBatch(const QString& name) {
  return name.contains(u"ImgBurn", Qt::CaseInsensitive) || name.contains(u"Nero", Qt::CaseInsensitive);
}

}  // namespace

QByteArray AuthorBatch(LineValues& values) {
  BatchPiece options("");
  if (values.InForce().ShortDVDALog) options = options + " -w";
  if (values.InForce().ForceSCR) options = options + " -r";
  BatchLines out(values);
  out.Line("@echo off");
  out.Line("echo.");
  out.Line("echo author DVD");
  DvdAuthorLine(out, options);
  return out.Bytes();
}

QByteArray IsoBatch(const QString& isoFile, BatchUse use, LineValues& values) {
  const Settings& settings = values.InForce();
  BatchLines out(values);
  out.Line("@echo off");
  out.Line("echo.");
  if (settings.AutoDelete) {
    out.Line("echo Delete temp files");
    for (const QStringView mask : {u"TempSub.d\\*.*", u"TempAudioMpg\\*.*", u"*.xml", u"*.png", u"*.bmp", u"*.mxp",
                                   u"*.vob", u"*.mpg", u"*.jpg", u"*.m2v", u"*.mpv"}) {
      const BatchPiece line = "erase " + out.Path(settings.TempDir + u'\\' + mask) + " /Q";
      out.Line(use == BatchUse::WriteOnly ? "REM " + line : line);
    }
  }
  out.Line("echo create ISO image");
  out.Line(out.Tool(u"mkisofs.exe") + " -dvd-video -V " + out.Name(settings.ISO_Name) + " -udf -o " +
           out.Path(isoFile) + " " + out.Path(settings.OutDir + u"\\DVD"));
  return out.Bytes();
}

QByteArray EndBatch(LineValues& values) {
  BatchLines out(values);
  out.Line("@echo off");
  out.Line("echo.");
  out.Line("echo " + BatchLines::Message(113));
  out.Line("echo.");
  return out.Bytes();
}

QByteArray MainBatch(const QStringList& batchList, LineValues& values) {
  BatchLines out(values);
  for (int message = 118; message <= 128; ++message) out.Line(BatchLines::Message(message));
  out.Line("REM");
  for (const QString& name : batchList)
    out.Line((IsBurnBatch(name) ? "REM Call " : BatchPiece("Call ")) + out.Word(name));
  return out.Bytes();
}

QByteArray SyntaxBatch(LineValues& values) {
  BatchLines out(values);
  out.Line("@echo off");
  out.Line("echo author DVD");
  DvdAuthorLine(out, "");
  return out.Bytes();
}

}  // namespace torvane
