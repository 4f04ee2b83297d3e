#include "compilers/batch_texts.h"

#include <QRegularExpression>

#include "compilers/disc_checks.h"
#include "core/film_view.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
QStringList BatchTextFindings(const Project& project) {
  static const QRegularExpression forbiddenInPath(u"[\"\\x{00}-\\x{1f}]"_s);
  static const QRegularExpression forbiddenInName(u"[\"/\\\\\\x{00}-\\x{1f}]"_s);
  static const QRegularExpression delay(u"^-?[0-9]{1,9}$"_s);
  QStringList findings;
  for (const QString& path : ProjectFiles(project)) {
    if (!path.contains(forbiddenInPath)) continue;
    findings << u"The path of the file %1 holds a quote or a control character. Please rename it."_s.arg(path);
  }
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView film(project.Tree, i);
    if (!film.IsAudioTitleSet() && film.Name().contains(forbiddenInName)) {
      findings << u"Film %1 is named \"%2\". Its temporary files cannot have that name: please take out quotes, slashes "
                  u"and control characters."_s.arg(i)
                      .arg(film.Name());
    }
    if (const auto text = film.Text(film_node::AudioDelay); text && !text->contains(delay)) {
      findings << u"The audio delay of film %1 is no whole number of milliseconds: %2"_s.arg(i).arg(*text);
    }
  }
  return findings;
}

bool CheckBatchTexts(const Project& project, Prompter& prompter) {
  return RefusesNothing(BatchTextFindings(project), prompter);
}

}  // namespace torvane
