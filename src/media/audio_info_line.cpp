#include "media/audio_info_line.h"

#include "media/media_file.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

AudioFileLine DescribeAudioFile(const QString& path) {
  HostMediaFile file(path);
  AudioFileLine line;
  line.Known = AnalyseAudioFile(path, file, line.Info);
  if (!line.Known) {
    line.Text = u"Unkown filetype  Size="_s + QString::number(SizeInMB(FileSizeOf(file))) + u"MB";
    return line;
  }
  line.Text = u"Bitrate="_s + QString::number(line.Info.Bitrate) + u"  Sampl.Freq=" +
              QString::number(line.Info.SampleFreq) + u"  Duration=" + line.Info.Duration + u"  Size=" +
              QString::number(line.Info.SizeMB) + u"MB";
  return line;
}

}  // namespace torvane
