#pragma once

#include <string>

#include "core/MainModule.h"
#include "dialogs/FolderLists.h"
#include "platform/forms/FileListBox.h"

namespace tavrix {

/// Whether the image on show lies in a folder that the user chose: there is one, and it is not the working file in the
/// temporary folder.
[[nodiscard]] bool ImageHasItsFolder(const MainModule& module);

/// Sends lists to the folder of the image on show, as far as there is one that the user chose.
void GoToFolderOfImage(const MainModule& module, FolderLists& lists);

/// The row of a file's name, in any case where it is not there as it is spelled; -1 when there is none.
[[nodiscard]] int RowOfFile(const forms::FileListBox& files, const std::string& name);

/// Makes the image on show the current and selected row of a list, where it is there; else the first row is the current
/// one.
void SelectImageOnShow(const MainModule& module, forms::FileListBox& files);

/// Whether a path is that of the image on show, or leads to its file. Names that differ in case alone are one file,
/// unless both are there.
[[nodiscard]] bool IsImageOnShow(const MainModule& module, const std::string& path);

}  // namespace tavrix
