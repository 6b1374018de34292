#pragma once

#include <functional>
#include <string>
#include <vector>

#include "imaging/graphics/Picture.h"
#include "platform/forms/Control.h"
#include "platform/forms/FittedPixels.h"
#include "platform/forms/Mouse.h"
#include "platform/forms/Timer.h"

namespace tavrix::forms {

/// A picture without a bitmap of its own: at its natural size, or stretched to the control's. A picture that is shown
/// smaller than it is appears row by row while it arrives, and nothing waits for it. Without a picture it lets
/// what lies below it show through, and still gets the mouse.
class Image final : public Control, public MouseHandlers, private CanvasContent {
  public:
    Image(Container& container, std::string name);

    Property<tavrix::Picture> Picture{this, &Image::AssignPicture};
    /// Off: the control takes the picture's natural size.
    Property<bool> Stretch{this, &Image::AssignStretch};

    std::function<void()> OnClick;
    /// The first rows of a picture that was still arriving when it was assigned have come.
    std::function<void()> OnFirstRows;
    /// The decoding of a picture that was still arriving when it was assigned has ended.
    std::function<void()> OnArrived;

    [[nodiscard]] LayoutNeeds Needs() const override {
        return {AssignedSize(), Slack::Centred, Slack::Centred};
    }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void Resized() override;
    [[nodiscard]] CanvasView View(int bottom) const override;
    void AssignPicture(const tavrix::Picture& value);
    void AssignStretch(const bool& value);
    void TakePictureSize();
    void InvalidateAll();
    void LookAtArrival();

    Timer arrival_;
    bool rowsAwaited_ = false;
    mutable FittedPixels fitted_;
    std::unique_ptr<CanvasPeer> canvasPeer_;
};

}  // namespace tavrix::forms
