#include "core/project_file.h"

#include <QSet>
#include <QXmlStreamWriter>

#include "core/messages.h"
#include "core/overwrite.h"
#include "core/project_settings.h"
#include "core/project_xml.h"
#include "core/resource_paths.h"
#include "core/settings_project.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kOldestVersion = 700;          // thousandths
constexpr qsizetype kMostMissingFiles = 20;  // listed by name
constexpr qint64 kMostBytes = 64LL * 1048576;  ///< of a file; a project of 50,000 nodes has 8 MB
constexpr int kIndent = 2;

/// True for text that an XML 1.0 document can carry.
bool IsXmlText(const QString& text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t c = text[i].unicode();
    if (c < 0x20 && c != u'\t' && c != u'\n' && c != u'\r') return false;
    if (c >= 0xFFFE) return false;
    if (QChar::isHighSurrogate(c)) {
      if (i + 1 == text.size() || !text[i + 1].isLowSurrogate()) return false;
      ++i;
    } else if (QChar::isLowSurrogate(c)) {
      return false;
    }
  }
  return true;
}

void WriteNodeTag(QXmlStreamWriter& writer, const ProjectNode& node) {
  if (node.FirstChild()) {
    writer.writeStartElement("NODE"_L1);
  } else {
    writer.writeEmptyElement("NODE"_L1);
  }
  writer.writeAttribute("Caption"_L1, node.Caption());
  writer.writeAttribute("Key"_L1, node.Key());
  writer.writeAttribute("Tag"_L1, node.Tag());
  writer.writeAttribute("Image"_L1, QString::number(node.Image()));
  writer.writeAttribute("ParentKey"_L1, node.Parent() ? node.Parent()->Key() : QString());
}

/// Writes a node and closes, behind the last child of a parent, that parent's element.
void WriteNodes(QXmlStreamWriter& writer, const ProjectTree& tree) {
  for (const ProjectNode* node = tree.FirstRoot(); node; node = tree.NextInOrder(node)) {
    WriteNodeTag(writer, *node);
    if (node->FirstChild()) continue;
    for (const ProjectNode* above = node; above && !above->Next(); above = above->Parent()) {
      if (above->Parent()) writer.writeEndElement();
    }
  }
}

QString NodeErrorText(const ProjectXml& xml, const ProjectXml::Node& node) {
  return u"ERROR loading node!\r\nParent: %1\r\nKey: %2\r\nCaption: %3\r\n\r\n"
         u"Read the error condition and post it in a support forum\r\nProgram terminates after 'Ok'!"_s.arg(
             node.parent < 0 ? u"Top"_s : xml.nodes[node.parent].data.Key, node.data.Key, node.data.Caption);
}

/// The first node that the tree would refuse: its key stands already, or it has none.
const ProjectXml::Node* FindBadNode(const ProjectXml& xml) {
  QSet<QString> keys;
  keys.reserve(qsizetype(xml.nodes.size()));
  for (const ProjectXml::Node& node : xml.nodes) {
    if (node.data.Key.isEmpty() && node.parent < 0) continue;
    if (node.data.Key.isEmpty() || keys.contains(node.data.Key)) return &node;
    if (node.parent >= 0 && xml.nodes[node.parent].data.Key.isEmpty()) return &node;
    keys.insert(node.data.Key);
  }
  return nullptr;
}

void FillTree(ProjectTree& tree, const ProjectXml& xml) {
  for (const ProjectXml::Node& node : xml.nodes) {
    if (node.data.Key.isEmpty()) continue;
    if (node.parent < 0) {
      tree.Add(node.data);
    } else {
      tree.Add(node.data, xml.nodes[node.parent].data.Key, Relation::Child);
    }
  }
}

void ReadIntro(Project& project) {
  const ProjectNode* file = project.Tree.Find(kIntroFileKey.toString());
  const ProjectNode* audio = project.Tree.Find(kIntroAudioKey.toString());
  project.Settings.UseIntro = project.Tree.Contains(kIntroKey.toString()) && file;
  if (!project.Settings.UseIntro) return;
  project.Settings.IntroMovie = file->Caption();
  project.Settings.IntroAudio = audio ? audio->Caption() : QString();
}

void CountFilms(Project& project) {
  int films = 0;
  while (films < 99 && project.Tree.Contains(FilmKey(films + 1))) ++films;
  project.FilmCount = project.TitleSetCount = films;
  project.ProjectHasVideos = films > 0;
  if (films == 0) return;

  const auto first = [&project](Attribute attribute) {
    const ProjectNode* node = project.Tree.Find(FilmNodeKey(attribute, 1));
    return node ? node->Value(attribute.Label.size()) : QString();
  };
  project.ProjectAspect = first(film_node::Aspect);
  project.ProjectResH = ValToInt(first(film_node::ResH));
  project.ProjectResV = ValToInt(first(film_node::ResV));
  project.ProjectFps = Val(first(film_node::Fps));
}

