#pragma once

namespace tavrix {

class MainViewFrm;

/// Makes what the whole screen shows without the main view the image on show.
void mnuCaptureDesktop_Click(MainViewFrm& view);

}  // namespace tavrix
