#pragma once

#include <string>

#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

/// Reads the command line into the main view that is being loaded: an image to show, or a word for a dialog; without
/// either perhaps the image of the last time.
void ReadCommandText(MainViewFrm& view);

/// Says that this version lacks what was asked for.
void TellNotYet(forms::Application& app, const std::string& caption);

}  // namespace tavrix
