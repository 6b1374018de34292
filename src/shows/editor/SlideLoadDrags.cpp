// Drags of rows, and files that come from other programs.

#include <set>
#include <utility>

#include "base/Text.h"
#include "core/FileServices.h"
#include "core/ImageKinds.h"
#include "platform/services/DrivePath.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/SlideOrder.h"
#include "shows/library/ShowTarget.h"
#include "viewer/ImageTypes.h"

namespace tavrix {

void SlideLoadFrm::BeginDrag(forms::ListControl& list, const forms::MouseArguments& press) {
    if (module_.Busy() || press.row < 0) return;
    if (&list == &File1 && Lists.Pending()) return;  // its rows may be others when they are dropped
    draggedRow_ = press.row;
    switch (press.shift) {
        case forms::ShiftMask::Shift:
            dragged_ = Dragged::One;
            break;
        case forms::ShiftMask::Ctrl:
            dragged_ = Dragged::Selection;
            break;
        case forms::ShiftMask::Alt:
            dragged_ = Dragged::All;
            break;
        default:
            // A press on a row that is not selected has made it the only one.
            dragged_ =
                list.SelectedCount() > 1 && list.Selected(press.row) ? Dragged::Selection : Dragged::One;
            break;
    }
    // Several files go where the buttons put them.
    ListView.ShowsInsertionMark = &list == &ListView || dragged_ == Dragged::One;
    list.Drag();
}

void SlideLoadFrm::ListView_DragDrop(const forms::DragArguments& drop) {
    ListView.ShowsInsertionMark = false;
    if (module_.Busy()) return;
    const int row = drop.row < 0 ? ListView.ListCount() : drop.row;
    if (&drop.source == &File1) DropSources(row);
    if (&drop.source == &ListView) DropSlides(row);
}

void SlideLoadFrm::DropSources(int row) {
    if (dragged_ == Dragged::Selection) {
        CmdAdd_Click();
    } else if (dragged_ == Dragged::All) {
        CmdAddAll_Click();
    } else if (draggedRow_ < File1.ListCount()) {
        InsertSlides(row, {SourcePath(draggedRow_)});
    }
}

void SlideLoadFrm::DropSlides(int row) {
    const int count = ListView.ListCount();
    std::vector<int> slides;
    for (int i = 0; i < count; ++i) {
        const bool taken =
            dragged_ == Dragged::One ? i == draggedRow_ : dragged_ == Dragged::All || ListView.Selected(i);
        if (taken) slides.push_back(i);
    }
    ArrangeSlides(GatherOrder(count, slides, row));
}

void SlideLoadFrm::ListView_OLEDragDrop(const std::vector<std::string>& files) {
    if (module_.Busy()) return;
    Lists.Forget();
    std::vector<std::string> slides;
    std::set<std::string> refused;
    std::optional<bool> mayLoad;
    bool answered = false;  // the user has seen what became of the drop
    const auto append = [&] {
        if (slides.empty()) return;
        InsertSlides(ListView.ListCount(), std::exchange(slides, {}));
        answered = true;
    };
    for (const std::string& file : files) {
        std::string path = EndsInIgnoringCase(file, ".LNK") ? ResolveLink(module_, file) : file;
        path = NormalPath(path);
        if (module_.platform.files.FolderExists(path)) continue;
        if (EndsInIgnoringCase(path, ".TVS")) {
            if (!mayLoad) {
                mayLoad = !Unsaved() || Ask("The current slide show has changed." + std::string(NewLine2) +
                                            "Load slide show anyway?");
            }
            answered = true;
            if (!*mayLoad) continue;
            slides.clear();  // the load takes the place of what came before
            const forms::BusyGuard busy(module_.Screen());
            EditorTarget(module_, *this).Load(path);
        } else if (IsImportOnly(path)) {
            refused.insert(UpperCase(Right(path, 4)));
        } else if (ImageKindOf(path) != nullptr) {
            slides.push_back(path);
        }
    }
    append();
    for (const std::string& type : refused) {
        Tell(type + " files must be imported into Tavrix before they can be used in Slide Shows...");
        answered = true;
    }
    if (!answered) {
        Tell("No valid image files were dropped, unable to add these items to the View List...");
    }
}

}  // namespace tavrix
