#include "core/path_nodes.h"

#include <algorithm>
#include <array>

#include "core/keys.h"

namespace torvane {
namespace {

/// The form of a key: a menu's key if `inMenu`, a start, a number of digits (with "#" between two of them) if
/// `numbered`, and an end.
struct KeyForm {
  bool inMenu;
  QStringView start;
  bool numbered;
  QStringView end;
  PathPlace place;
};

constexpr KeyForm OfMenu(Attribute attribute, PathKind kind) {
  return {true, attribute.Suffix, false, {}, {kind, false, attribute.Label}};
}

constexpr KeyForm OfElement(QStringView group, Attribute attribute, PathKind kind) {
  return {true, group, true, attribute.Suffix, {kind, false, attribute.Label}};
}

constexpr KeyForm OfMask(QStringView group, QStringView suffix) {
  return {true, group, true, suffix, {PathKind::Mask, true}};
}

constexpr KeyForm OfFilm(QStringView start, QStringView label, PathKind kind) {
  return {false, start, true, {}, {kind, false, label}};
}

constexpr KeyForm OfAudioTitle(Attribute attribute, PathKind kind) {
  return {false, film_node::AudioTitles.Suffix, true, attribute.Suffix, {kind, false, attribute.Label}};
}

constexpr QStringView kShortMask = u"Gif";  ///< the mask's file in projects of other makers

const std::array kForms{
    OfMenu(menu_node::BackgroundPath, PathKind::Background),
    OfMenu(menu_node::BackgroundAudio, PathKind::Sound),
    OfMenu(menu_node::BackgroundAnimation, PathKind::Other),
    OfElement(menu_node::Images.Suffix, element_node::File, PathKind::Other),
    OfElement(menu_node::Animations.Suffix, {u"", u"Ani="}, PathKind::Animation),
    OfElement(menu_node::Animations.Suffix, element_node::Image, PathKind::Picture),
    OfMask(menu_node::Buttons.Suffix, element_node::MaskFile.Suffix),
    OfMask(menu_node::Images.Suffix, element_node::MaskFile.Suffix),
    OfMask(menu_node::Animations.Suffix, element_node::MaskFile.Suffix),
    OfMask(menu_node::Buttons.Suffix, kShortMask),
    OfMask(menu_node::Images.Suffix, kShortMask),
    OfMask(menu_node::Animations.Suffix, kShortMask),
    OfFilm(film_node::Video.Suffix, film_node::Video.Label, PathKind::Video),
    OfFilm(u"FP1A", u"Audio1=", PathKind::Sound),
    OfFilm(u"FP2A", u"Audio2=", PathKind::Sound),
    OfFilm(u"FP3A", u"Audio3=", PathKind::Sound),
    OfFilm(u"FP1S", u"SubTitel1=", PathKind::Subtitle),
    OfFilm(u"FP2S", u"SubTitel2=", PathKind::Subtitle),
    OfFilm(u"FP3S", u"SubTitel3=", PathKind::Subtitle),
    OfAudioTitle(audio_title_node::File, PathKind::Other),
    OfAudioTitle(audio_title_node::Image, PathKind::Picture),
    KeyForm{false, kIntroFileKey, false, {}, {}},
    KeyForm{false, kIntroAudioKey, false, {}, {}},
};

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

/// What stands behind the menu's key; "" for a key of no menu.
QStringView BehindMenu(QStringView key) {
  if (!key.startsWith(u"MM") && !key.startsWith(u"TS") && !key.startsWith(u"SM")) return {};
  qsizetype end = 2;
  while (end < key.size() && IsDigit(key[end])) ++end;
  return key.sliced(end);
}

bool Fits(const KeyForm& form, QStringView text) {
  if (!text.startsWith(form.start) || !text.endsWith(form.end)) return false;
  const qsizetype length = text.size() - form.start.size() - form.end.size();
  if (!form.numbered) return length == 0;
  return length > 0 &&
         std::ranges::all_of(text.sliced(form.start.size(), length), [](QChar c) { return IsDigit(c) || c == u'#'; });
}

}  // namespace

const PathPlace* PathPlaceOf(const ProjectNode& node) {
  const QStringView key = node.Key();
  const QStringView inMenu = BehindMenu(key);
  const auto form = std::ranges::find_if(
      kForms, [&](const KeyForm& candidate) { return Fits(candidate, candidate.inMenu ? inMenu : key); });
  return form == kForms.end() ? nullptr : &form->place;
}

QString PathIn(const ProjectNode& node, const PathPlace& place) {
  return place.inTag ? node.Tag() : node.Value(place.label.size());
}

}  // namespace torvane
