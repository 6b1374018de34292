#pragma once

#include "platform/forms/Control.h"
#include "platform/graphics/Picture.h"

namespace tavrix::forms {

/// A picture without a bitmap of its own: at its natural size, or stretched to the control's.
class Image final : public Control, private CanvasContent {
  public:
    using Control::Control;

    Property<tavrix::Picture> Picture{this, &Image::AssignPicture};
    /// Off: the control takes the picture's natural size.
    Property<bool> Stretch{this, &Image::AssignStretch};

    std::function<void()> OnClick;

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void Resized() override;
    [[nodiscard]] CanvasView View(int bottom) const override;
    void AssignPicture(const tavrix::Picture& value);
    void AssignStretch(const bool& value);
    void TakePictureSize();
    void InvalidateAll();

    std::unique_ptr<CanvasPeer> canvasPeer_;
};

}  // namespace tavrix::forms
