#include "shows/stage/FullViewFrm.h"

#include <algorithm>
#include <array>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/Settings.h"
#include "platform/forms/Application.h"
#include "shows/stage/StageBackground.h"
#include "shows/stage/StageOverlay.h"
#include "shows/stage/StagePointers.h"
#include "shows/stage/frmToolbar.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

using forms::BoxIcon;
using forms::BusyGuard;

constexpr const char* SaverTitle = "Screen Saver Main Form";
constexpr const char* HostedTitle = "Tavrix Screen Saver";  ///< several may run, and beside the settings
constexpr int SaverInterval = 5;                            ///< seconds

/// Milliseconds of the grace period, by the setting PasswordDelay.
constexpr std::array<int, 5> GracePeriods{0, 5'000, 10'000, 30'000, 60'000};

}  // namespace

FullViewFrm::FullViewFrm(forms::Application& application, MainModule& module,
                         std::optional<HostedSaver> hosted)
    : Form(application, {.name = "FullViewFrm", .fullScreen = true}),
      Gif89a1(*this, "Gif89a1", module.platform.pictures),
      module_(module),
      hosted_(hosted) {
    Caption = hosted_ ? HostedTitle : SaverTitle;
    PicFocus.Visible = false;
    Gif89a1.Visible = false;
    Image1.Visible = false;
    Image1.AccessibleName = "Image";
    Image1.MouseIcon = StagePointer(module_.Screen().TwipsPerPixelX());
    Image1.MousePointer = forms::MousePointer::Custom;
    TimerMouse.Enabled = false;
    TimerMouse.Interval = MouseInterval;
    TimerPass.Enabled = false;

    PicFocus.OnKeyDown = [this](int& keyCode, int shift) { Form_KeyDown(keyCode, shift); };
    Image1.OnMouseMove = [this](const forms::MouseArguments& mouse) { Form_MouseMove(mouse); };
    Image1.OnMouseUp = [this](const forms::MouseArguments& mouse) { Image1_MouseUp(mouse); };
    SlideTimer.OnTimer = [this] { SlideTimer_Timer(); };
    TimerMouse.OnTimer = [this] { TimerMouse_Timer(); };
    TimerPass.OnTimer = [this] { TimerPass.Enabled = false; };
}

FullViewFrm::~FullViewFrm() = default;

template <class Statements>
void FullViewFrm::Attempt(Statements statements) {
    try {
        statements();
    } catch (const RuntimeError& error) {
        if (!loadFailed_) loadErrorText_ = error.Description();
        loadFailed_ = true;
    }
}

void FullViewFrm::Form_Load() {
    if (role_.saver) {
        Image1.MouseIcon = SaverPointer();
        if (PasswordInForce()) BeginGuard();
    } else {
        Caption = "Tavrix Full Screen View";
    }
    BackColor = StageBackground(module_.config.BackgroundColor);
    if (module_.config.ResumeLastDisplayed && role_.saver) {
        CurrentSlide = module_.config.ImageLastDisplayed;
        const bool slot = CurrentSlide >= 0 && CurrentSlide <= SlideTexts::LastIndex;
        if (!slot || module_.show.SlideFiles[CurrentSlide].empty()) CurrentSlide = 0;
    }
    if (role_.show) {
        LoadFirstSlide();
    } else {
        LoadOneImage();
    }
}

void FullViewFrm::BeginGuard() {
    if (!module_.platform.saverPassword.SetRunning(true)) module_.platform.process.End();
    const auto delay = static_cast<std::size_t>(std::clamp<int>(module_.config.PasswordDelay, 0, 4));
    TimerPass.Interval = GracePeriods[delay];
    TimerPass.Enabled = GracePeriods[delay] != 0;
}

void FullViewFrm::LoadOneImage() {
    if (module_.config.ShowFilenames) Image1.ToolTip = module_.StageImage;
    Attempt([this] {
        if (module_.StageImageAnimated) {
            Gif89a1.FileName = FullPath(module_, module_.StageImage);
        } else {
            loader_.LoadStill(module_.StageImage);
        }
    });
}

void FullViewFrm::LoadFirstSlide() {
    Attempt([this] { loader_.LoadSlide(CurrentPath()); });
    if (InShow() && !module_.config.ShowToolbar) ShowOverlay();
    if (module_.config.RandomSlides) SlideTotal = module_.show.SlideFiles.FirstEmpty();
    if (Leads()) sound_.Start();
    if (InShow()) module_.platform.wakefulness.Inhibit(true);
    if (InShow() && module_.config.ShowToolbar) OpenToolbar();
}

