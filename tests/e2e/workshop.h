#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <vector>

#include "project_text.h"

namespace torvane::test {

enum class Norm { Pal, Ntsc };

/// How a program ended and what it printed.
struct CliResult {
  int exitCode = -1;
  QByteArray output;
  QByteArray messages;

  std::string Words() const { return output.toStdString() + messages.toStdString(); }
};

/// True for exit code 0; else it shows everything that was printed.
testing::AssertionResult Succeeded(const CliResult& result);

/// Runs a program without standard input in a directory, with a variable set in its environment. Fails the running test
/// when it does not end.
CliResult RunProgram(const QString& program, const QStringList& arguments, const QString& directory = {},
                     const std::pair<QString, QString>& variable = {});

/// Standard output of a program that must succeed.
QByteArray OutputOf(const QString& program, const QStringList& arguments);

/// Lets ffmpeg make a file; the options are parted by blanks.
void Ffmpeg(const QString& options, const QString& file);

/// A tone in stereo of 48 kHz and 192 kbit/s, of the kind that the file's name tells.
void MakeSound(const QString& file, int frequency, double seconds);

/// Content of a host file; fails the running test when it cannot be read.
QByteArray ContentOf(const QString& path);

/// Writes a host file; fails the running test when it cannot.
void Put(const QString& path, const QByteArray& content);

/// A directory of its own with the sample project, its media and what torvane-cli makes of them.
///
/// The media stand beside the project file under the names that the project gives them, as they do for a user who got
/// both in one folder. The directory goes with the object.
class Workshop {
 public:
  /// `folder` is the name of the directory that holds everything, `outName` and `tempName` those of the output and the
  /// temporary directory in it.
  explicit Workshop(Norm norm = Norm::Pal, const QString& folder = QStringLiteral("work"),
                    const QString& outName = QStringLiteral("out"), const QString& tempName = QStringLiteral("temp"));

  /// The project; change it before the first command.
  ProjectText project;

  QString Dir() const { return dir_; }
  QString OutDir() const { return outDir_; }
  QString TempDir() const { return tempDir_; }
  QString ProjectFile() const { return dir_ + QStringLiteral("/sample.tvn"); }
  QString IsoFile() const { return dir_ + QStringLiteral("/SAMPLE.ISO"); }

  /// Moves the output, the temporary directory or the image to another place.
  void SetOutDir(const QString& dir) { outDir_ = dir; }
  void SetTempDir(const QString& dir) { tempDir_ = dir; }
  void SetIsoDir(const QString& dir) { isoDir_ = dir; }

  /// Takes away a file of the media, or puts other content in its place.
  void RemoveMedia(const QString& name);
  void ReplaceMedia(const QString& name, const QByteArray& content);

  /// Gives one of the media another name, in the directory and in the project's node `key`.
  void RenameMedia(const QString& name, const QString& newName, const QString& key);

  /// Writes the project file if it does not stand yet, and runs a command of torvane-cli on it with every directory
  /// set.
  CliResult Run(const QString& command, const QStringList& arguments = {},
                const QString& assume = QStringLiteral("yes"));

  /// The arguments of torvane-cli that set every directory and run a command.
  QStringList CommandLine(const QStringList& command) const { return Arguments(command); }

  /// The same for a command that takes no project.
  CliResult RunPlain(const QString& command, const QStringList& arguments);

  /// The same without waiting for the end.
  std::unique_ptr<QProcess> Start(const QString& command);
  std::unique_ptr<QProcess> StartPlain(const QString& command, const QStringList& arguments);

  /// True as long as the project file holds what the workshop wrote.
  bool ProjectIsUntouched() const;

  /// {Out}\TorvaneAuthor.log; empty when there is none.
  QByteArray Log() const;

  /// The button rectangles of a menu's spumux file ("SpuL" for letterbox), in its order: left, top, right, bottom.
  std::vector<std::array<int, 4>> SpuRectangles(const QString& menu, const QString& file = QStringLiteral("Spu")) const;

 private:
  QStringList Arguments(const QStringList& command, const QString& assume = QStringLiteral("yes")) const;
  void WriteProject();

  QTemporaryDir root_;
  QString dir_;
  QString outDir_;
  QString tempDir_;
  QString isoDir_;
};

}  // namespace torvane::test
