// The order of the View List.

#include <algorithm>

#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/SlideOrder.h"

namespace tavrix {

/// What is told where a slide cannot be moved.
struct SlideLoadFrm::MoveWords {
    const char* empty;
    const char* oneRow;
    const char* noCurrent;
    const char* there;
};

void SlideLoadFrm::mnuMoveFileUp_Click() {
    static constexpr MoveWords words{
        "There is nothing in the View List, unable to move file up...",
        "There is only one item in the View List, unable to move file up...",
        "Select the image to move up and try again...",
        "The selected file is already at top of View List, unable to move file up..."};
    if (CanMove(words, 0)) MoveCurrentTo(ListView.ListIndex - 1);
}

void SlideLoadFrm::mnuMoveFileDown_Click() {
    static constexpr MoveWords words{
        "There is nothing in the View List, unable to move file down...",
        "There is only one item in the View List, unable to move file down...",
        "Select the image to move down and try again...",
        "The selected file is already at bottom of View List, unable to move file down..."};
    if (CanMove(words, ListView.ListCount() - 1)) MoveCurrentTo(ListView.ListIndex + 1);
}

void SlideLoadFrm::mnuMoveToTop_Click() {
    static constexpr MoveWords words{
        "There is nothing in the View List, unable to move file to the top...",
        "There is only one item in the View List, file is already at the top...",
        "Select the image to move to the top and try again...",
        "The selected file is already at top of View List, unable to move file..."};
    if (CanMove(words, 0)) MoveCurrentTo(0);
}

void SlideLoadFrm::mnuMoveToBottom_Click() {
    static constexpr MoveWords words{
        "There is nothing in the View List, unable to move file to the bottom...",
        "There is only one item in the View List, file is already at the bottom...",
        "Select the image to move to the bottom and try again...",
        "The selected file is already at bottom of View List, unable to move file..."};
    if (CanMove(words, ListView.ListCount() - 1)) MoveCurrentTo(ListView.ListCount() - 1);
}

bool SlideLoadFrm::CanMove(const MoveWords& words, int end) const {
    const char* refusal = nullptr;
    if (ListView.ListCount() == 0) {
        refusal = words.empty;
    } else if (ListView.ListCount() == 1) {
        refusal = words.oneRow;
    } else if (ListView.ListIndex < 0) {
        refusal = words.noCurrent;
    } else if (ListView.ListIndex == end) {
        refusal = words.there;
    }
    if (refusal != nullptr) Tell(refusal);
    return refusal == nullptr;
}

void SlideLoadFrm::MoveCurrentTo(int row) {
    ArrangeSlides(MoveOrder(ListView.ListCount(), ListView.ListIndex, row));
    // Another order does not scroll the list; the slide is to be seen where it is now.
    ListView.ListIndex = -1;
    ListView.ListIndex = row;
}

void SlideLoadFrm::mnuReverseOrder_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There is nothing in the View List, unable to reverse the order of images...");
    } else if (ListView.ListCount() == 1) {
        Tell("There is only one item in the View List, no need to reverse the order of images...");
    } else {
        ArrangeSlides(ReverseOrder(ListView.ListCount()));
    }
}

void SlideLoadFrm::mnuRandomizeOrder_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There is nothing in the View List, unable to randomize files...");
    } else if (ListView.ListCount() == 1) {
        Tell("There is only one item in the View List, unable to randomize files...");
    } else {
        ArrangeSlides(RandomOrder(ListView.ListCount(), module_.random));
    }
}

void SlideLoadFrm::ArrangeSlides(const std::vector<int>& order) {
    if (std::ranges::is_sorted(order)) return;  // nothing moves
    module_.show.ArrangeSlides(order);
    ListView.Reorder(order);
    ShowCount();
    module_.show.ShowChanged = true;
}

}  // namespace tavrix
