#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "core/DesktopSettings.h"
#include "viewer/AutomaticSize.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

using forms::WindowState;

void MainViewFrm::Form_Resize() {
    if (WindowState.Get() == WindowState::Minimized) return;
    if (Width < MinWidth && Height < MinHeight) {
        SkipFailure([&] { Move(Left, Top, MinWidth, MinHeight); });
    } else if (Width < MinWidth) {
        SkipFailure([&] { Width = MinWidth; });
    } else if (Height < MinHeight) {
        SkipFailure([&] { Height = MinHeight; });
    }
    SkipFailure([&] { picFrame.Move(0, 0, ScaleWidth(), ScaleHeight()); });
    // The second pass takes account of the space that the bars took in the first.
    TakePlacesOfBars();
    TakePlacesOfBars();

    SkipFailure([&] { picFrame.Width = std::min<float>(picFrame.Width, MainImage.Width); });
    SkipFailure([&] { picFrame.Height = std::min<float>(picFrame.Height, MainImage.Height); });

    if (hsbPict.Visible) {
        SkipFailure([&] { hsbPict.Move(0, picFrame.Height, picFrame.Width, BarThickness); });
        SkipFailure([&] { hsbPict.Max = RoundToLong(MainImage.Width - picFrame.Width); });
        SkipFailure([&] { hsbPict.LargeChange = std::max(RoundToLong(picFrame.Width), 1); });
    } else {
        MainImage.Left = 0;
        hsbPict.Value = 0;
    }
    if (vsbPict.Visible) {
        SkipFailure([&] { vsbPict.Move(picFrame.Width, 0, BarThickness, picFrame.Height); });
        SkipFailure([&] { vsbPict.Max = RoundToLong(MainImage.Height - picFrame.Height); });
        SkipFailure([&] { vsbPict.LargeChange = std::max(RoundToLong(picFrame.Height), 1); });
    } else {
        MainImage.Top = 0;
        vsbPict.Value = 0;
    }
    PlaceFullScreenButton();
    module_.DoEvents();
    PictureTemp.SetFocus();
}

void MainViewFrm::TakePlacesOfBars() {
    vsbPict.Visible = MainImage.Height > picFrame.Height;
    hsbPict.Visible = MainImage.Width > picFrame.Width;
    if (vsbPict.Visible) SkipFailure([&] { picFrame.Width = ScaleWidth() - BarThickness; });
    if (hsbPict.Visible) {
        SkipFailure([&] { picFrame.Height = std::max(ScaleHeight() - BarThickness, 0.0F); });
    }
}

void MainViewFrm::PlaceFullScreenButton() {
    const bool onlyAcross = hsbPict.Visible && !vsbPict.Visible;
    const bool onlyDown = vsbPict.Visible && !hsbPict.Visible;
    const bool roomBeside = (!onlyAcross || ScaleHeight() < picFrame.ScaleHeight() + 2 * BarThickness) &&
                            (!onlyDown || ScaleWidth() < picFrame.ScaleWidth() + 2 * BarThickness);
    const float right = roomBeside ? ScaleWidth() : picFrame.ScaleWidth();
    const float bottom = roomBeside ? ScaleHeight() : picFrame.ScaleHeight();
    SkipFailure(
        [&] { CmdFullScreen.Move(right - BarThickness, bottom - BarThickness, BarThickness, BarThickness); });
    fullScreenCorner.Update();
}

bool MainViewFrm::SizesItself() const {
    return WindowState.Get() == WindowState::Normal && module_.config.AutosizeWindow;
}

void MainViewFrm::MainImage_Resize() {
    if (!SizesItself()) return;
    const forms::Screen& screen = module_.Screen();
    const WindowSize size = AutomaticSize({.imageWidth = MainImage.Width,
                                           .imageHeight = MainImage.Height,
                                           .frameWidth = static_cast<float>(module_.FrameWidth),
                                           .frameHeight = static_cast<float>(module_.FrameHeight),
                                           .chromeHeight = static_cast<float>(GetChromeHeight(module_)),
                                           .screenWidth = screen.Width(),
                                           .screenHeight = screen.Height(),
                                           .twipsPerPixelX = screen.TwipsPerPixelX(),
                                           .twipsPerPixelY = screen.TwipsPerPixelY()});
    // What the sizes above ask for may be more than the desktop leaves to windows.
    const forms::TwipRect area = screen.UsableArea();
    const forms::TwipRect place = KeptInside({area.left, area.top, size.width, size.height}, area);
    SkipFailure([&] { Move(place.left, place.top, place.width, place.height); });
    Form_Resize();
}

void MainViewFrm::ScrollHome() {
    hsbPict.Value = hsbPict.Min;
    vsbPict.Value = vsbPict.Min;
}

void MainViewFrm::hsbPict_Change() {
    selection.DropWhereSeen();
    MainImage.Left = -static_cast<float>(hsbPict.Value.Get());
}

void MainViewFrm::vsbPict_Change() {
    selection.DropWhereSeen();
    MainImage.Top = -static_cast<float>(vsbPict.Value.Get());
}

}  // namespace tavrix
