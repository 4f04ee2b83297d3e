#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include "core/finding.h"
#include "core/settings.h"

namespace torvane {

/// A file in `TempDir` that a generated file names.
struct TempFile {
  QString name;  ///< relative to `TempDir`
  QString key;   ///< of the node that holds the name it bears; "" for a name of the program's own
  bool operator==(const TempFile&) const = default;
};

/// Commands of the player's language as a control file gets them, and where they come from.
struct NodeCommands {
  QString key;  ///< of the node
  QString text;
  bool operator==(const NodeCommands&) const = default;
};

/// The gate between a project and generated text: each value that goes into a line of a batch or a control file passes
/// the function of its kind, which refuses what would break out of its place. A value comes back as it is; what was
/// refused is collected, and a text with refused values must be neither written nor run.
///
/// `key` is the node that holds the value, "" for one of the settings.
class LineValues {
 public:
  explicit LineValues(const Settings& settings) : settings_(settings) {}
  LineValues(const LineValues&) = delete;
  LineValues& operator=(const LineValues&) = delete;

  /// A full DOS path that stands in quotes.
  QString Path(const QString& path, const QString& key = {});

  /// Full path of a file in `TempDir`, with a name of the program's own.
  QString Temp(const QString& name);
  /// The same for the files of a film: they bear its name and an ending.
  QString Temp(const QString& filmName, QStringView ending, const QString& key);

  /// A name that stands in quotes or is part of a file's name: no quote, no control character, none of / \ : * ? < > |.
  QString Name(const QString& name, const QString& key = {});

  /// A word outside of quotes: letters of ASCII, digits, ".", "_".
  QString Word(const QString& word, const QString& key = {});

  /// A whole number, which may be negative.
  QString WholeNumber(const QString& number, const QString& key);

  /// The value of an attribute of a control file.
  QString Attribute(const QString& value, const QString& key);

  /// Commands of the player's language, the text of an element of a control file.
  QString Commands(const QString& commands, const QString& key);

  /// A part of a comment of a control file.
  QString Comment(const QString& text, const QString& key);

  const QList<Finding>& Refused() const { return refused_; }

  /// The files of `TempDir` that passed, in their order, some more than once.
  const QList<TempFile>& TempFiles() const { return tempFiles_; }

  /// All commands that came by, in their order.
  const QList<NodeCommands>& AllCommands() const { return commands_; }

  const Settings& InForce() const { return settings_; }

 private:
  void Refuse(const QString& key, const QString& text);

  const Settings& settings_;
  QList<Finding> refused_;
  QList<TempFile> tempFiles_;
  QList<NodeCommands> commands_;
};

}  // namespace torvane
