#include "shell/batch_variables.h"

#include <QDir>
#include <QProcessEnvironment>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString WithoutQuotes(QString text) {
  if (text.startsWith(u'"')) text.remove(0, 1);
  if (text.endsWith(u'"')) text.chop(1);
  return text;
}

/// %~[fdpnx]n of an argument: the parts of its full path, in the order drive, path, name, ending.
QString ArgumentPart(const QString& argument, const QString& parts) {
  QString bare = WithoutQuotes(argument);
  if (parts.isEmpty() || bare.isEmpty()) return bare;
  QString full = HostFiles::HasDrive(bare) ? bare : HostFiles::ToDos(QDir::currentPath()) + u'\\' + bare;
  full.replace(u'/', u'\\');
  if (parts.contains(u'f')) return full;
  const qsizetype slash = full.lastIndexOf(u'\\');
  const QString name = full.sliced(slash + 1);
  const qsizetype dot = name.lastIndexOf(u'.');
  QString result;
  if (parts.contains(u'd')) result += full.left(2);
  if (parts.contains(u'p') && slash >= 2) result += full.sliced(2, slash - 1);
  if (parts.contains(u'n')) result += dot < 0 ? name : name.left(dot);
  if (parts.contains(u'x') && dot >= 0) result += name.sliced(dot);
  return result;
}

/// Reads an argument form behind the % at `position`; on success moves the position behind it.
std::optional<QString> ExpandArgument(const QString& line, qsizetype& position, const QStringList& arguments) {
  qsizetype at = position + 1;
  if (at >= line.size()) return std::nullopt;
  if (line[at] == u'*') {
    position = at + 1;
    return arguments.mid(1).join(u' ');
  }
  const bool parts = line[at] == u'~';
  QString letters;
  if (parts) {
    for (++at; at < line.size() && u"fdpnx"_s.contains(line[at].toLower()); ++at) letters += line[at].toLower();
  }
  if (at >= line.size() || line[at] < u'0' || line[at] > u'9') return std::nullopt;
  const QString argument = arguments.value(line[at].digitValue());
  position = at + 1;
  return parts ? ArgumentPart(argument, letters) : argument;
}

}  // namespace

BatchVariables::BatchVariables() {
  const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const QString& name : environment.keys()) variables_[name.toUpper()] = {name, environment.value(name)};
}

std::optional<QString> BatchVariables::Value(const QString& name) const {
  const QString key = name.toUpper();
  if (const auto found = variables_.constFind(key); found != variables_.constEnd()) return found->value;
  return dynamic ? dynamic(key) : std::nullopt;
}

void BatchVariables::Set(const QString& name, const QString& value) {
  const QString key = name.toUpper();
  const QString spelled = variables_.contains(key) ? variables_[key].name : name;
  changes_[spelled] = value;
  if (value.isEmpty()) {
    variables_.remove(key);
  } else {
    variables_[key] = {spelled, value};
  }
}

QStringList BatchVariables::Listing(const QString& prefix) const {
  QStringList lines;
  for (const Variable& variable : variables_) {
    if (variable.name.startsWith(prefix, Qt::CaseInsensitive)) lines << variable.name + u'=' + variable.value;
  }
  return lines;
}

QString ExpandVariables(const QString& line, const BatchVariables& variables, const QStringList& arguments,
                        ExpansionRule rule) {
  const bool batch = rule == ExpansionRule::Batch;
  QString result;
  for (qsizetype i = 0; i < line.size();) {
    if (line[i] != u'%') {
      result += line[i++];
      continue;
    }
    if (batch && i + 1 < line.size() && line[i + 1] == u'%') {
      result += u'%';
      i += 2;
      continue;
    }
    if (batch) {
      if (const auto argument = ExpandArgument(line, i, arguments)) {
        result += *argument;
        continue;
      }
    }
    const qsizetype end = line.indexOf(u'%', i + 1);
    const auto value = end > i + 1 ? variables.Value(line.sliced(i + 1, end - i - 1)) : std::nullopt;
    if (value) {
      result += *value;
      i = end + 1;
    } else if (batch) {
      i = end < 0 ? i + 1 : end + 1;
    } else {
      result += line[i++];
    }
  }
  return result;
}

}  // namespace torvane