void FullViewFrm::OpenToolbar() {
    try {
        auto& toolbar = App().Load<frmToolbar>(module_, *this);
        toolbar.ShowAbove(*this);
        toolbar.SizeToContents();
        toolbar.ShowSlide(CurrentPath(), CurrentDescription());
    } catch (const RuntimeError&) {
        App().MessageBox(
            {.text = "Unexpected error initializing navigation toolbar, will attempt to continue anyway...",
             .icon = BoxIcon::Exclamation});
    }
}

void FullViewFrm::ShowOverlay() {
    if (module_.config.ShowToolbar) {
        if (auto* toolbar = App().Loaded<frmToolbar>())
            toolbar->ShowSlide(CurrentPath(), CurrentDescription());
    } else if (const auto text = OverlayText(module_.config, CurrentPath(), CurrentDescription())) {
        Image1.ToolTip = *text;
    }
}

void FullViewFrm::Form_Activate() {
    if (loadFailed_) {
        const std::string path = role_.show ? CurrentPath() : module_.StageImage;
        if (auto* toolbar = App().Loaded<frmToolbar>()) toolbar->Hide();
        // A guarded saver stays as the cover under the box.
        if (!Stays()) Hide();
        module_.DoEvents();
        ReportFailure(path, loadErrorText_);
        if (Unloaded()) return;
        loadFailed_ = false;
    }
    SlideChanging = true;
    if (!Gif89a1.FileName.Get().empty()) {
        Image1.Move(0, 0, Width, Height);
        Gif89a1.Visible = true;
    }
    SkipFailure([this] { Place(CentredFirst); });
    Image1.Visible = true;
    displayed_ = true;
    SlideChanging = false;
    StartTimer();
    ExpectNextSlide();
    if (role_.saver) {
        HidePointer();
        SetTopmost(true);
    } else {
        TimerMouse.Enabled = true;
    }
    PicFocus.SetFocus();
    MouseMoveCount = 0;
    module_.DoEvents();
    module_.Screen().MousePointer = forms::MousePointer::Default;
}

void FullViewFrm::StartTimer() {
    if (role_.saver && module_.config.SlideInterval == 0) {
        module_.config.SlideInterval = SaverInterval;
    }
    if (module_.config.SlideInterval == 0 || !role_.show) return;
    // Above 32 seconds there is no interval, and the show goes on by hand.
    SkipFailure([this] { SlideTimer.Interval = ToInteger16(module_.config.SlideInterval * 1000.0); });
    SlideTimer.Enabled = true;
}

void FullViewFrm::Form_Resize() {
    if (!displayed_ || SlideChanging) return;
    Image1.Stretch = false;
    if (!Gif89a1.FileName.Get().empty()) Image1.Move(0, 0, Width, Height);
    SkipFailure([this] { Place(Centred); });
}

void FullViewFrm::Place(float (*centred)(float whole, float part)) {
    if (!Gif89a1.FileName.Get().empty()) {
        Gif89a1.Move(centred(Width, Gif89a1.Width), centred(Height, Gif89a1.Height), Gif89a1.Width,
                     Gif89a1.Height);
        return;
    }
    FitImage();
    Image1.Left = centred(Width, Image1.Width);
    Image1.Top = centred(Height, Image1.Height);
}

void FullViewFrm::FitImage() {
    FittedImage fitted{{Image1.Width, Image1.Height}, Image1.Stretch};
    if (fitted.size.width <= 0 || fitted.size.height <= 0) return;
    if (module_.config.StretchImages) fitted = ShrinkToStage(fitted, Size());
    const Extent pixel{module_.Screen().TwipsPerPixelX(), module_.Screen().TwipsPerPixelY()};
    if (module_.config.EnlargeImages && MayBeEnlarged(fitted.size, Size(), pixel)) {
        fitted = EnlargeToStage(fitted.size, Size());
    }
    Image1.Stretch = fitted.stretched;
    Image1.Move(Image1.Left, Image1.Top, fitted.size.width, fitted.size.height);
}

void FullViewFrm::FormUnload() {
    if (module_.Busy() || hosted_) return;
    SlideTimer.Enabled = false;
    App().Unload(*this);
}

void FullViewFrm::Form_QueryUnload(bool& cancel) {
    if (!role_.saver) return;
    cancel = module_.Busy();  // nobody is heard while a slide changes
    if (cancel) return;
    if (hosted_) {
        cancel = true;
        StayOn();
    }
    if (cancel || !PasswordInForce() || TimerPass.Enabled || KnowsPassword()) return;
    cancel = true;
    StayOn();
}

bool FullViewFrm::KnowsPassword() {
    SlideTimer.Enabled = false;
    ShowPointer();
    bool right = false;
    SkipFailure([&] { right = module_.platform.saverPassword.Verify(); });
    return right;
}

