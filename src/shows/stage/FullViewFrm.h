#pragma once

#include <optional>
#include <string>

#include "core/MainModule.h"
#include "platform/forms/Form.h"
#include "platform/forms/GifPlayer.h"
#include "platform/forms/Image.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Timer.h"
#include "shows/stage/HostedSaver.h"
#include "shows/stage/SlideLoader.h"
#include "shows/stage/SoundEngine.h"
#include "shows/stage/StageFit.h"

namespace tavrix {

/// The stage: a window over the whole display. Shared flags decide its role when it is loaded: the view of one image
/// (StageImage), a slide show (SlideShowActive), or the screen saver (ScreenSaverMode as well). From then on to its
/// unload the role is its own, whatever becomes of the flags. Where there is no main view, the end of a show is the end
/// of the process. At most one stage is loaded (EndStage).
///
/// Where a password is in force (MainModule::UsePassword), a saver covers the display until it was entered: once the grace
/// period is over, whatever asks the stage to close asks for it first. A hosted saver never closes.
class FullViewFrm final : public forms::Form {
  public:
    static constexpr int MouseInterval = 2000;  ///< milliseconds

    FullViewFrm(forms::Application& application, MainModule& module,
                std::optional<HostedSaver> hosted = std::nullopt);
    ~FullViewFrm() override;

    forms::PictureBox PicFocus{*this, "PicFocus"};
    forms::GifPlayer Gif89a1;
    forms::Image Image1{*this, "Image1"};
    forms::Timer SlideTimer{*this};
    forms::Timer TimerMouse{*this};
    forms::Timer TimerPass{*this};  ///< the grace period, in which the saver ends without the password

    int CurrentSlide = 0;
    int SlideTotal = 0;                ///< counted for a random order only
    bool SlideChanging = false;        ///< moves of the mouse are the window system's own meanwhile
    int MouseMoveCount = 0;            ///< of the saver
    std::optional<int> FirstMoveTime;  ///< of the saver: whole seconds of the toolkit's clock

    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload(bool& cancel) override;
    void Form_MouseMove(const forms::MouseArguments& mouse) override;
    void Form_MouseUp(const forms::MouseArguments& mouse) override;
    void Form_KeyDown(int& keyCode, int shift) override;

    /// Closes the stage, but not while an operation is running.
    void FormUnload();
    /// One step of the show; nothing while an operation is running.
    void SlideTimer_Timer();
    void ShowPointer();
    void HidePointer();

    /// Whether it plays a show and is no saver.
    [[nodiscard]] bool InShow() const { return role_.show && !role_.saver; }
    /// Whether it plays the show of an editor, which may be changed.
    [[nodiscard]] bool Editable() const { return InShow() && !role_.startedAsShow; }
    /// The stored path of the slide on show.
    [[nodiscard]] const std::string& CurrentPath() const;
    [[nodiscard]] const std::string& CurrentDescription() const;

  private:
    static constexpr int SelfGuardingPlatform = 2;

    void Image1_MouseUp(const forms::MouseArguments& mouse);
    void TimerMouse_Timer();
    void CountMove();

    void LoadOneImage();
    void LoadFirstSlide();
    void OpenToolbar();
    void ShowOverlay();
    void ReportFailure(const std::string& path, const std::string& errorText);
    void StartTimer();
    /// Tells the system that a guarded saver runs, and begins the grace period. The process ends where the system cannot
    /// be kept from letting others pass.
    void BeginGuard();
    [[nodiscard]] bool PasswordInForce() const {
        return role_.saver && !hosted_ && module_.UsePassword && module_.OsPlatformId != SelfGuardingPlatform;
    }
    /// Whether a picture that cannot be shown leaves the stage where it is.
    [[nodiscard]] bool Stays() const { return hosted_ || PasswordInForce(); }
    /// Whether it is heard and remembers its slide.
    [[nodiscard]] bool Leads() const { return !hosted_ || hosted_->first; }
    [[nodiscard]] bool KnowsPassword();
    /// The saver was not allowed to end.
    void StayOn();
    /// Sizes and places what is on the stage; `centred` halves what is left beside it.
    void Place(float (*centred)(float whole, float part));
    void FitImage();
    /// Runs statements of the load. The first failure of them is kept for the first activation.
    template <class Statements>
    void Attempt(Statements statements);

    void ChooseNextSlide();
    /// Tells the platform which slide comes next if the user leaves it at that.
    void ExpectNextSlide();
    void RememberSlide();
    /// The next slide, from its index on. False when the show has ended.
    bool ChangeSlide(forms::BusyGuard& guard);

    void Navigate(int keyCode);
    void Pause();
    void RemoveSlide();
    [[nodiscard]] int LastSlideLess1() const;

    [[nodiscard]] Extent Size() const { return {Width, Height}; }

    struct Role {
        bool show = false;
        bool saver = false;
        bool startedAsShow = false;
    };

    MainModule& module_;
    const Role role_{module_.SlideShowActive, module_.ScreenSaverMode, module_.StartedAsShow};
    const std::optional<HostedSaver> hosted_;
    SlideLoader loader_{module_, Image1, Gif89a1};
    SoundEngine sound_{module_};
    bool loadFailed_ = false;
    std::string loadErrorText_;
    bool displayed_ = false;  ///< the first image stands
};

}  // namespace tavrix
