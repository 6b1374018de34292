#include "filing/FileDrag.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/forms/Application.h"

namespace tavrix {
namespace {

/// A sheet of paper, as large on every screen.
Picture SheetPicture(float twipsPerPixel) {
    constexpr int Width = 13;
    constexpr int Height = 16;
    constexpr Pixel Ink = OpaquePixel(0x30, 0x30, 0x38);
    constexpr Pixel Paper = OpaquePixel(0xFF, 0xFF, 0xFF);
    const int scale = std::max(static_cast<int>(std::lround(15 / twipsPerPixel)), 1);
    Surface surface(Width * scale, Height * scale);
    for (int y = 0; y < surface.Height(); ++y) {
        for (int x = 0; x < surface.Width(); ++x) {
            const int column = x / scale;
            const int row = y / scale;
            const bool edge = column == 0 || row == 0 || column == Width - 1 || row == Height - 1;
            const bool line = row >= 4 && row % 3 == 1 && column >= 3 && column <= Width - 4;
            surface.Row(y)[static_cast<std::size_t>(x)] = edge || line ? Ink : Paper;
        }
    }
    return PictureOf(std::move(surface));
}

}  // namespace

FileDrag::FileDrag(forms::FileListBox& files, forms::DirListBox& target, std::function<void()> transfer)
    : files_(files), transfer_(std::move(transfer)) {
    const forms::ScreenInfo screen = files.OwnerForm().App().Screen().Info();
    files_.MouseIcon = forms::PointerPicture{SheetPicture(screen.twipsPerPixelX), 0, 0};
    files_.OnDragStart = [this](const forms::MouseArguments& mouse) { File1_DragStart(mouse); };
    target.OnDragDrop = [this](const forms::DragArguments& drag) { Dir2_DragDrop(drag); };
}

void FileDrag::File1_DragStart(const forms::MouseArguments& mouse) {
    const bool drags = mouse.shift == forms::ShiftMask::Shift || mouse.shift == forms::ShiftMask::Ctrl ||
                       mouse.shift == forms::ShiftMask::Alt;
    if (!drags || files_.ListCount() == 0) return;
    if (files_.ListIndex >= 0) files_.Select(files_.ListIndex);
    kind_ = mouse.shift == forms::ShiftMask::Shift  ? Kind::Current
            : mouse.shift == forms::ShiftMask::Ctrl ? Kind::Selected
                                                    : Kind::All;
    files_.DragIcon = kind_ == Kind::All ? Picture() : files_.MouseIcon.Get().picture;
    files_.Drag();
}

void FileDrag::Dir2_DragDrop(const forms::DragArguments& drag) {
    if (&drag.source != &files_) return;
    if (kind_ == Kind::Current) {
        if (files_.ListIndex < 0) return;
        files_.SelectNone();
        files_.Select(files_.ListIndex);
    }
    if (kind_ == Kind::All) files_.SelectAll();
    transfer_();
}

}  // namespace tavrix
