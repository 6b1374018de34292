#pragma once

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Timer.h"
#include "settings/AboutPicture.h"

namespace tavrix {

/// The about box: the version, below a picture of a boat that sails through a day. After that it rests, or from the
/// first where the desktop wishes that nothing moves for pleasure; a click on it begins another day.
class frmAbout final : public forms::Form {
  public:
    frmAbout(forms::Application& application, MainModule& module);

    forms::PictureBox picAbout{*this, "picAbout"};
    forms::Label lblProduct{*this, "lblProduct"};
    forms::Label lblVersion{*this, "lblVersion"};
    forms::CommandButton cmdOK{*this, "cmdOK"};
    forms::Timer TimerSea{*this};  ///< moves boat and water
    forms::Timer TimerDay{*this};  ///< lets the day go on

    [[nodiscard]] const AboutMoment& Moment() const { return moment_; }
    /// The picture goes on from another moment.
    void ShowMoment(const AboutMoment& moment);

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void TimerSea_Timer();
    void TimerDay_Timer();
    void Begin();
    [[nodiscard]] bool MayMove() const;
    void Rest();
    void Draw();

    MainModule& module_;
    AboutMoment moment_;
    bool asked_ = false;  ///< by a click, for movement
    int steps_ = 0;       ///< of the day that have passed
};

}  // namespace tavrix
