#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

#include "platform/result.h"

namespace torvane {

/// The one border between the program's own notion of a path and this machine.
///
/// In memory every path is a DOS path ("C:\T\Author.xml"), since the generated files are Windows text. Here drive
/// Z is the root of the file system; drive X is the folder named by the environment variable TORVANE_DRIVE_X, or
/// else the folder "torvane/drive_x" in the user's data directory. A component that is not found as written is
/// looked up without regard to case, so that "C:\Films\A.MPG" finds "films/a.mpg".
///
/// A relative DOS path is relative to the current directory of the process. One that begins with a backslash but has no
/// drive, two backslashes included, begins at the root of the drive on which that directory lies. In a path with a root
/// ".." ends there: no path leads out of its drive's folder.
class HostFiles {
 public:
  /// Host path of a DOS path. What does not exist is mapped as written. "" for "".
  static QString ToHost(const QString& dosPath);

  /// The current directory of the process as a DOS path: on the drive whose folder holds it, else on drive Z. Without a
  /// closing backslash, but for a drive's root.
  static QString CurrentDirectory();

  /// The components of a path from a root, with slashes of either kind; "." and ".." are taken out, and ".." goes no
  /// further up than the root.
  static QStringList ComponentsWithinRoot(const QString& path);

  /// DOS path of a host path: "/home/u/a.m2v" is "Z:\home\u\a.m2v". A relative path keeps being relative.
  static QString ToDos(const QString& hostPath);

  /// Absolute DOS path of what a user typed, which may be a host path (relative or not) or a DOS path with a drive.
  static QString FromUser(const QString& typed);

  /// True for a path that begins with a drive letter and a colon.
  static bool HasDrive(const QString& path);

  static bool FileExists(const QString& dosPath);
  static bool DirExists(const QString& dosPath);

  /// True when both paths lead to one existing file, through whatever links.
  static bool IsSameFile(const QString& dosPath, const QString& otherPath);

  /// Size in bytes, or nothing when there is no such file.
  static std::optional<qint64> FileSizeOf(const QString& dosPath);

  /// Whole content of a file. Fails with the host path and the system's reason.
  static Result<QByteArray> Read(const QString& dosPath);

  /// The same for a file of at most `most` bytes. Fails with both sizes for a larger one, of which no more is read; a
  /// device that never ends is one, too.
  static Result<QByteArray> ReadAtMost(const QString& dosPath, qint64 most);

  /// Writes to a temporary file beside the target, flushes it and renames it over the target. On failure the former
  /// file stands as it was and nothing else is left.
  static Status WriteAtomically(const QString& dosPath, const QByteArray& content);

  /// Adds to the end of a file, which is made when it does not exist. A link is refused.
  static Status Append(const QString& dosPath, const QByteArray& content);

  /// Makes a directory and its parents. True when it exists afterwards.
  static bool MakeDir(const QString& dosPath);

  /// Deletes one file. True when there is none afterwards.
  static bool RemoveFile(const QString& dosPath);

  /// Removes one empty directory.
  static bool RemoveDir(const QString& dosPath);

  /// Names (without directory) of the files of a directory, sorted; empty when there is no such directory.
  static QStringList FileNames(const QString& dosDir);

  /// Names of the subdirectories of a directory, sorted, without "." and "..".
  static QStringList DirNames(const QString& dosDir);

  /// True when a file can be made in the directory.
  static bool IsWritableDir(const QString& dosDir);

  /// Free space of the file system that holds the path, in megabytes of 1,048,576 bytes; nothing when it cannot be
  /// asked. Of a path that does not exist yet, the nearest existing parent is asked.
  static std::optional<qint64> DriveFreeMB(const QString& dosPath);
};

}  // namespace torvane
