#pragma once

#include <cstddef>

#include "viewer/OtherSubsystems.h"

namespace tavrix {

class MainViewFrm;

/// Puts the image on show into the first free slot of the favorite files.
void mnuFavoritesAdd_Click(MainViewFrm& view);
/// Empties the list, if the user agrees.
void mnuFavoritesClear_Click(MainViewFrm& view);
/// Opens a favorite file; `index` is its slot. The recent files stay as they are.
void mnuFavoritesList_Click(MainViewFrm& view, std::size_t index);
/// Plays the favorite files as a show.
void mnuViewFavorites_Click(MainViewFrm& view);
/// Lets the user save them as one.
void mnuSaveFavoritesAsShow_Click(MainViewFrm& view, const OtherSubsystems& others);

}  // namespace tavrix
