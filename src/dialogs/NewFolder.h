#pragma once

#include <string>

#include "core/MainModule.h"
#include "dialogs/FolderLists.h"

namespace tavrix {

/// In what the question for a new folder's name differs from dialog to dialog.
struct NewFolderWords {
    std::string title = "New Folder";
    std::string name;           ///< that is offered
    bool offersAnswer = false;  ///< a name that was refused is offered again
};

/// The New Folder button of a dialog: asks for a name until it is one or the user gives up, makes the folder in the
/// folder of the folder list, and moves the list there.
void CmdNewFolder_Click(const MainModule& module, FolderLists& lists, const NewFolderWords& words = {});

}  // namespace tavrix
