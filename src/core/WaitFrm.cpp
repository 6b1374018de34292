#include "core/WaitFrm.h"

#include "imaging/graphics/Draw.h"

namespace tavrix {
namespace {

constexpr int PictureSide = 32;      ///< pixels
constexpr int AnimationPause = 400;  ///< milliseconds: slow enough to be calm, quick enough to be seen alive

/// A picture in its frame, the sun of which is up or down.
Picture WaitPicture(bool on) {
    constexpr Pixel frame = OpaquePixel(0x40, 0x40, 0x48);
    const Pixel sky = on ? OpaquePixel(0x7F, 0xB2, 0xE5) : OpaquePixel(0x33, 0x4A, 0x7A);
    const Pixel sun = on ? OpaquePixel(0xFF, 0xD2, 0x4A) : OpaquePixel(0xD9, 0xDD, 0xE8);
    constexpr Pixel hill = OpaquePixel(0x3E, 0x8E, 0x55);
    Surface surface(PictureSide, PictureSide);
    surface.Fill(frame);
    FillBox(surface, {3, 3, 26, 26}, sky);
    FillBox(surface, {on ? 18 : 7, on ? 6 : 9, 7, 7}, sun);
    for (int step = 0; step < 6; ++step)
        FillBox(surface, {3 + step, 28 - step, 26 - 2 * step, 1}, hill);
    return PictureOf(std::move(surface));
}

}  // namespace

WaitFrm::WaitFrm(forms::Application& application)
    : Form(application, {.name = "WaitFrm", .waitWindow = true}) {
    lblWait.Caption = "Please wait...";
    ImageShow.AccessibleName = "At work";
    ImageOn.Visible = false;
    ImageOff.Visible = false;
    TimerAnimate.Enabled = false;
    TimerAnimate.Interval = AnimationPause;
    TimerAnimate.OnTimer = [this] { TimerAnimate_Timer(); };
    SetLayout(forms::Row({ImageShow, forms::Column({lblWait, lblMsg})}));
}

void WaitFrm::Form_Load() {
    Caption = "Tavrix - [Please Wait...]";
    ImageOn.Picture = WaitPicture(true);
    ImageOff.Picture = WaitPicture(false);
    ImageShow.Picture = ImageOff.Picture;
    TimerAnimate.Enabled = true;
}

void WaitFrm::TimerAnimate_Timer() {
    showsOn_ = !showsOn_;
    ImageShow.Picture = showsOn_ ? ImageOn.Picture : ImageOff.Picture;
    App().DoEvents();
}

void WaitFrm::Form_Unload(bool&) {
    TimerAnimate.Enabled = false;
}

void UnloadWaitWindow(forms::Application& application) {
    for (int i = 0; i < application.FormCount(); ++i) {
        if (application.FormAt(i).Name() != "WaitFrm") continue;
        application.Unload(application.FormAt(i));
        return;
    }
}

}  // namespace tavrix
