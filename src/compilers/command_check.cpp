#include "compilers/command_check.h"

#include <QTemporaryDir>

#include "compilers/button_check.h"
#include "compilers/run_batches.h"
#include "compilers/written_values.h"
#include "core/action_strings.h"
#include "core/engine.h"
#include "core/menu_view.h"
#include "designer/edit_context.h"
#include "platform/host_files.h"
#include "run/console_capture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kMostFindings = 10;

/// dvdauthor as a judge of commands.
class CommandParser : private ConsoleClient {
 public:
  CommandParser(const Project& project, Console& console) : settings_(project.Settings), console_(console) {
    settings_.TempDir = HostFiles::ToDos(folder_.path());
    // Whoever looks at a stranger's project must not run what that names.
    settings_.DvdAuthorPath = project.UserSettings.DvdAuthorPath;
  }

  bool IsReady() const { return folder_.isValid(); }

  /// False when dvdauthor says that one of them cannot be parsed.
  bool Parses(const QList<NodeCommands>& commands, qsizetype from, qsizetype count) {
    // It reads all commands before it looks where they jump to.
    QString author = u"<dvdauthor dest=\"" + settings_.TempDir + u"\\commands\"><vmgm><menus>\r\n";
    for (const NodeCommands& each : commands.sliced(from, count)) {
      author += u"<pgc><pre>" + each.text + u"</pre></pgc>\r\n";
    }
    author += u"</menus></vmgm></dvdauthor>\r\n";
    LineValues values(settings_);
    const QString batch = u"commands.bat"_s;
    if (!HostFiles::WriteAtomically(settings_.TempDir + u"\\Author.xml", author.toUtf8()) ||
        !HostFiles::WriteAtomically(settings_.TempDir + u'\\' + batch, SyntaxBatch(values))) {
      return true;
    }
    output_.clear();
    console_.RunProcess(u"cmd /k "_s + batch, settings_.TempDir, *this);
    return !output_.contains(u"Parse error");
  }

 private:
  void ReadProcess(const QString& chunk) override { output_ += chunk; }

  QTemporaryDir folder_;
  Settings settings_;
  Console& console_;
  QString output_;
};

/// Where the commands stand, for the user.
QString PlaceOf(const Project& project, const QString& key) {
  const ProjectNode* node = project.Tree.Find(key);
  if (!node) return key;
  const QString label = node->Caption().section(u'=', 0, 0);
  const QString menu = MenuOfNode(project.Tree, key);
  if (menu.isEmpty()) {
    const ProjectNode* film = node;
    while (film->Parent()) film = film->Parent();
    const QString name = film->FirstChild() ? film->FirstChild()->Value(u"Name="_s.size()) : QString();
    return u"%1 (%2), %3"_s.arg(film->Caption(), name, label);
  }
  const MenuView view(project.Tree, menu);
  const QString place = u"Menu %1 (%2), "_s.arg(view.Name(), menu);
  for (const ButtonView& button : view.Buttons()) {
    for (const ProjectNode* part = node; part; part = part->Parent()) {
      if (part->Key() == button.Key()) return place + u"button " + ButtonName(button) + u", " + label;
    }
  }
  return place + label;
}

/// What the writers put in place of an action is theirs to get right.
QList<NodeCommands> UserCommands(const Project& project) {
  QList<NodeCommands> commands = TryWriters(project).Commands;
  const QString playAll = kPlayAllAction.toString();
  commands.removeIf([&](const NodeCommands& each) {
    const bool isReplaced = each.text == playAll && MenuOfNode(project.Tree, each.key) == MainMenuKey();
    return isReplaced || each.text.trimmed().isEmpty();
  });
  return commands;
}

}  // namespace

QList<Finding> CommandFindings(const Project& project, Console& console) {
  if (project.Settings.Engine != kEngineDvdauthor) return {};
  const QList<NodeCommands> commands = UserCommands(project);
  CommandParser parser(project, console);
  QList<Finding> findings;
  qsizetype from = 0;
  while (parser.IsReady() && from < commands.size() && findings.size() < kMostFindings &&
         !parser.Parses(commands, from, commands.size() - from)) {
    // The first `good` of them are read, with one more there is a fault.
    qsizetype good = 0;
    for (qsizetype bad = commands.size() - from; bad - good > 1;) {
      const qsizetype middle = (good + bad) / 2;
      (parser.Parses(commands, from, middle) ? good : bad) = middle;
    }
    const NodeCommands& faulty = commands[from + good];
    findings << Finding{Severity::Error, faulty.key,
                        u"%1: dvdauthor cannot read the commands \"%2\". Please correct them."_s.arg(
                            PlaceOf(project, faulty.key), faulty.text.simplified())};
    from += good + 1;
  }
  return findings;
}

QList<Finding> CommandFindings(const Project& project) {
  ConsoleCapture console;
  return CommandFindings(project, console);
}

}  // namespace torvane
