#pragma once

#include "platform/forms/Control.h"
#include "platform/forms/Mouse.h"

namespace tavrix::forms {

/// A box to tick. Of what the mouse does over it, Click comes before the button's going up.
class CheckBox final : public Control, public MouseHandlers {
  public:
    using Control::Control;

    Property<std::string> Caption{this, &CheckBox::AssignCaption};
    /// Whether it is ticked. A new value raises OnClick, whoever sets it.
    Property<bool> Value{this, &CheckBox::AssignValue};

    std::function<void()> OnClick;

    [[nodiscard]] LayoutNeeds Needs() const override { return {NaturalSize()}; }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void AssignCaption(const std::string& value);
    void AssignValue(const bool& value);

    std::unique_ptr<CheckPeer> checkPeer_;
};

}  // namespace tavrix::forms
