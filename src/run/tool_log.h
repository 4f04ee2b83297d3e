#pragma once

#include <QString>
#include <functional>

#include "run/transcript.h"

namespace torvane {

/// Takes over what a tool writes into a log file of its own, as if it had been printed.
class ToolLog {
 public:
  enum class Tool { MuxMan, ImgBurn };
  enum class Moment { Running, Final };

  /// The log is {outDir}\muxman.log or {outDir}\ImgBurn.log. `pause` waits the given milliseconds and keeps the
  /// interface alive meanwhile.
  ToolLog(Tool tool, QString outDir, Transcript& transcript, std::function<void(int)> pause);

  /// Adds what the log gained since the last call. At the final moment a log that is not there is waited for, up to
  /// 20 looks 50 ms apart; and when MuxMan has left no VIDEO_TS.IFO, a line that the scan finds is added.
  void CheckMuxManLogFile(Moment moment);

 private:
  void TakeOver(qint64 size);
  QString TextOf(const QByteArray& bytes) const;

  Tool tool_;
  QString outDir_;
  QString file_;
  Transcript& transcript_;
  std::function<void(int)> pause_;
  qint64 logReadPos_ = 0;
};

}  // namespace torvane