template <class Table, class KeyOf>
void ReadMenuTable(const ProjectTree& tree, Table& table, KeyOf keyOf) {
  for (int slot = 0; slot < int(table.size()); ++slot) {
    const ProjectNode* menu = tree.Find(keyOf(slot));
    if (!menu) continue;
    const auto tag = [&](Attribute attribute) {
      const ProjectNode* node = tree.Find(MenuNodeKey(menu->Key(), attribute));
      return node ? node->Tag() : QString();
    };
    table[slot] = {true, ValToInt(menu->Tag().mid(2)), menu->Key(), tag(menu_node::Properties), tag(menu_node::Type)};
  }
}

void TellMissingFiles(const QStringList& missing, Prompter& prompter) {
  if (missing.isEmpty()) return;
  QStringList lines{GetMessage(154)};
  lines += missing.first(std::min(missing.size(), kMostMissingFiles));
  if (missing.size() > kMostMissingFiles) lines << u"..."_s;
  prompter.Warn(lines.join(u"\r\n"));
}

bool Write(Project& project, const QString& path, Prompter& prompter) {
  const Result<QByteArray> text = ProjectFileText(project);
  if (!text) {
    prompter.Fail(text.Error());
    return false;
  }
  const Status written = HostFiles::WriteAtomically(path, *text);
  if (!written) {
    prompter.Fail(GetMessage(157) + u"\r\n" + written.Error());
    return false;
  }
  project.ProjectFile = path;
  project.ProjectNamed = true;
  project.History.MarkSaved();
  return true;
}

}  // namespace

QString WithProjectExtension(const QString& path) {
  return path.endsWith(u".tvn", Qt::CaseInsensitive) ? path : path + u".tvn"_s;
}

Result<QByteArray> ProjectFileText(const Project& project) {
  for (const ProjectNode* node = project.Tree.FirstRoot(); node; node = project.Tree.NextInOrder(node)) {
    if (IsXmlText(node->Key()) && IsXmlText(node->Caption()) && IsXmlText(node->Tag())) continue;
    return Failure{u"Node %1 holds a control character that a project file cannot keep; please take it out."_s.arg(
        node->Key())};
  }
  QByteArray text;
  QXmlStreamWriter writer(&text);
  writer.setAutoFormatting(true);
  writer.setAutoFormattingIndent(kIndent);
  writer.writeStartElement("NODES"_L1);
  for (const ProjectElement& element : ProjectAttributes(CarriedSettings(project))) {
    writer.writeEmptyElement(element.name);
    for (const auto& [name, value] : element.attributes) writer.writeAttribute(name, value);
  }
  WriteNodes(writer, project.Tree);
  writer.writeEndElement();
  // Line breaks in values are character references, so each bare one belongs to the layout.
  return text.trimmed().replace("\n", "\r\n");
}

bool SaveProject(Project& project, Prompter& prompter) {
  return Write(project, project.ProjectFile, prompter);
}

bool SaveProjectAs(Project& project, const QString& path, Prompter& prompter) {
  const QString own = project.ProjectNamed ? project.ProjectFile : QString();
  return MayWriteFile(path, own, prompter) && Write(project, path, prompter);
}

bool LoadProject(Project& project, const QString& path, Prompter& prompter) {
  const Result<QByteArray> file = HostFiles::ReadAtMost(path, kMostBytes);
  if (!file) {
    prompter.Fail(GetMessage(116, {{u"|1", path}}) + u"\r\n" + file.Error());
    return false;
  }
  const std::optional<int> version = ReadFileVersion(*file);
  if (!version || *version < kOldestVersion || *version > RoundHalfEven(Val(ProgramVersion) * 1000)) {
    prompter.Fail(GetMessage(115));
    return false;
  }
  const Result<ProjectXml> xml = ReadProjectXml(*file);
  if (!xml) {
    prompter.Fail(GetMessage(116, {{u"|1", path}}) + u"\r\n" + xml.Error());
    return false;
  }
  if (const ProjectXml::Node* bad = FindBadNode(*xml)) {
    prompter.Fail(NodeErrorText(*xml, *bad));
    return false;
  }

  const ChangeGroup group(project.Tree);
  project.Reset();
  project.ProjectFile = path;
  const QString projectDir = path.left(path.lastIndexOf(u'\\'));
  if (!project.Given.texts.isEmpty()) project.Settings = project.Given.without;
  ReadProjectSettings(xml->elements, float(*version) / 1000.0F, projectDir, project.Settings);
  const Settings own = project.Settings;
  TakeGivenSettings(project);
  FillTree(project.Tree, *xml);
  NormalizeResourcePaths(project.Tree, projectDir);
  const QStringList missing = FixResourcePaths(project, projectDir);
  ReadIntro(project);
  TakeGivenSettings(project);  // the intro's among them
  if (!project.Given.texts.isEmpty()) project.LoadedSettings = {own, project.Settings};
  CountFilms(project);
  ReadMenuTable(project.Tree, project.SubMenuTable, SubMenuKey);
  ReadMenuTable(project.Tree, project.MainSubMenuTable, MainSubMenuKey);
  TellMissingFiles(missing, prompter);
  TakeMenuRaster(project, project.CurrentMenuKey);
  CalculateTotalSize(project);
  project.ProjectNamed = true;
  project.History.Reset();
  return true;
}

}  // namespace torvane
