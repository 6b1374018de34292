#pragma once

namespace tavrix {

class MainViewFrm;

/// Gives the main view's menu what handles the files of shows.
void InstallShowLibrary(MainViewFrm& view);

}  // namespace tavrix
