#pragma once

#include <string>

#include "platform/forms/Application.h"

namespace tavrix {

/// Says that this version lacks what was asked for; a caption's ampersands are left out.
void TellNotYet(forms::Application& app, const std::string& caption);

}  // namespace tavrix
