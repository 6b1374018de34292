// What the editor does with the files of the source list, and with folders.

#include <algorithm>
#include <set>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/FileServices.h"
#include "core/RecentLists.h"
#include "dialogs/ExploreFolder.h"
#include "dialogs/RenameFile.h"
#include "shows/Breather.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/frmSlideCopyImages.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

bool IsOpen(const MainModule& module, const std::string& path) {
    return !module.CurrentImage.empty() && (EqualIgnoringCase(path, module.CurrentImage) ||
                                            module.platform.files.Same(path, module.CurrentImage));
}

}  // namespace

bool SlideLoadFrm::MayDelete(const std::vector<std::string>& paths) const {
    std::set<std::string> slides;
    for (int row = 0; row < ListView.ListCount(); ++row)
        slides.insert(UpperCase(SlidePath(row)));
    for (const std::string& path : paths) {
        if (IsOpen(module_, path)) {
            Tell("Unable to delete this file, image is currently open...");
            return false;
        }
        if (slides.contains(UpperCase(path))) {
            Tell("Unable to delete this file, image is in the currently open slide show." + Paragraph +
                 "Remove this file from the View List and then try again...");
            return false;
        }
    }
    return true;
}

void SlideLoadFrm::mnuDeleteFile_Click() {
    const std::vector<std::string> paths = SelectedSources();
    if (paths.empty()) {
        Tell("Unable to delete file(s) by pressing the delete key, nothing is selected in the file list...");
        return;
    }
    if (!MayDelete(paths)) return;
    if (paths.size() == 1) {
        if (DeleteAsUserAgrees(module_, paths.front())) RemoveRecentFile(module_, paths.front());
    } else {
        if (!Ask("You are about to delete " + Count(static_cast<std::int64_t>(paths.size())) +
                 " files from the directory:" + Paragraph + SourceFolder() + Paragraph + "Are you sure?"))
            return;
        const forms::BusyGuard busy(module_.Screen());
        Breather breather(module_);
        try {
            for (const std::string& path : paths) {
                breather.Breathe();
                RequireExactly(module_, path);
                DeleteToBin(module_, path, false);
                RemoveRecentFile(module_, path);
            }
        } catch (const RuntimeError& error) {
            TellFailure(module_, "Unable to delete all of the selected files.", error);
        }
    }
    Lists.RefreshFiles();
}

void SlideLoadFrm::mnuRenameFile_Click() {
    const std::string title = "Tavrix - [Rename Image]";
    const int row = FirstSelectedSource();
    if (row < 0) {
        Tell(File1.ListCount() == 0 ? "There are no files in the selected directory to rename..."
                                    : "A file has not been selected, nothing to rename...",
             title);
        return;
    }
    const std::string folder = SourceFolder();
    const std::string name = File1.List(row);
    if (IsOpen(module_, folder + name)) {
        Tell("Unable to rename selected file, image is currently open...", title);
        return;
    }
    const std::optional<std::string> path = RenameFile(
        module_, folder + name, {.title = title, .failure = "Unable to rename selected file to: "});
    if (!path) return;
    const std::string newName = FileNameOf(*path);
    view_.imageOnShow.Moved(folder + name, *path);
    Lists.RefreshFiles();
    Lists.WhenRead([this, newName] {
        const int found = File1.IndexOf(newName);
        if (found < 0) return;
        File1.ListIndex = found;
        File1.SetSelection({found, found + 1});
    });
    const auto renamed = [&newName](const std::string& slide) { return FolderOf(slide) + newName; };
    if (ChangeRowsOf(folder + name, renamed)) {
        Tell(
            "The old filename was in the current slide show, the entry for this slide was updated as a "
            "result...",
            title);
    }
}

bool SlideLoadFrm::ChangeRowsOf(const std::string& path,
                                const std::function<std::string(const std::string& row)>& change) {
    bool any = false;
    for (int row = 0; row < ListView.ListCount(); ++row) {
        if (!EqualIgnoringCase(SlidePath(row), path)) continue;
        const std::string changed = change(ListView.List(row));
        module_.show.SlideFiles.Set(row, changed);
        ListView.SetList(row, changed);
        any = true;
    }
    if (any) module_.show.ShowChanged = true;
    return any;
}

void SlideLoadFrm::TransferFiles(bool move) {
    const std::string word = move ? "move" : "copy";
    if (File1.ListCount() == 0) {
        Tell("There are no files in the source directory, nothing to " + word + "...");
        return;
    }
    if (File1.SelectedCount() == 0) {
        Tell("No source files are selected, nothing to " + word + "...");
        return;
    }
    frmSlideCopyImages::Sources sources{.folder = SourceFolder(), .names = {}, .move = move};
    for (const std::string& path : SelectedSources())
        sources.names.push_back(FileNameOf(path));
    const auto moved = [this](const std::string& from, const std::string& to) {
        return ChangeRowsOf(from, [&to](const std::string&) { return to; });
    };
    ShowDialog<frmSlideCopyImages>(
        view_, std::move(sources),
        frmSlideCopyImages::Editor{.Moved = moved, .RefreshSources = [this] { Lists.RefreshFiles(); }});
}

void SlideLoadFrm::mnuExploreFolder_Click() {
    ExploreFolder(module_, SourceFolder());
}

void SlideLoadFrm::mnuExploreShowFolder_Click() {
    if (HasFile()) {
        ExploreFolder(module_, folder_.Path());
    } else {
        Tell("The current slide show has not been saved, no folder to browse...");
    }
}

void SlideLoadFrm::mnuExploreSlideFolder_Click() {
    if (ListView.ListCount() == 0 && !HasFile()) {
        Tell("There are no slides in the View List, unable to browse image folder...");
    } else if (ListView.ListCount() == 0) {
        Tell(
            "There are no slides in the View List, will attempt to browse the slide show's folder "
            "instead...");
        ExploreFolder(module_, folder_.Path());
    } else if (ListView.ListIndex < 0) {
        Tell("Select an image in the slide show to browse its folder and then try again...");
    } else {
        ExploreFolder(module_, FolderOf(SlidePath(ListView.ListIndex)));
    }
}

}  // namespace tavrix
