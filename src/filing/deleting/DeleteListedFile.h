#pragma once

#include <string>

#include "core/MainModule.h"
#include "platform/forms/FileListBox.h"

namespace tavrix {

/// Asks whether a file that was chosen in a list may go, deletes it, and takes it from the recent files. The image on show
/// is not deleted, and a failure is told in a box with this icon. False for the image on show alone: the list is as it
/// was.
bool DeleteListedFile(MainModule& module, const std::string& path, forms::BoxIcon failureIcon);

/// The Delete key in a list of files: deletes the file `name` of a folder likewise; without a name says that nothing is
/// selected, and gives false.
bool DeleteByKey(MainModule& module, const std::string& folder, const std::string& name,
                 forms::BoxIcon failureIcon);

/// The keys of a list of a folder's files that are to be carried somewhere: Delete deletes the current one. The list is
/// read again then; the first is to be the current one.
[[nodiscard]] bool DeletedByKey(MainModule& module, forms::FileListBox& files, const std::string& folder,
                                int keyCode);

}  // namespace tavrix
