#pragma once

#include <string>

#include "platform/forms/Boxes.h"

namespace tavrix {

class MainViewFrm;

/// What a failed open says: the caller's text, the error's description, three points.
struct OpenFailure {
    std::string text;
    std::string title = "Tavrix";
};

/// Loads an image into the main view. On a failure the user is told, and the view is left without an image: the
/// picture that was on show is gone.
void LoadIntoMainView(MainViewFrm& view, const std::string& path, const OpenFailure& failure);

void mnuReloadImage_Click(MainViewFrm& view);
void mnuClear_Click(MainViewFrm& view);

}  // namespace tavrix
