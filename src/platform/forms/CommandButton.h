#pragma once

#include "imaging/graphics/Picture.h"
#include "platform/forms/Control.h"
#include "platform/forms/Mouse.h"

namespace tavrix::forms {

/// A push button. Of what the mouse does over it, Click comes before the button's going up.
class CommandButton final : public Control, public MouseHandlers {
  public:
    using Control::Control;

    Property<std::string> Caption{this, &CommandButton::AssignCaption};
    /// Shown in the place of the caption, at its natural size.
    Property<tavrix::Picture> Picture{this, &CommandButton::AssignPicture};
    /// Enter presses the button from anywhere in its window.
    Property<bool> Default{this, &CommandButton::AssignDefault};
    /// Escape presses the button from anywhere in its window.
    Property<bool> Cancel{this, &CommandButton::AssignCancel};

    /// The left button, a key or an accelerator pressed it.
    std::function<void()> OnClick;

    [[nodiscard]] LayoutNeeds Needs() const override { return {NaturalSize()}; }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void AssignCaption(const std::string& value);
    void AssignPicture(const tavrix::Picture& value);
    void PushPicture();
    void AssignDefault(const bool& value);
    void AssignCancel(const bool& value);

    std::unique_ptr<ButtonPeer> buttonPeer_;
};

}  // namespace tavrix::forms
