#pragma once

#include <string>
#include <vector>

namespace tavrix {

class MainViewFrm;

/// Files were dropped on the main view: the first of them is opened.
void MainImage_OLEDragDrop(MainViewFrm& view, const std::vector<std::string>& files);

}  // namespace tavrix
