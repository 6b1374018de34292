#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A frame with a caption, around controls that belong together and lie in it. Hiding or disabling it does the same
/// to them.
class Frame final : public Control, public Container {
  public:
    using Control::Control;

    /// May be empty: a frame alone.
    Property<std::string> Caption{this, &Frame::AssignCaption};

    [[nodiscard]] Form& OwnerForm() override { return Control::OwnerForm(); }

    [[nodiscard]] LayoutNeeds Needs() const override { return {NaturalSize(), Slack::Filled, Slack::Filled}; }
    [[nodiscard]] PixelInsets Border() const override;

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void RealizeContent(Toolkit& toolkit) override { RealizeControls(toolkit, *framePeer_); }
    void Handle(const Event&) override {}
    void AssignCaption(const std::string& value);

    std::unique_ptr<FramePeer> framePeer_;
};

}  // namespace tavrix::forms
