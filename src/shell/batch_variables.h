#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace torvane {

/// The % variables of a batch: the environment at start and what SET adds. Names do not regard case.
class BatchVariables {
 public:
  /// Begins with the environment of the process.
  BatchVariables();

  /// The value, or nothing for a name that is not set. CD and ERRORLEVEL are asked of `dynamic` when no variable hides
  /// them.
  std::optional<QString> Value(const QString& name) const;

  /// An empty value removes the variable.
  void Set(const QString& name, const QString& value);

  /// "NAME=value" of the variables whose name begins with the prefix, sorted.
  QStringList Listing(const QString& prefix) const;

  /// What SET changed, as name and value ("" for removed): the tools get these beside the environment.
  const QMap<QString, QString>& Changes() const { return changes_; }

  /// Answers for CD and ERRORLEVEL; set by the shell.
  std::function<std::optional<QString>(const QString& upperName)> dynamic;

 private:
  struct Variable {
    QString name;
    QString value;
  };
  QMap<QString, Variable> variables_;  // by name in capitals
  QMap<QString, QString> changes_;
};

/// How a lone % and an unknown name are read: a batch drops them, a line typed at the prompt keeps them.
enum class ExpansionRule { Batch, Prompt };

/// Replaces %name%, and with the rule Batch also %0 to %9, %*, the forms %~1, %~dp0 and so on, and %% for one %.
/// `arguments` are %0 and what follows, quotes kept.
QString ExpandVariables(const QString& line, const BatchVariables& variables, const QStringList& arguments,
                        ExpansionRule rule);

}  // namespace torvane
