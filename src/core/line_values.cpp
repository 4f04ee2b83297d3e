#include "core/line_values.h"

#include <QRegularExpression>
#include <algorithm>

#include "core/control_elements.h"
#include "core/dos_path.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// The value as a sentence shows it, in one line.
QString Shown(const QString& value) {
  constexpr qsizetype kMost = 120;
  const QString line = value.simplified();
  return line.size() > kMost ? line.first(kMost) + u"…" : line;
}

}  // namespace

void LineValues::Refuse(const QString& key, const QString& text) {
  const Finding finding{.key = key, .text = text};
  if (!refused_.contains(finding)) refused_ << finding;
}

QString LineValues::Path(const QString& path, const QString& key) {
  if (IsDosPath(path)) return path;
  if (key.isEmpty()) {
    Refuse(key,
           u"\"%1\" is no path that a generated file can name: it must begin with a drive and hold no quote and no "
           u"control character. Please change the directory or file in the settings."_s.arg(Shown(path)));
  } else if (path.isEmpty()) {
    Refuse(key, u"Node %1 names no file. Please choose one."_s.arg(key));
  } else {
    Refuse(key,
           u"Node %1 names \"%2\", which is no path of a file: it must begin with a drive, hold no quote and no "
           u"control character, and not end in \"|\". Please choose the file anew."_s.arg(key, Shown(path)));
  }
  return path;
}

QString LineValues::Temp(const QString& name) {
  tempFiles_ << TempFile{name, {}};
  return Path(settings_.TempDir + u'\\' + name);
}

QString LineValues::Temp(const QString& filmName, QStringView ending, const QString& key) {
  const QString name = Name(filmName, key) + ending;
  tempFiles_ << TempFile{name, key};
  return Path(settings_.TempDir) + u'\\' + name;
}

QString LineValues::Name(const QString& name, const QString& key) {
  static const QRegularExpression kForbidden(u"[\"/\\\\:*?<>|]"_s);
  if (!name.isEmpty() && !name.contains(kForbidden) && !HasControlCharacters(name)) return name;
  if (key.isEmpty()) {
    Refuse(key,
           u"The setting ISO_Name is \"%1\". No file can have that name: please take out quotes, control characters "
           u"and / \\ : * ? < > |."_s.arg(Shown(name)));
  } else {
    Refuse(key,
           u"Node %1 holds the name \"%2\". Its temporary files cannot have that name: please give another one, "
           u"without quotes, control characters and / \\ : * ? < > |, with edit-title --name."_s.arg(key, Shown(name)));
  }
  return name;
}

QString LineValues::Word(const QString& word, const QString& key) {
  static const QRegularExpression kWord(u"\\A[A-Za-z0-9._]+\\z"_s);
  if (!word.contains(kWord)) {
    Refuse(key,
           u"\"%1\" cannot stand in a line of a batch: only letters, digits, \".\" and \"_\" can."_s.arg(Shown(word)));
  }
  return word;
}

QString LineValues::WholeNumber(const QString& number, const QString& key) {
  static const QRegularExpression kNumber(u"\\A-?[0-9]{1,9}\\z"_s);
  if (!number.contains(kNumber)) {
    Refuse(key, u"Node %1 holds \"%2\", which is no whole number."_s.arg(key, Shown(number)));
  }
  return number;
}

QString LineValues::Attribute(const QString& value, const QString& key) {
  if (value.contains(u'"') || value.contains(u'<') || HasControlCharacters(value)) {
    Refuse(key,
           u"Node %1 holds \"%2\", which cannot stand in a control file: please take out quotes, \"<\" and control "
           u"characters."_s.arg(key, Shown(value)));
  }
  return value;
}

QString LineValues::Commands(const QString& commands, const QString& key) {
  commands_ << NodeCommands{key, commands};
  const qsizetype tag = TagInCommand(commands);
  if (tag >= 0) {
    Refuse(key,
           u"The commands of node %1 would end their place in the control file at \"%2\". Please put a blank behind "
           u"the \"<\" if it compares numbers."_s.arg(key, Shown(commands.sliced(tag))));
  }
  QString lines = commands;
  lines.remove(u'\r').remove(u'\n').remove(u'\t');
  if (HasControlCharacters(lines)) {
    Refuse(key, u"The commands of node %1 hold control characters. Please take them out."_s.arg(key));
  }
  return commands;
}

QString LineValues::Comment(const QString& text, const QString& key) {
  if (text.contains(u"-->") || HasControlCharacters(text)) {
    Refuse(
        key,
        u"Node %1 is called \"%2\", which cannot stand in a comment of the control file: please take out \"-->\" and "
        u"control characters, or switch CommentXML off."_s.arg(key, Shown(text)));
  }
  return text;
}

}  // namespace torvane
