#pragma once

#include "platform/forms/Application.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/Timer.h"

namespace tavrix {

/// The wait window of the start and of long jobs: two lines of text beside a picture that keeps changing.
class WaitFrm final : public forms::Form {
  public:
    explicit WaitFrm(forms::Application& application);

    forms::Label lblWait{*this, "lblWait"};
    forms::Label lblMsg{*this, "lblMsg"};
    forms::Image ImageOn{*this, "ImageOn"};
    forms::Image ImageOff{*this, "ImageOff"};
    forms::Image ImageShow{*this, "ImageShow"};
    forms::Timer TimerAnimate{*this};

    void Form_Load() override;
    void Form_Unload(bool& cancel) override;

  private:
    void TimerAnimate_Timer();

    bool showsOn_ = false;
};

/// Unloads the wait window, where it is loaded.
void UnloadWaitWindow(forms::Application& application);

}  // namespace tavrix
