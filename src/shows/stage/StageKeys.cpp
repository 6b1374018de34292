// What the keys and the mouse do on the stage.

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/Rounding.h"
#include "base/Text.h"
#include "platform/forms/Application.h"
#include "shows/stage/FullViewFrm.h"
#include "shows/stage/SlideRemoval.h"
#include "shows/stage/frmToolbar.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
using forms::Answer;
using forms::BoxButtons;
using forms::BoxIcon;

constexpr int KeyP = 'P';
constexpr int Numpad2 = KeyCode::Numpad0 + 2;
constexpr int Numpad4 = KeyCode::Numpad0 + 4;
constexpr int Numpad6 = KeyCode::Numpad0 + 6;
constexpr int Numpad8 = KeyCode::Numpad0 + 8;
constexpr int Page = 5;  ///< slides

bool StepsForwards(int keyCode) {
    return keyCode == Numpad2 || keyCode == Numpad6 || keyCode == KeyCode::Space ||
           keyCode == KeyCode::Right || keyCode == KeyCode::Down;
}

bool StepsBackwards(int keyCode) {
    return keyCode == Numpad8 || keyCode == Numpad4 || keyCode == KeyCode::Back || keyCode == KeyCode::Up ||
           keyCode == KeyCode::Left;
}

bool Navigates(int keyCode) {
    return StepsForwards(keyCode) || StepsBackwards(keyCode) || keyCode == KeyCode::Home ||
           keyCode == KeyCode::End || keyCode == KeyCode::PageDown || keyCode == KeyCode::PageUp;
}

}  // namespace

void FullViewFrm::Form_KeyDown(int& keyCode, int) {
    const HandlerScope scope(*this);
    const int code = std::exchange(keyCode, 0);
    if (module_.Busy() || Unloaded()) return;
    if (InShow() && Navigates(code)) {
        Navigate(code);
    } else if (Editable() && code == KeyCode::Delete) {
        RemoveSlide();
    } else if (Editable() && (code == KeyP || code == KeyCode::Pause)) {
        Pause();
    } else {
        FormUnload();
    }
}

int FullViewFrm::LastSlideLess1() const {
    return module_.show.SlideFiles.FirstEmpty() - 2;
}

void FullViewFrm::Navigate(int keyCode) {
    if (module_.show.SlideFiles[1].empty()) return;  // nowhere to go
    if (StepsBackwards(keyCode)) {
        CurrentSlide -= 2;
        if (CurrentSlide < -1) CurrentSlide = LastSlideLess1();
    } else if (keyCode == KeyCode::Home) {
        CurrentSlide = -1;
    } else if (keyCode == KeyCode::End) {
        CurrentSlide = LastSlideLess1();
    } else if (keyCode == KeyCode::PageDown) {
        CurrentSlide += Page - 1;
    } else if (keyCode == KeyCode::PageUp) {
        CurrentSlide = CurrentSlide == 0 ? LastSlideLess1() : std::max(CurrentSlide - Page - 1, -1);
    }
    SlideTimer_Timer();
}

void FullViewFrm::Pause() {
    if (SlideTimer.Interval >= 1) {
        SlideTimer.Enabled = !SlideTimer.Enabled;
        App().GetToolkit().Beep();
        return;
    }
    ShowPointer();
    App().MessageBox({.text = "Pause key has been disabled." + std::string(NewLine2) +
                              "Slide Show Timer is currently not in use..."});
}

void FullViewFrm::RemoveSlide() {
    SlideTimer.Enabled = false;
    ShowPointer();
    const std::string path = CurrentPath();
    const Answer answer = App().MessageBox(
        {.text = "Remove the picture:" + std::string(NewLine2) + path + std::string(NewLine2) +
                 "...from the slide show?" + std::string(NewLine) + "(Note: Image file will NOT be deleted.)",
         .icon = BoxIcon::Question,
         .buttons = BoxButtons::YesNo});
    module_.DoEvents();
    if (Unloaded()) return;
    if (answer == Answer::Yes) {
        forms::BusyGuard guard(module_.Screen());
        module_.DoEvents();
        if (Unloaded()) return;
        if (module_.show.Count() == 1) {
            App().MessageBox({.text = "You may not remove the last picture from the slide show..."});
        } else {
            RemoveSlides(module_, path);
            --CurrentSlide;
            guard.Release();
            SlideTimer_Timer();
        }
    }
    if (!Unloaded()) SlideTimer.Enabled = true;
}

void FullViewFrm::ShowPointer() {
    MousePointer = forms::MousePointer::Default;
    Image1.MousePointer = forms::MousePointer::Custom;
}

void FullViewFrm::HidePointer() {
    MousePointer = forms::MousePointer::Hidden;
    Image1.MousePointer = forms::MousePointer::Hidden;
}

void FullViewFrm::Form_MouseMove(const forms::MouseArguments&) {
    if (InShow() && module_.config.ShowToolbar) {
        if (auto* toolbar = App().Loaded<frmToolbar>()) toolbar->HideHints();
    }
    if (role_.saver) {
        if (!SlideChanging) CountMove();
    } else if (Image1.Visible) {
        ShowPointer();
    }
}

void FullViewFrm::CountMove() {
    constexpr double memory = 5;  ///< seconds
    const HandlerScope scope(*this);
    if (MouseMoveCount > module_.config.MouseSensitivity) {
        FormUnload();
        if (Unloaded()) return;
    } else {
        ++MouseMoveCount;
    }
    const double now = std::chrono::duration<double>(App().GetToolkit().Now()).count();
    if (!FirstMoveTime) {
        FirstMoveTime = RoundToLong(now);
    } else if (now - *FirstMoveTime > memory) {
        FirstMoveTime.reset();
        MouseMoveCount = 0;
    }
}

void FullViewFrm::Form_MouseUp(const forms::MouseArguments& mouse) {
    Image1_MouseUp(mouse);
}

void FullViewFrm::Image1_MouseUp(const forms::MouseArguments& mouse) {
    if (mouse.button == forms::MouseButton::Right && InShow()) {
        SlideTimer_Timer();
    } else {
        FormUnload();
    }
}

void FullViewFrm::TimerMouse_Timer() {
    if (InShow() && module_.config.ShowToolbar) {
        const auto* toolbar = App().Loaded<frmToolbar>();
        if (toolbar != nullptr && toolbar->HoldsPointer()) return;
    }
    HidePointer();
}

}  // namespace tavrix
