#include "run/tool_log.h"

#include <QStringDecoder>
#include <optional>
#include <utility>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kFinalTries = 20;
constexpr int kPauseMs = 50;

}  // namespace

ToolLog::ToolLog(Tool tool, QString outDir, Transcript& transcript, std::function<void(int)> pause)
    : tool_(tool),
      outDir_(std::move(outDir)),
      file_(outDir_ + (tool == Tool::ImgBurn ? u"\\ImgBurn.log"_s : u"\\muxman.log"_s)),
      transcript_(transcript),
      pause_(std::move(pause)) {}

void ToolLog::CheckMuxManLogFile(Moment moment) {
  std::optional<qint64> size = HostFiles::FileSizeOf(file_);
  if (moment == Moment::Running && !size) return;
  for (int tries = 1; !size && tries < kFinalTries; ++tries) {
    pause_(kPauseMs);
    size = HostFiles::FileSizeOf(file_);
  }
  if (size && *size != logReadPos_) TakeOver(*size);
  if (moment == Moment::Final && tool_ == Tool::MuxMan &&
      !HostFiles::FileExists(outDir_ + u"\\DVD\\VIDEO_TS\\VIDEO_TS.IFO"_s)) {
    transcript_.AddConsole(u"\r\nMuxMan error!"_s);
    transcript_.AddShown(u"\r\n\rERR: MuxMan error!\r\n"_s);
  }
}

void ToolLog::TakeOver(qint64 size) {
  const Result<QByteArray> content = HostFiles::Read(file_);
  if (!content) return;
  const QByteArray gained = content->left(size).mid(logReadPos_);
  logReadPos_ = size;
  if (!gained.isEmpty()) transcript_.Add(TextOf(gained));
}

/// The tools write their logs in the system's code page, or in UTF-8 where they repeat a name from a control file.
QString ToolLog::TextOf(const QByteArray& bytes) const {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString text = decoder.decode(bytes);
  return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

}  // namespace torvane
