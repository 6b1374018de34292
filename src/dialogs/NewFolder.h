#pragma once

#include "core/MainModule.h"
#include "dialogs/FolderLists.h"

namespace tavrix {

/// The New Folder button of a dialog: asks for a name until it is one or the user gives up, makes the folder in the
/// folder of the folder list, and moves the list there.
void CmdNewFolder_Click(const MainModule& module, FolderLists& lists);

}  // namespace tavrix
