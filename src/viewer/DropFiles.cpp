#include "viewer/DropFiles.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "core/UnsavedImage.h"
#include "viewer/ImageTypes.h"
#include "viewer/MainViewFrm.h"
#include "viewer/Opening.h"

namespace tavrix {
namespace {

void Tell(const MainViewFrm& view, const std::string& text) {
    view.App().MessageBox({.text = text});
}

void PlayDroppedShow(MainViewFrm& view, const std::string& path) {
    MainModule& module = view.Module();
    const Lives& lives = view.TheLives();
    lives.EndStage();
    {
        const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
        if (!lives.LoadShowFile(path)) {
            Tell(view, "This slide show file does not contain any images, nothing to show...");
            return;
        }
    }
    SkipFailure([&] { ChangeToFolderOf(module, path); });
    module.SlideShowActive = true;
    module.StartedAsShow = true;
    // The stage outlives this handler, and puts the main view back when it ends.
    if (module.config.TopMostWindow) view.SetTopmost(false);
    lives.ShowStage();
}

}  // namespace

void MainImage_OLEDragDrop(MainViewFrm& view, const std::vector<std::string>& files) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    std::string path = files.empty() ? "" : files.front();
    if (EndsInIgnoringCase(path, ".LNK")) path = ResolveLink(module, path);
    if (path.ends_with('\\')) path.pop_back();
    const bool folder = !path.empty() && module.platform.files.FolderExists(path);
    if (EndsInIgnoringCase(path, ".TVS") && !folder) {
        PlayDroppedShow(view, path);
        return;
    }
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (path.empty()) {
        Tell(view,
             "An unexpected error occurred while getting filename that was dropped here, unable to open "
             "file...");
        return;
    }
    if (folder) {
        Tell(view, "You may not drop a folder here, unable to open...");
        return;
    }
    if (IsImportOnly(path)) {
        Tell(view, ImportFirstText(path));
        return;
    }
    if (!ConfirmDiscard(module)) return;
    busy.Release();
    LoadIntoMainView(
        view, path,
        {"Unable to display image, an unexpected error occurred during the drag and drop operation.",
         "Tavrix - [Drag & Drop Error]"});
}

}  // namespace tavrix
