#pragma once

#include <string>

#include "platform/forms/Form.h"
#include "viewer/OtherSubsystems.h"

namespace tavrix {

class MainViewFrm;

/// Opens a file that was found in the main view, and closes the dialog that found it. A failure has the dialog's title.
void OpenFound(forms::Form& dialog, MainViewFrm& view, const OtherSubsystems& others, const std::string& path,
               const std::string& title);

/// Whether the file of a list is the image on show, by whatever path, which the user is told then: it is not to be deleted.
[[nodiscard]] bool IsOpen(const MainViewFrm& view, const std::string& path);

}  // namespace tavrix
