#pragma once

namespace tavrix {

class MainViewFrm;

/// Says that the desktop's pattern cannot be brought in yet. What is on show becomes an image that has not been saved.
void mnuGetDesktopPattern_Click(MainViewFrm& view);

}  // namespace tavrix
