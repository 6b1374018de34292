#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A line or a paragraph of text.
class Label final : public Control {
  public:
    using Control::Control;

    Property<std::string> Caption{this, &Label::AssignCaption};

    std::function<void()> OnClick;

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void AssignCaption(const std::string& value);

    std::unique_ptr<LabelPeer> labelPeer_;
};

}  // namespace tavrix::forms
