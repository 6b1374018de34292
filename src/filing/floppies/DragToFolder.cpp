#include "filing/floppies/DragToFolder.h"

#include <utility>

namespace tavrix {

DragToFolder::DragToFolder(forms::FileListBox& files, forms::DirListBox& target, std::function<void()> act)
    : files_(files), act_(std::move(act)) {
    files_.OnDragStart = [this](const forms::MouseArguments& mouse) { File1_DragStart(mouse); };
    target.OnDragDrop = [this](const forms::DragArguments& drag) { Dir2_DragDrop(drag); };
}

void DragToFolder::File1_DragStart(const forms::MouseArguments& mouse) {
    constexpr int Shift = 1;
    constexpr int Ctrl = 2;
    constexpr int Alt = 4;
    if (files_.ListCount() == 0 || (mouse.shift != Shift && mouse.shift != Ctrl && mouse.shift != Alt))
        return;
    const int current = files_.ListIndex;
    if (current >= 0 && !files_.Selected(current)) files_.Select(current);
    kind_ = mouse.shift == Shift ? Kind::Current : mouse.shift == Ctrl ? Kind::Selected : Kind::All;
    files_.Drag();
}

void DragToFolder::Dir2_DragDrop(const forms::DragArguments& drag) {
    if (&drag.source != &files_) return;
    const int current = files_.ListIndex;
    if (kind_ == Kind::Current) {
        if (current < 0) return;
        files_.SelectNone();
        files_.Select(current);
    }
    if (kind_ == Kind::All) files_.SelectAll();
    act_();
}

}  // namespace tavrix
