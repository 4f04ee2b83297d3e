#pragma once

#include "core/audio_title_set.h"
#include "core/film_record.h"
#include "core/play_list.h"
#include "designer/edit_context.h"

namespace torvane {

// Films, audio titlesets and playlists with their buttons. All go into a menu of the main family. Each operation
// answers whether it was done; a limit or a rule that stops it has been shown.

/// Whether a menu has room for a film's button and the project for the film: what can be said before the film is known.
bool CheckFilmPlace(EditContext& context, const ElementPlace& place);

/// Adds a film with its button, in titleset mode also its titleset menu with a Back button, and for an animated film
/// its animation.
bool AddFilm(EditContext& context, const FilmRecord& film, const ElementPlace& place);

/// The same for an audio titleset; without titlesets there is none (message 192).
bool CheckAudioTitleSetPlace(EditContext& context, const ElementPlace& place);
bool AddAudioTitleSet(EditContext& context, const AudioTitleStore& store, const ElementPlace& place);

/// Adds a playlist of an existing film with its button. MuxMan alone knows playlists. The number is chosen here.
bool AddPlayList(EditContext& context, PlayList playList, const ElementPlace& place);

/// Brings an existing film in line with the record, and its animation with the film.
bool EditFilm(EditContext& context, int film, const FilmRecord& record);
bool EditAudioTitleSet(EditContext& context, int film, const AudioTitleStore& store);
bool EditPlayList(EditContext& context, const PlayList& playList);

/// Deletes the last film with its buttons, animation, playlists and titleset menus, after asking. Message 149 for any
/// other film.
bool DeleteFilm(EditContext& context, int film);

/// The film that a button of a menu belongs to; 0 for none.
int FilmOfButton(const Project& project, const QString& menu, int button);

/// Keys of a menu's animations that belong to the button of an animated film.
QStringList FilmAnimations(const Project& project, const QString& menu);

}  // namespace torvane
