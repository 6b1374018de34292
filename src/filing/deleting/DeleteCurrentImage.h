#pragma once

namespace tavrix {

class MainViewFrm;

/// The Delete Current Image command.
void mnuDeleteCurrentImage_Click(MainViewFrm& view);

}  // namespace tavrix
