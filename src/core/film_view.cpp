#include "core/film_view.h"

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

std::optional<QString> FilmView::TextAt(const QString& key, qsizetype labelLength) const {
  const ProjectNode* node = tree_->Find(key);
  if (!node) return std::nullopt;
  return node->Value(labelLength);
}

std::optional<QString> FilmView::Text(Attribute attribute) const {
  return TextAt(FilmNodeKey(attribute, film_), attribute.Label.size());
}

QString FilmView::Tag(Attribute attribute) const {
  const ProjectNode* node = tree_->Find(FilmNodeKey(attribute, film_));
  return node ? node->Tag() : QString();
}

bool FilmView::IsAudioTitleSet() const {
  const ProjectNode* root = tree_->Find(FilmKey(film_));
  return root && root->Caption().contains(kAudioTitleSetMark);
}

bool FilmView::NeedsMux() const {
  return Val(Text(film_node::Mux).value_or(QString())) == 1;
}

std::optional<QString> FilmView::Audio(int stream) const {
  return TextAt(FilmAudioKey(film_, stream), FilmAudioLabel(stream).size());
}

std::optional<QString> FilmView::Subtitle(int stream) const {
  return TextAt(FilmSubtitleKey(film_, stream), FilmSubtitleLabel(stream).size());
}

QString FilmView::SubtitleFormat(int stream) const {
  return TextAt(FilmSubtitleFormatKey(film_, stream), FilmSubtitleFormatLabel(stream).size()).value_or(QString());
}

int FilmView::SubtitleCount() const {
  for (int stream = kFilmStreams; stream > 0; --stream) {
    if (tree_->Contains(FilmSubtitleKey(film_, stream))) return stream;
  }
  return 0;
}

bool FilmView::StartsWithSubtitle() const {
  const ProjectNode* format = tree_->Find(FilmSubtitleFormatKey(film_, 1));
  return tree_->Contains(FilmSubtitleKey(film_, 1)) && format && Val(format->Tag()) == 1;
}

int FilmView::ReturnMenu() const {
  const ProjectNode* owner = tree_->Find(FilmNodeKey(film_node::Animated, film_));
  if (!owner || !IsMainSubMenu(owner->Tag()) || !tree_->Contains(owner->Tag())) return 1;
  return ValToInt(owner->Tag().sliced(2)) + 1;
}

}  // namespace torvane
