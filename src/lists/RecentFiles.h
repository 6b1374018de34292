#pragma once

#include <cstddef>

namespace tavrix {

class MainViewFrm;

/// Opens a recent file; mnuLast1 to mnuLast7 are the indices 0 to 6.
void mnuLast_Click(MainViewFrm& view, std::size_t index);

}  // namespace tavrix
