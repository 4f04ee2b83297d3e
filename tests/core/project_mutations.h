#pragma once

#include <random>

#include "core/project_file.h"
#include "core/project_xml.h"
#include "support/drive_c.h"
#include "support/project_builder.h"
#include "support/project_state.h"
#include "support/recording_prompter.h"

namespace torvane::test {

/// Damaged project files. Whatever stands in one, it is loaded whole and can be saved and loaded again, or its message
/// is told and the open project stays as it was.
class ProjectMutations {
 public:
  explicit ProjectMutations(quint64 seed) : ProjectMutations(seed, TwoFilms()) {}
  virtual ~ProjectMutations() = default;

  /// Loads one damaged file. Returns what was broken with the file, "" for nothing.
  QString Round() {
    const QByteArray text = Mutated();
    const QString broken = Load(text);
    return broken.isEmpty() ? broken : QString(broken + u'\n' + QString::fromUtf8(text));
  }

  int loadedFiles = 0;
  int refusedFiles = 0;

 protected:
  /// Damages another project than that of two films.
  ProjectMutations(quint64 seed, const Project& project) : random_(seed), sound_(*ProjectFileText(project)) {}

  static const Project& TwoFilms() {
    static Project project(FixedSettings());
    if (project.FilmCount == 0) BuildTwoFilms(project);
    project.Tree.SetCaption(QStringLiteral("MMB1Text"), QStringLiteral("Text=two\r\nlines & \"more\" <ä€𝄞>"));
    return project;
  }

  /// What else is to be done with each project that was taken; returns what was broken.
  virtual QString Use(Project& project) {
    Q_UNUSED(project)
    return {};
  }

 private:
  QString Load(const QByteArray& text) {
    Project project(FixedSettings());
    BuildTwoFilms(project);
    project.History.Reset();
    const WholeProject before(project);
    const QString file = QStringLiteral("C:\\m.tvn");
    if (!HostFiles::WriteAtomically(file, text)) return QStringLiteral("the file was not written");
    RecordingPrompter prompter;
    if (LoadProject(project, file, prompter)) {
      ++loadedFiles;
      const QString broken = Again(project, file);
      return broken.isEmpty() ? Use(project) : broken;
    }
    ++refusedFiles;
    if (prompter.boxes.empty()) return QStringLiteral("refused without a word");
    return WholeProject(project) == before ? QString() : QStringLiteral("refused, but the project has changed");
  }

  static QString Again(Project& project, const QString& file) {
    const Result<QByteArray> text = ProjectFileText(project);
    if (!text) return QStringLiteral("loaded, but cannot be saved: ") + text.Error();
    if (!HostFiles::WriteAtomically(file, *text)) return QStringLiteral("the file was not written");
    Project again(FixedSettings());
    RecordingPrompter prompter;
    if (!LoadProject(again, file, prompter)) return QStringLiteral("saved, but not loaded again");
    if (DumpTree(again.Tree) != DumpTree(project.Tree)) return QStringLiteral("saved and loaded is another tree");
    return *ProjectFileText(again) == *text ? QString() : QStringLiteral("saved again is another file");
  }

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  QByteArray Piece() {
    static const QByteArray kPieces[] = {
        "<NODE Caption=\"\" Key=\"x\" Tag=\"\" Image=\"1\" ParentKey=\"\"/>",
        "<NODE>", "</NODE>", "<NODES>", "</NODES>", "&#0;", "&#1;", "&#13;&#10;", "&quot;", "&lol;", "<![CDATA[x]]>",
        "<!-- c -->", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>", "<!DOCTYPE a [<!ENTITY b \"&b;\">]>", "\"", "'", "=",
        "169MODE=\"2\"", " 169MODE=\"x", "_169MODE=\"1\"", "TVNVERSION=\"0.9\"", "99999999999999999999", "-1", "1e999", "nan",
        "C:\\a\\b.gif", ":\\", "Key=\"MM\"", "Key=\"\"", "Key=\"F99\"", "Key=\"SM999\"", "Tag=\"TS2147483648\"", "\xff\xfe",
        "\xc3", "\xed\xa0\x80", "\r", "\n", "\t", "\\", "Loop=1", "Text=", "jump title 99;", "00:00:00.000,", "<SETTINGS5 ",
        "<SETTINGS2/>"};
    return kPieces[Below(int(std::size(kPieces)))];
  }

  QByteArray Mutated() {
    QByteArray text = Below(4) == 0 ? Shuffled() : sound_;
    const bool keepsXml = Below(2) == 0;
    for (int change = Below(5); change >= 0; --change) {
      const int at = Below(int(text.size()) + 1);
      switch (keepsXml ? 5 : Below(8)) {
        case 0:
          text.truncate(Below(8) == 0 ? at : int(text.size()));
          break;
        case 1:
        case 2:
          text.insert(at, Piece());
          break;
        case 3:
          text.remove(at, Below(60));
          break;
        case 4:
          text.replace(at, Below(10), Piece());
          break;
        case 5:
          SetValue(text, at);
          break;
        default:
          if (at < text.size()) text[at] = char(Below(256));
      }
    }
    return text;
  }

  /// Gives the next attribute value another content; the XML stays sound.
  void SetValue(QByteArray& text, int at) {
    const qsizetype start = text.indexOf("=\"", at);
    const qsizetype end = start < 0 ? -1 : text.indexOf('"', start + 2);
    if (end < 0) return;
    QByteArray value = Piece();
    value.replace('<', "&lt;").replace('"', "&quot;");
    text.replace(start + 2, end - start - 2, value);
  }

  /// Whole lines left out, doubled or exchanged.
  QByteArray Shuffled() {
    QList<QByteArray> lines = lines_;
    for (int change = Below(4); change >= 0; --change) {
      const int line = Below(int(lines.size()));
      const int other = Below(int(lines.size()));
      switch (Below(3)) {
        case 0:
          lines.remove(line);
          break;
        case 1:
          lines.insert(other, QByteArray(lines[line]));
          break;
        default:
          lines.swapItemsAt(line, other);
      }
    }
    return lines.join('\n');
  }

  DriveC drive_;
  std::mt19937_64 random_;
  QByteArray sound_;
  QList<QByteArray> lines_ = sound_.split('\n');
};

}  // namespace torvane::test
