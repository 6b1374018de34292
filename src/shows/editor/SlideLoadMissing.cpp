// Slides whose files are gone.

#include "core/NumberText.h"
#include "shows/editor/Breather.h"
#include "shows/editor/SlideLoadFrm.h"

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

}  // namespace tavrix
