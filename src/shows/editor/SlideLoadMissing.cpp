// Slides whose files are gone, and slides that stand there more than once.

#include "core/NumberText.h"
#include "shows/Breather.h"
#include "shows/editor/SlideDuplicates.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/frmSlideDup.h"

namespace tavrix {

std::optional<forms::RowRanges> SlideLoadFrm::FindMissing(const std::string& title) {
    if (ListView.ListCount() == 0) {
        Tell("There are no images in the current slide show, unable to check for missing files...", title);
        return std::nullopt;
    }
    if (!Ask("Check current slide show to see if all files still exist?", title)) return std::nullopt;
    forms::RowRanges missing;
    {
        const forms::BusyGuard busy(module_.Screen());
        Breather breather(module_);
        for (int row = 0; row < ListView.ListCount(); ++row) {
            breather.Breathe();
            if (!module_.platform.files.FileExists(SlidePath(row))) missing.Add(row);
        }
    }
    if (!missing.Empty()) return missing;
    Tell("No missing slide show files were found...", title);
    return std::nullopt;
}

void SlideLoadFrm::mnuSelectMissing_Click() {
    const std::string title = "Tavrix - [Select Missing Slides]";
    const std::optional<forms::RowRanges> missing = FindMissing(title);
    if (!missing) return;
    ListView.SetSelection(*missing);
    Tell(missing->Count() == 1
             ? "One missing slide show file was found in the View List..."
             : Count(missing->Count()) + " missing slide show files were found in the View List...",
         title);
}

void SlideLoadFrm::mnuRemoveMissing_Click() {
    const std::string title = "Tavrix - [Remove Missing Slides]";
    const std::optional<forms::RowRanges> missing = FindMissing(title);
    if (!missing) return;
    RemoveSlides(*missing);
    Tell(missing->Count() == 1
             ? "One missing slide show file was removed from the View List..."
             : Count(missing->Count()) + " missing slide show files were removed from the View List...",
         title);
}

void SlideLoadFrm::mnuCheckDuplicate_Click() {
    const std::string title = "Tavrix - [Check For Duplicate Slides]";
    if (ListView.ListCount() == 0) {
        Tell("There is nothing in the View List, unable to check for duplicate slides...", title);
        return;
    }
    if (ListView.ListCount() == 1) {
        Tell("There is only one item in the View List, no need to check for duplicate slides...", title);
        return;
    }
    forms::BusyGuard busy(module_.Screen());
    module_.DoEvents();
    const std::vector<std::string> duplicates = DuplicateSlides(ListView.Texts(), folder_);
    if (duplicates.empty()) {
        busy.Release();
        Tell("No duplicate files were found in the current slide show...", title);
        return;
    }
    const auto select = [this](const std::vector<std::string>& paths) {
        forms::RowRanges rows;
        for (const int row : RowsOfSlides(paths, ListView.Texts(), folder_))
            rows.Add(row);
        ListView.SetSelection(rows);
    };
    auto& dialog = App().Load<frmSlideDup>(
        module_, duplicates, frmSlideDup::Editor{.ShowStage = [this] { ShowStage(); }, .SelectAll = select});
    busy.Release();
    dialog.ShowModal();
}

}  // namespace tavrix
