#include "workshop.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

/// Far more than any command of these tests needs on a slow and busy machine.
constexpr int commandLimitMs = 300'000;

const QString programs = QStringLiteral(TORVANE_BIN_DIR);
const QString samples = QStringLiteral(TORVANE_SAMPLES_DIR);
const QString shared = QStringLiteral(TORVANE_E2E_DIR);

CliResult Finish(QProcess& process) {
  CliResult result;
  if (process.waitForFinished(commandLimitMs) && process.exitStatus() == QProcess::NormalExit) {
    result.exitCode = process.exitCode();
  } else {
    ADD_FAILURE() << process.program().toStdString() << " did not end: " << process.errorString().toStdString();
    process.kill();
    process.waitForFinished();
  }
  result.output = process.readAllStandardOutput();
  result.messages = process.readAllStandardError();
  return result;
}

/// The directory with the media of a norm, made on first use by whichever test comes first.
QString MediaDir(Norm norm) {
  const QString name = norm == Norm::Pal ? u"pal"_s : u"ntsc"_s;
  const QString dir = shared + u"/media-"_s + name;
  EXPECT_TRUE(Succeeded(RunProgram(samples + u"/make-media.sh"_s, {dir, name})));
  return dir;
}

}  // namespace

testing::AssertionResult Succeeded(const CliResult& result) {
  if (result.exitCode == 0) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "exit code " << result.exitCode << '\n' << result.Words();
}

CliResult RunProgram(const QString& program, const QStringList& arguments, const QString& directory,
                     const std::pair<QString, QString>& variable) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  if (!variable.first.isEmpty()) environment.insert(variable.first, variable.second);
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setWorkingDirectory(directory);
  process.start(program, arguments);
  return Finish(process);
}

QByteArray OutputOf(const QString& program, const QStringList& arguments) {
  const CliResult result = RunProgram(program, arguments);
  EXPECT_TRUE(Succeeded(result));
  return result.output;
}

void Ffmpeg(const QString& options, const QString& file) {
  OutputOf(u"ffmpeg"_s, QString(u"-v error -nostdin "_s + options).split(u' ') + QStringList{file});
}

void MakeSound(const QString& file, int frequency, double seconds) {
  Ffmpeg(u"-f lavfi -i sine=frequency=%1:sample_rate=48000:duration=%2 -ac 2 -b:a 192k"_s.arg(frequency).arg(seconds),
         file);
}

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString() << ": " << file.errorString().toStdString();
  return file.readAll();
}

void Put(const QString& path, const QByteArray& content) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size()) << path.toStdString();
}

Workshop::Workshop(Norm norm, const QString& folder, const QString& outName, const QString& tempName)
    : project(ContentOf(samples + u"/sample.tvn"_s)), root_((QDir().mkpath(shared), shared + u"/run-XXXXXX"_s)) {
  dir_ = root_.path() + u'/' + folder;
  outDir_ = dir_ + u'/' + outName;
  tempDir_ = dir_ + u'/' + tempName;
  isoDir_ = dir_;
  EXPECT_TRUE(QDir().mkpath(outDir_) && QDir().mkpath(tempDir_));
  const QDir media(MediaDir(norm));
  for (const QString& name : media.entryList(QDir::Files)) {
    EXPECT_TRUE(QFile::link(media.filePath(name), dir_ + u'/' + name));
  }
  if (norm == Norm::Ntsc) project.MakeNtsc();
}

void Workshop::RemoveMedia(const QString& name) {
  EXPECT_TRUE(QFile::remove(dir_ + u'/' + name));
}

void Workshop::ReplaceMedia(const QString& name, const QByteArray& content) {
  RemoveMedia(name);
  Put(dir_ + u'/' + name, content);
}

void Workshop::RenameMedia(const QString& name, const QString& newName, const QString& key) {
  EXPECT_TRUE(QFile::rename(dir_ + u'/' + name, dir_ + u'/' + newName));
  project.SetValue(key, u"C:\\Torvane\\Sample\\"_s + newName);
}

void Workshop::WriteProject() {
  if (!QFile::exists(ProjectFile())) Put(ProjectFile(), project.Text());
}

QStringList Workshop::Arguments(const QStringList& command, const QString& assume) const {
  const QStringList options{u"--profile"_s, root_.path() + u"/profile"_s,
                            u"--assume"_s,  assume,
                            u"--set"_s,     u"OutDir="_s + outDir_,
                            u"--set"_s,     u"TempDir="_s + tempDir_,
                            u"--set"_s,     u"ISOPath="_s + isoDir_,
                            u"--set"_s,     u"ISO_Name=SAMPLE"_s,
                            u"--set"_s,     u"CreateISO=1"_s};
  return options + command;
}

CliResult Workshop::Run(const QString& command, const QStringList& arguments, const QString& assume) {
  WriteProject();
  return RunProgram(programs + u"/torvane-cli"_s, Arguments(QStringList{command, ProjectFile()} + arguments, assume));
}

CliResult Workshop::RunPlain(const QString& command, const QStringList& arguments) {
  return RunProgram(programs + u"/torvane-cli"_s, Arguments(QStringList{command} + arguments));
}

std::unique_ptr<QProcess> Workshop::Start(const QString& command) {
  WriteProject();
  return StartPlain(command, {ProjectFile()});
}

std::unique_ptr<QProcess> Workshop::StartPlain(const QString& command, const QStringList& arguments) {
  auto process = std::make_unique<QProcess>();
  process->setStandardInputFile(QProcess::nullDevice());
  process->start(programs + u"/torvane-cli"_s, Arguments(QStringList{command} + arguments));
  EXPECT_TRUE(process->waitForStarted(commandLimitMs));
  return process;
}

bool Workshop::ProjectIsUntouched() const {
  return ContentOf(ProjectFile()) == project.Text();
}

QByteArray Workshop::Log() const {
  QFile file(outDir_ + u"/TorvaneAuthor.log"_s);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<std::array<int, 4>> Workshop::SpuRectangles(const QString& menu, const QString& file) const {
  static const QRegularExpression button(
      u"<button name=\"[^\"]*\" x0=\"(\\d+)\" y0=\"(\\d+)\" x1=\"(\\d+)\" y1=\"(\\d+)\""_s);
  std::vector<std::array<int, 4>> rectangles;
  const QString text = QString::fromUtf8(ContentOf(tempDir_ + u'/' + menu + file + u".xml"));
  for (const QRegularExpressionMatch& match : button.globalMatch(text)) {
    std::array<int, 4> rectangle{};
    for (int i = 0; i < 4; ++i) rectangle[std::size_t(i)] = match.captured(i + 1).toInt();
    rectangles.push_back(rectangle);
  }
  return rectangles;
}

}  // namespace torvane::test
