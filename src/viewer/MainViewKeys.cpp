#include <algorithm>

#include "viewer/MainViewFrm.h"

namespace tavrix {

namespace ShiftMask = forms::ShiftMask;
namespace KeyCode = forms::KeyCode;

void MainViewFrm::ScrollBarStep(forms::ScrollBar& bar, int delta) {
    bar.Value = std::clamp<int>(bar.Value + delta, bar.Min, bar.Max);
}

void MainViewFrm::ScrollByArrow(forms::ScrollBar& bar, int direction, int shift) {
    if (!bar.Visible) return;
    const int step = shift == ShiftMask::Ctrl ? bar.LargeChange : bar.SmallChange;
    ScrollBarStep(bar, direction * step);
}

void MainViewFrm::Form_KeyDown(int& keyCode, int shift) {
    const int key = keyCode;
    const bool alt = shift == ShiftMask::Alt;
    const bool shifted = shift == ShiftMask::Shift;
    const auto command = [&keyCode](forms::Menu& entry) {
        keyCode = 0;
        entry.Click();
    };
    const auto isDigit = [key](int digit) {
        return key == KeyCode::Digit0 + digit || key == KeyCode::Numpad0 + digit;
    };

    switch (key) {
        case KeyCode::Home:
            ScrollHome();
            return;
        case KeyCode::End:
            if (hsbPict.Visible) hsbPict.Value = hsbPict.Max;
            if (vsbPict.Visible) vsbPict.Value = vsbPict.Max;
            return;
        case KeyCode::PageUp:
            if (vsbPict.Visible) ScrollBarStep(vsbPict, -vsbPict.LargeChange);
            return;
        case KeyCode::PageDown:
            if (vsbPict.Visible) ScrollBarStep(vsbPict, vsbPict.LargeChange);
            return;
        case KeyCode::Up:
            if (alt) return command(menu.mnuArbitrary);
            return ScrollByArrow(vsbPict, -1, shift);
        case KeyCode::Down:
            if (alt) return command(menu.mnu180Degrees);
            return ScrollByArrow(vsbPict, 1, shift);
        case KeyCode::Left:
            if (alt) return command(menu.mnu90CCW);
            return ScrollByArrow(hsbPict, -1, shift);
        case KeyCode::Right:
            if (alt) return command(menu.mnu90CW);
            return ScrollByArrow(hsbPict, 1, shift);
        case KeyCode::Escape:
            return command(menu.mnuExit);
        case KeyCode::Tab:
            if (shift == ShiftMask::None && fullScreenCorner.StepByTab()) keyCode = 0;
            return;
        default:
            break;
    }
    if (key == KeyCode::Digit0 + 1 && shifted) return command(menu.mnuViewFavorites);
    if (key == KeyCode::Digit0 + 2 && shifted) return command(menu.mnuSaveFavoritesAsShow);
    if (isDigit(1)) return command(menu.mnu25Smaller);
    if (isDigit(2)) return command(menu.mnu25Larger);
    if (isDigit(3)) return command(menu.mnu50Smaller);
    if (isDigit(4)) return command(menu.mnu50Larger);
    if (isDigit(5)) return command(menu.mnuEditImageSize);
    if (isDigit(0)) return command(menu.mnuCrop);
}

}  // namespace tavrix
