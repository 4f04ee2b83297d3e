#pragma once

#include <algorithm>

#include "core/film_record.h"
#include "core/project_file.h"
#include "designer/edit_context.h"
#include "support/project_builder.h"
#include "support/recording_prompter.h"
#include "support/tree_dump.h"

namespace torvane::test {

/// Text of 8 by 16 pixels a character, with the margins of a button.
inline QSize MeasureFixed(const FontRecord&, const QString& text) {
  qsizetype width = 0;
  const QStringList lines = text.split(QStringLiteral("\r\n"));
  for (const QString& line : lines) width = std::max(width, line.size());
  return {int(width) * 8 + 5, text.isEmpty() ? 1 : int(lines.size()) * 16 + 3};
}

/// A default project with everything an editing operation needs.
struct EditBench {
  explicit EditBench(const Settings& settings = FixedSettings()) : project(settings) {
    AddDefaultProject(project);
    project.History.Reset();
  }

  QStringList Told() { return prompter.Told(); }

  QString Caption(const QString& key) const {
    const ProjectNode* node = project.Tree.Find(key);
    return node ? node->Caption() : QStringLiteral("(none)");
  }

  /// Captions of nodes whose keys stand apart by blanks.
  QStringList Captions(const QString& keys) const {
    QStringList captions;
    for (const QString& key : keys.split(u' ')) captions << Caption(key);
    return captions;
  }

  /// Captions of a node's children.
  QStringList Children(const QString& key) const {
    QStringList captions;
    const ProjectNode* node = project.Tree.Find(key);
    for (node = node ? node->FirstChild() : nullptr; node; node = node->Next()) captions << node->Caption();
    return captions;
  }

  QStringList Roots() const {
    QStringList keys;
    for (const ProjectNode* node = project.Tree.FirstRoot(); node; node = node->Next()) keys << node->Key();
    return keys;
  }

  Project project;
  RecordingPrompter prompter;
  EditContext context{project, prompter, MeasureFixed};
};

inline FilmRecord Film(const QString& name = QStringLiteral("a")) {
  FilmRecord film;
  film.Name = name;
  film.VideoFile = u"C:\\v\\" + name + u".m2v";
  return film;
}

inline Settings TitleSetSettings() {
  Settings settings = FixedSettings();
  settings.NoTitleSets = false;
  return settings;
}

}  // namespace torvane::test
