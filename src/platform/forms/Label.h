#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A line or a paragraph of text.
class Label final : public Control {
  public:
    using Control::Control;

    Property<std::string> Caption{this, &Label::AssignCaption};
    /// The caption is data, such as a path: its ampersands are shown as they are.
    Property<bool> Literal{this, &Label::AssignLiteral};

    /// The control whose name the label tells, and that gets the focus by its mnemonic. To be told before the first
    /// show; it lies in the same container.
    void SetBuddy(const Control& buddy) { buddy_ = &buddy; }

    std::function<void()> OnClick;

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void RealizeLinks() override;
    void Handle(const Event& event) override;
    void AssignCaption(const std::string& value);
    void AssignLiteral(const bool& value);
    /// The caption as the peer is to hear it.
    [[nodiscard]] std::string PeerText() const;

    const Control* buddy_ = nullptr;
    std::unique_ptr<LabelPeer> labelPeer_;
};

}  // namespace tavrix::forms
