#pragma once

#include <optional>

#include "platform/forms/Control.h"
#include "platform/forms/Mouse.h"

namespace tavrix::forms {

/// A line or a paragraph of text.
class Label final : public Control, public MouseHandlers {
  public:
    using Control::Control;

    Property<std::string> Caption{this, &Label::AssignCaption};
    /// The caption is data, such as a path: its ampersands are shown as they are.
    Property<bool> Literal{this, &Label::AssignLiteral};
    /// Lines are broken where they do not fit. A label that no layout arranges does so always.
    Property<bool> WordWrap{this, &Label::AssignWordWrap};
    /// Nothing: what lies below shows. The text is drawn so that it can be read on the colour.
    Property<std::optional<Colour>> BackColor{this, &Label::AssignBackColor};

    /// The control whose name the label tells, and that gets the focus by its mnemonic. To be told before the first
    /// show; it lies in the same container.
    void SetBuddy(const Control& buddy) { buddy_ = &buddy; }
    /// Null where it has none.
    [[nodiscard]] const Control* Buddy() const { return buddy_; }

    std::function<void()> OnClick;

    [[nodiscard]] LayoutNeeds Needs() const override {
        return {NaturalSize(), Slack::Filled, Slack::Centred, true};
    }
    [[nodiscard]] int HeightAt(int width) const override;

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void RealizeLinks() override;
    void Handle(const Event& event) override;
    void AssignCaption(const std::string& value);
    void AssignLiteral(const bool& value);
    void AssignWordWrap(const bool& value);
    void AssignBackColor(const std::optional<Colour>& value);
    void PushText();
    [[nodiscard]] bool Wraps() const { return WordWrap || !Arranged(); }
    /// The caption as the peer is to hear it.
    [[nodiscard]] std::string PeerText() const;

    const Control* buddy_ = nullptr;
    std::unique_ptr<LabelPeer> labelPeer_;
};

}  // namespace tavrix::forms
