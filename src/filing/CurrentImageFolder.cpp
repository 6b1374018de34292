#include "filing/CurrentImageFolder.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"

namespace tavrix {

bool ImageHasItsFolder(const MainModule& module) {
    return !module.CurrentImage.empty() && module.CurrentImage != GetTempFolder(module) + "Untitled.BMP";
}

void GoToFolderOfImage(const MainModule& module, FolderLists& lists) {
    if (ImageHasItsFolder(module)) SkipFailure([&] { lists.GoTo(FolderOf(module.CurrentImage)); });
}

int RowOfFile(const forms::FileListBox& files, const std::string& name) {
    for (int row = 0; row < files.ListCount(); ++row) {
        if (files.List(row) == name) return row;
    }
    return files.IndexOf(name);
}

}  // namespace tavrix
