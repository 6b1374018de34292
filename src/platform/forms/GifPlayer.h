#pragma once

#include <memory>
#include <string>

#include "platform/forms/Control.h"
#include "platform/forms/FittedPixels.h"
#include "platform/forms/Timer.h"
#include "platform/services/Pictures.h"

namespace tavrix::forms {

/// Plays an animated GIF, stretched to the control's size. Where the animation is transparent, the form's
/// background shows. It plays from the first time that its form is shown on, also while it is invisible, and
/// through modal loops and boxes.
class GifPlayer final : public Control, private CanvasContent {
  public:
    GifPlayer(Container& container, std::string name, Pictures& pictures);

    /// What plays, as a full drive path; empty: nothing. A file starts from its first frame, also when it is assigned
    /// again, and the control takes its natural size. Throws what Pictures::OpenAnimation throws; nothing plays then,
    /// and the name is empty.
    Property<std::string> FileName{this, &GifPlayer::AssignFileName};

    /// Whether frames are still to come.
    [[nodiscard]] bool Playing() const { return frame_.Enabled; }

    [[nodiscard]] LayoutNeeds Needs() const override {
        return {AssignedSize(), Slack::Centred, Slack::Centred};
    }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event&) override {}
    void Resized() override;
    [[nodiscard]] CanvasView View(int bottom) const override;
    void AssignFileName(const std::string& value);
    void TakeNaturalSize();
    void Play();
    void ShowNextFrame();
    void InvalidateAll();

    Pictures& pictures_;
    std::unique_ptr<Animation> animation_;
    Timer frame_;
    mutable FittedPixels fitted_;
    std::unique_ptr<CanvasPeer> canvasPeer_;
};

}  // namespace tavrix::forms
