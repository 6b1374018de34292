#include "shows/library/ShowChooser.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "shows/library/ShowsFolder.h"

namespace tavrix {
namespace {

/// Goes to a folder that is there; without a word about one that is not.
bool GoTo(const MainModule& module, FileChooser& chooser, const std::string& folder) {
    if (folder.empty() || !module.platform.files.FolderExists(folder)) return false;
    SkipFailure([&] { chooser.Lists.GoTo(folder); });
    return true;
}

}  // namespace

void StartAtLastShow(const MainModule& module, FileChooser& chooser) {
    const std::string& last = module.config.LastSlideShow;
    const bool there = GoTo(module, chooser, FolderOf(last));
    if (!there) GoTo(module, chooser, ShowsFolder(module));
    chooser.Lists.WhenRead([&files = chooser.File1, name = there ? FileNameOf(last) : std::string()] {
        if (files.ListCount() == 0) return;
        const int row = name.empty() ? -1 : files.IndexOf(name);
        files.ListIndex = row >= 0 ? row : 0;
    });
}

}  // namespace tavrix
