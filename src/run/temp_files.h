#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include "platform/result.h"
#include "run/source_guard.h"

namespace torvane {

/// Which files and folders of a temporary directory are ours: those that the program or a step of its runs makes there.
/// Each is noted before it is made, in the file ".torvane-files" of the directory, a name a line; only what stands
/// there is ever cleaned away or written over. Names are those below the directory, with "/" between them
/// ("Author.xml", "TempSub.d/sub00001.png"), and are compared without regard to case, as the lines of a batch find
/// files.
///
/// A listed name covers the unfinished file beside it ("NAME.part"), and "TempSub.d" the pictures that sup2png makes.
class TempFiles {
 public:
  /// Reads the list of a directory (DOS path). A list that is damaged or a link counts as none.
  explicit TempFiles(QString tempDir);

  /// True when there is no list, but the batch that every run writes first: a former version has worked here.
  bool IsFromFormerVersion() const;

  /// Counts names as ours that a former version has made without a list.
  void Adopt(const QStringList& names);

  bool IsOurs(const QString& name) const;

  /// What lies in the directory, and in the folders of it that are ours, and is not ours. What `known` protects is left
  /// out, and so are private folders of torvane-cmd.
  QStringList Others(const SourceGuard& known) const;

  /// Those of the names that exist and are not ours: to write or erase them would lose what belongs to someone else.
  QStringList OthersAmong(const QStringList& names) const;

  /// What is not ours and would be erased by masks such as "*.xml" or "TempSub.d/*.*"; a link to a folder stands for
  /// all behind it.
  QStringList OthersMatching(const QStringList& masks) const;

  /// Notes names before they are made. Fails with the list's path when it cannot be written.
  Status Note(const QStringList& names);

  /// Notes names that will be written, whole or first as "NAME.part". Refused, with nothing noted, when something that
  /// is not ours bears one of them.
  Status Claim(const QStringList& names);

  /// Claims a name and writes it as a generated file.
  Status Write(const QString& name, const QByteArray& content);

  /// Takes links away that stand where outside programs will write: they would write through them. Fails with those
  /// that are not ours.
  Status RemoveLinks(const QStringList& names) const;

  /// Deletes all that is listed but what the guard protects, and the list with the last of it.
  void Clean(const SourceGuard& guard);

 private:
  QString ListPath() const;
  bool IsNoted(const QString& name) const;
  QStringList Entries(const QString& folder) const;

  QString tempDir_;
  QHash<QString, QString> names_;  ///< by their small letters
  bool hasList_ = false;
};

}  // namespace torvane
