#pragma once

namespace tavrix {

class MainViewFrm;

/// Puts what is selected on the clipboard, or the whole image. The selection stays.
void mnuCopy_Click(MainViewFrm& view);

}  // namespace tavrix