void FullViewFrm::StayOn() {
    HidePointer();
    SetTopmost(true);
    SlideChanging = false;
    MouseMoveCount = 0;
    SlideTimer.Enabled = true;
}

void FullViewFrm::Form_Unload(bool&) {
    ShowPointer();
    if (!role_.show) return;
    module_.platform.pictures.Expect("");
    if (InShow() && module_.config.ShowToolbar) {
        if (auto* toolbar = App().Loaded<frmToolbar>()) App().Unload(*toolbar);
        module_.DoEvents();
    }
    if (module_.config.TopMostWindow) {
        if (auto* view = App().Loaded<MainViewFrm>()) view->SetTopmost(true);
    }
    sound_.Stop();
    if (InShow()) module_.platform.wakefulness.Inhibit(false);
    if (PasswordInForce()) static_cast<void>(module_.platform.saverPassword.SetRunning(false));
    if (!role_.saver && !role_.startedAsShow) return;
    if (App().Loaded<MainViewFrm>() == nullptr) module_.platform.process.End();
    module_.StartedAsShow = false;  // the process outlives the show
}

void FullViewFrm::ReportFailure(const std::string& path, const std::string& errorText) {
    App().MessageBox({.text = "Unable to view image:" + std::string(NewLine2) + path + std::string(NewLine2) +
                              errorText + "...",
                      .icon = BoxIcon::Stop,
                      .systemModal = true});
    module_.Screen().MousePointer = forms::MousePointer::Default;
    SlideTimer.Enabled = false;
    App().Unload(*this);
}

void FullViewFrm::SlideTimer_Timer() {
    const HandlerScope scope(*this);
    if (module_.Busy() || Unloaded() || module_.show.SlideFiles[1].empty()) return;
    SlideChanging = true;
    SlideTimer.Enabled = false;
    BusyGuard guard(module_.Screen());
    module_.DoEvents();
    MouseMoveCount = 0;
    ChooseNextSlide();
    Image1.Visible = false;
    module_.DoEvents();
    if (Unloaded()) return;
    if (!ChangeSlide(guard)) return;
    PicFocus.SetFocus();
    Image1.Visible = true;
    module_.DoEvents();
    SlideChanging = false;
    MouseMoveCount = 0;
    if (Unloaded()) return;
    SlideTimer.Enabled = true;
    ExpectNextSlide();
    module_.DoEvents();
}

void FullViewFrm::ChooseNextSlide() {
    if (module_.config.RandomSlides) {
        CurrentSlide = static_cast<int>(static_cast<float>(SlideTotal + 1) * module_.random.Next());
    } else {
        ++CurrentSlide;
    }
    if (CurrentSlide > SlideTexts::LastIndex) CurrentSlide = 0;
}

void FullViewFrm::ExpectNextSlide() {
    // What chance will choose is not known before.
    if (!role_.show || module_.config.RandomSlides) return;
    int next = std::clamp(CurrentSlide, 0, SlideTexts::LastIndex) + 1;
    if (next > SlideTexts::LastIndex || module_.show.SlideFiles[next].empty()) {
        if (!module_.config.LoopSlideShow && !role_.saver) return;
        next = 0;
    }
    if (next != CurrentSlide) loader_.ExpectSlide(module_.show.SlideFiles[next]);
}

bool FullViewFrm::ChangeSlide(BusyGuard& guard) {
    if (module_.show.SlideFiles[CurrentSlide].empty()) {
        CurrentSlide = 0;
        if (!module_.config.LoopSlideShow && !role_.saver) {
            guard.Release();
            FormUnload();
            return false;
        }
    }
    RememberSlide();
    Image1.Stretch = false;
    try {
        loader_.LoadSlide(CurrentPath());
        if (Unloaded()) return false;
        Place(Centred);
    } catch (const RuntimeError& error) {
        ShowPointer();
        SetTopmost(false);
        ReportFailure(CurrentPath(), error.Description());
        return false;
    }
    if (!role_.saver) ShowOverlay();
    return true;
}

void FullViewFrm::RememberSlide() {
    if (!module_.config.ResumeLastDisplayed || !role_.saver || !Leads()) return;
    const ProfileEntry entry{"ImageLastDisplayed", std::to_string(CurrentSlide)};
    SkipFailure([&] { module_.platform.profile.Write("Viewer", {&entry, 1}, SettingsFile(module_)); });
}

const std::string& FullViewFrm::CurrentPath() const {
    return module_.show.SlideFiles[std::clamp(CurrentSlide, 0, SlideTexts::LastIndex)];
}

const std::string& FullViewFrm::CurrentDescription() const {
    return module_.show.SlideDescriptions[std::clamp(CurrentSlide, 0, SlideTexts::LastIndex)];
}

}  // namespace tavrix
