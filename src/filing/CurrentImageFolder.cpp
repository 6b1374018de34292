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

void SelectImageOnShow(const MainModule& module, forms::FileListBox& files) {
    if (files.ListCount() == 0) return;
    const int row = RowOfFile(files, FileNameOf(module.CurrentImage));
    files.ListIndex = row >= 0 ? row : 0;
    if (row >= 0) files.Select(row);
}

bool IsImageOnShow(const MainModule& module, const std::string& path) {
    const std::string& current = module.CurrentImage;
    if (current.empty()) return false;
    Files& files = module.platform.files;
    if (path == current || files.Same(path, current)) return true;
    return EqualIgnoringCase(path, current) && !(files.HasExactly(path) && files.HasExactly(current));
}

}  // namespace tavrix
