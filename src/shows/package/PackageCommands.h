#pragma once

#include "platform/services/ProgramFiles.h"

namespace tavrix {

class MainViewFrm;

/// Gives the main view's menu what makes and deletes packages. The program's files are those that a package gets; null for
/// those of an installation (package::InstalledFiles). They outlive the view. Where there are neither, no package is offered.
void InstallPackageCommands(MainViewFrm& view, ProgramFiles* programFiles);

}  // namespace tavrix
