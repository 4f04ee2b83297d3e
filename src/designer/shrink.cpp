#include "designer/shrink.h"

#include <cmath>
#include <vector>

#include "core/edit.h"
#include "core/film_view.h"
#include "core/messages.h"
#include "core/size_bar.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kLeastTarget = 10;

/// A film that can be shrunk, in megabytes.
struct ShrinkFilm {
  int film = 0;
  double total = 0;   ///< of the finished title
  double video = 0;   ///< of its video as it is
  double shrunk = 0;  ///< of its video as it is now to become
};

double NumberOf(const FilmView& view, Attribute attribute) {
  return Val(view.Text(attribute).value_or(QString()));
}

/// The video batch requantises elementary streams alone, and only MPEG-2 can be.
bool CanShrink(const Project& project, const FilmView& view) {
  const ProjectNode* video = project.Tree.Find(FilmNodeKey(film_node::Video, view.Number()));
  return !view.IsAudioTitleSet() && view.NeedsMux() && video && video->Tag() != u"1";
}

void WriteShrink(Project& project, const ShrinkFilm& film, double factor) {
  ProjectTree& tree = project.Tree;
  const QString key = FilmNodeKey(film_node::ShrinkTo, film.film);
  double total = film.total + film.video - film.shrunk;
  if (factor == 0) {
    tree.Remove(key);
  } else {
    const double shrunk = std::floor(film.video * factor);
    const QString caption = film_node::ShrinkTo.Label + QString::number(shrunk, 'f', 0);
    const NodeData node{key, caption, {}, kInPlaceNode};
    if (!tree.SetCaption(key, caption) && !tree.Add(node, FilmNodeKey(film_node::Duration, film.film), Relation::Next)) {
      tree.Add(node, FilmNodeKey(film_node::Video, film.film), Relation::Child);
    }
    total -= film.video - shrunk;
  }
  tree.SetCaption(FilmNodeKey(film_node::TotalSize, film.film),
                  film_node::TotalSize.Label + QString::number(RoundToInt(total)));
}

/// The factor to shrink by: 0 to reset, nothing when the user must not or does not want to.
std::optional<double> AskFactor(EditContext& context, double target, double fixed, double shrinkable) {
  constexpr double kLeastPart = 10;
  if (target - fixed < shrinkable / kLeastPart) {
    context.prompter.Inform(GetMessage(421));
    return std::nullopt;
  }
  Box box{.kind = BoxKind::Question};
  double factor = 0;
  if (target >= fixed + shrinkable) {
    box.buttons = BoxButtons::OkCancel;
    box.text = u"Target size > actual size\r\nReset all shrink factors?"_s;
  } else {
    factor = (target - fixed) / shrinkable;
    box.buttons = BoxButtons::YesNo;
    box.preselected = Answer::Yes;
    box.text = u"Set shrink factors to %1%?"_s.arg(qRound(factor * 100), 2, 10, QChar(u'0'));
  }
  const Answer answer = context.prompter.Show(box);
  if (answer != Answer::Ok && answer != Answer::Yes) return std::nullopt;
  return factor;
}

}  // namespace

bool ShrinkToSize(EditContext& context, const QString& targetMB) {
  Project& project = context.project;
  if (project.FilmCount == 0 || targetMB.isEmpty()) return false;
  bool isNumber = false;
  const int target = targetMB.trimmed().toInt(&isNumber);
  if (!isNumber || target < kLeastTarget || target > kResetShrink) {
    context.prompter.Inform(GetMessage(139));
    return false;
  }
  Edit edit(project, u"Fit to disc size"_s);
  CalculateTotalSize(project);
  double fixed = TotalSizeMB(project);  // intro, menus and what films cannot lose
  double shrinkable = 0;
  std::vector<ShrinkFilm> films;
  for (int i = 1; i <= project.FilmCount; ++i) {
    const FilmView view(project.Tree, i);
    if (!CanShrink(project, view)) continue;
    ShrinkFilm film{.film = i, .total = NumberOf(view, film_node::TotalSize)};
    film.video = film.shrunk = NumberOf(view, film_node::VideoSize);
    if (const auto shrunk = view.Text(film_node::ShrinkTo)) film.shrunk = Val(*shrunk);
    fixed -= film.shrunk;
    shrinkable += film.video;
    films.push_back(film);
  }
  if (shrinkable == 0) {
    context.prompter.Inform(u"No shrinkable video!"_s);
    return false;
  }
  const std::optional<double> factor = AskFactor(context, target, fixed, shrinkable);
  if (!factor) return false;
  for (const ShrinkFilm& film : films) WriteShrink(project, film, *factor);
  CalculateTotalSize(project);
  edit.Commit();
  return true;
}

}  // namespace torvane
