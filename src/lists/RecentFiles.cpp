#include "lists/RecentFiles.h"

#include <string>

#include "base/Text.h"
#include "core/FloppyPrompt.h"
#include "core/RecentLists.h"
#include "core/UnsavedImage.h"
#include "viewer/MainViewFrm.h"
#include "viewer/Opening.h"

namespace tavrix {

namespace {

/// A file on a drive that cannot be read may be there still.
bool DriveIsReady(const MainModule& module, const std::string& path) {
    return module.platform.files.FolderExists(Left(path, 3));
}

}  // namespace

void mnuLast_Click(MainViewFrm& view, std::size_t index) {
    MainModule& module = view.Module();
    if (module.Busy() || !ConfirmDiscard(module)) return;
    // A copy: the list may change while messages run.
    const std::string path = module.config.Recent.at(index);
    if (IsOnFloppy(path)) {
        const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
        if (!AsksForDisk(module, path, ImageOnFloppy)) return;
    }
    LoadIntoMainView(view, path, {"Unable to open the recent file:" + std::string(NewLine2) + path});
    // An entry may be spelled otherwise than its file, which is there all the same.
    const bool gone = DriveIsReady(module, path) && !module.platform.files.FileExists(path);
    if (module.CurrentImage.empty() && gone) RemoveRecentFile(module, path);
}

}  // namespace tavrix
