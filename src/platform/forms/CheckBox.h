#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A box to tick.
class CheckBox final : public Control {
  public:
    using Control::Control;

    Property<std::string> Caption{this, &CheckBox::AssignCaption};
    /// Whether it is ticked. A new value raises OnClick, whoever sets it.
    Property<bool> Value{this, &CheckBox::AssignValue};

    std::function<void()> OnClick;
    /// A mouse button was released that had been pressed over it; Click comes before.
    std::function<void(const MouseEvent&)> OnMouseUp;

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void AssignCaption(const std::string& value);
    void AssignValue(const bool& value);

    std::unique_ptr<CheckPeer> checkPeer_;
};

}  // namespace tavrix::forms
