#include "shell/syntax_check.h"

#include <fcntl.h>

#include <QFile>
#include <QStandardPaths>
#include <algorithm>

#include "platform/host_files.h"
#include "shell/process_chain.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kWidth = 352;

/// One black frame as a picture stream.
QByteArray BlackFrame(bool pal) {
  const int height = pal ? 288 : 240;
  const QByteArray header = "YUV4MPEG2 W" + QByteArray::number(kWidth) + " H" + QByteArray::number(height) +
                            (pal ? " F25:1 A59:54" : " F30000:1001 A10:11") + " Ip C420jpeg\nFRAME\n";
  return header + QByteArray(qsizetype(kWidth) * height, char(16)) +
         QByteArray(qsizetype(kWidth) * height / 2, char(128));
}

Status Write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
    return Failure{path + u": "_s + file.errorString()};
  }
  return {};
}

Status RunQuietly(const QString& tool, const QStringList& arguments, const QString& input) {
  const QString program = QStandardPaths::findExecutable(tool);
  if (program.isEmpty()) return Failure{u"%1 is not installed; install the Debian package mjpegtools"_s.arg(tool)};
  const OwnedFd in(open(QFile::encodeName(input).constData(), O_RDONLY | O_CLOEXEC));
  const OwnedFd nothing(open("/dev/null", O_WRONLY | O_CLOEXEC));
  ProcessStage stage;
  stage.program = program;
  stage.arguments = QStringList{tool} + arguments;
  stage.environment = {{u"LC_ALL"_s, u"C.UTF-8"_s}};
  stage.streams = {in.Get(), nothing.Get(), nothing.Get()};
  const ProcessEnd end = RunProcesses({stage}, [] {}).first();
  if (!end.Ok()) return Failure{u"%1 made no stand-in film"_s.arg(tool)};
  return {};
}

/// A film of `frames` frames, each a group of pictures of its own, so that each can be a chapter.
Status MakeFilm(const QString& path, int frames, bool pal, const QString& folder) {
  const QString picture = folder + u"/frame.y4m"_s;
  const QString frame = folder + u"/frame.m2v"_s;
  const QString video = folder + u"/film.m2v"_s;
  if (Status made = Write(picture, BlackFrame(pal)); !made) return made;
  const QStringList encode{u"-v"_s, u"0"_s,    u"-f"_s, u"8"_s, u"-q"_s, u"31"_s,
                           u"-b"_s, u"3000"_s, u"-a"_s, u"2"_s, u"-n"_s, pal ? u"p"_s : u"n"_s,
                           u"-o"_s, frame};
  if (Status made = RunQuietly(u"mpeg2enc"_s, encode, picture); !made) return made;

  QFile file(frame);
  if (!file.open(QIODevice::ReadOnly)) return Failure{frame + u": "_s + file.errorString()};
  QByteArray group = file.readAll();
  const QByteArray sequenceEnd("\x00\x00\x01\xB7", 4);
  if (group.endsWith(sequenceEnd)) group.chop(sequenceEnd.size());
  if (Status made = Write(video, group.repeated(frames) + sequenceEnd); !made) return made;
  return RunQuietly(u"mplex"_s,
                    {u"-v"_s, u"0"_s, u"-f"_s, u"8"_s, u"-o"_s, QString(path).replace(u'%', u"%%"_s), video},
                    u"/dev/null"_s);
}

/// `count` chapter times, one on each frame.
QString ChapterTimes(qsizetype count, bool pal) {
  QStringList times;
  for (qsizetype i = 0; i < count; ++i) {
    const qsizetype milliseconds = pal ? i * 40 : (i * 1001 + 15) / 30;
    times << u"00:00:%1.%2"_s.arg(milliseconds / 1000, 2, 10, QChar(u'0')).arg(milliseconds % 1000, 3, 10, QChar(u'0'));
  }
  return times.join(u',');
}

}  // namespace

Status UseStandIns(ControlFile& author, const QString& videoFormat, const QString& folder) {
  const bool pal = videoFormat != u"NTSC";
  const QString film = folder + u"/standin.mpg"_s;
  qsizetype chapters = 1;
  for (LoosePiece& piece : author.Pieces()) {
    for (LooseAttribute& attribute : piece.attributes) {
      if (piece.name == u"dvdauthor" && attribute.name == u"dest") {
        attribute.value = EncodeValue(HostFiles::ToDos(folder + u"/DVD"_s));
      } else if (piece.name == u"vob" && attribute.name == u"file") {
        attribute.value = EncodeValue(HostFiles::ToDos(film));
      } else if (piece.name == u"vob" && attribute.name == u"chapters") {
        const qsizetype count = std::min<qsizetype>(attribute.value.split(u',', Qt::SkipEmptyParts).size(), 999);
        chapters = std::max(chapters, count);
        if (count > 0) attribute.value = ChapterTimes(count, pal);
      }
    }
    piece.attributes.removeIf([](const LooseAttribute& attribute) {
      return attribute.name == u"palette" && !HostFiles::FileExists(PathOfValue(attribute.value));
    });
  }
  return MakeFilm(film, int(chapters) + 1, pal, folder);
}

ControlFile CommandsAlone(const ControlFile& author, const QString& folder) {
  QList<LoosePiece> pieces;
  const auto text = [](const QString& content) { return LoosePiece{LoosePiece::Kind::Text, content, {}, {}, {}}; };
  const auto open = [](const QString& name) { return LoosePiece{LoosePiece::Kind::OpenTag, {}, name, {}, {}}; };
  const auto close = [](const QString& name) { return LoosePiece{LoosePiece::Kind::CloseTag, {}, name, {}, {}}; };
  LoosePiece root = open(u"dvdauthor"_s);
  root.attributes << LooseAttribute{u" "_s, u"dest"_s, EncodeValue(folder + u"/commands"_s)};
  pieces << root << open(u"vmgm"_s) << open(u"menus"_s);
  for (const QString& command : author.Commands()) {
    pieces << open(u"pgc"_s) << open(u"pre"_s) << text(command) << close(u"pre"_s) << close(u"pgc"_s);
  }
  pieces << close(u"menus"_s) << close(u"vmgm"_s) << close(u"dvdauthor"_s);
  return ControlFile(ToWellFormed(pieces).toUtf8());
}

bool HasParseError(const ControlFile& commands, const QString& dvdauthor, const QMap<QString, QString>& environment,
                   const QString& folder) {
  const QString file = folder + u"/commands.xml"_s;
  if (!Write(file, commands.ToBytes())) return false;
  const OwnedFd nothing(open("/dev/null", O_RDWR | O_CLOEXEC));
  ProcessStage stage;
  stage.program = dvdauthor;
  stage.arguments = {u"dvdauthor"_s, u"-x"_s, file};
  stage.environment = environment;
  stage.streams = {nothing.Get(), nothing.Get(), nothing.Get()};
  stage.watched = true;
  return RunProcesses({stage}, [] {}).first().watchedOutput.contains("Parse error");
}

}  // namespace torvane
