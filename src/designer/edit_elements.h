#pragma once

#include "designer/edit_context.h"

namespace torvane {

// Adding, deleting and moving the elements of a menu. Each operation answers whether it was done; what stops it has
// been shown.

/// A button without a purpose of its own; the user gives it an action.
bool AddFreeButton(EditContext& context, const QString& text, const QString& action, const ElementPlace& place);

/// The one button of the main menu that plays all titles.
bool AddPlayAllButton(EditContext& context, const ElementPlace& place);

/// Chapters of a titleset's film, or titles of its audio titleset.
int ChapterCount(const Project& project, int titleSet);

/// Text of the button of a chapter: the settings choose the word and whether number and time follow.
QString ChapterButtonText(const Project& project, int chapter, const QString& time);

/// The picture of a chapter behind its button: the chapter editor's clip from `OutDir` with animated menus, its still
/// picture otherwise. A chapter that has neither gets none.
enum class ChapterPicture { None, FromEditor };

/// A button for a chapter of a titleset's film, or a title of its audio titleset, counted from 1. `place.menu` is a
/// menu of the titleset.
bool AddChapterButton(EditContext& context, int chapter, const ElementPlace& place,
                      ChapterPicture picture = ChapterPicture::None);

/// Adds buttons for chapters in the places of a grid, rows from the top, until either runs out or the menu is full,
/// which is told. One step of undo. False when none was added: for a text that is no grid (GridLayoutFaults), or a
/// button that would pass the right margin or the lower edge (message 682).
bool AddChapterGrid(EditContext& context, const std::vector<int>& chapters, const QString& gridLayout,
                    const ElementPlace& place, ChapterPicture picture = ChapterPicture::None);

bool AddLabel(EditContext& context, const QString& text, const ElementPlace& place);
bool AddImage(EditContext& context, const QString& path, const ElementPlace& place);
bool AddAnimation(EditContext& context, const NewAnimation& animation, const ElementPlace& place);
/// Gives a menu the Back button that it lacks.
bool AddMissingBackButton(EditContext& context, const QString& menu);

/// Deletes what a head node names: a film with all that belongs to it ("F3", "FP3", its button), a submenu by its list
/// entry ("MMM2"), a playlist by its last button, or an element of a menu. Refused for a Back button (message 176) and
/// the animation of a film (177); false for anything else.
bool DeleteNode(EditContext& context, const QString& key);

enum class ElementGroup { All, Animations, Images, Labels, ChapterButtons, FreeButtons };
/// Deletes a whole group of a menu. Animations of film buttons stay; `All` takes neither film nor menu buttons.
bool DeleteGroup(EditContext& context, const QString& menu, ElementGroup group);

/// Moves an element to the place of a sibling: in front of it when it moves up, behind it when it moves down. The Back
/// button stays last.
bool MoveElement(EditContext& context, const QString& key, const QString& target);

}  // namespace torvane
