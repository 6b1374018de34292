#pragma once

#include <vector>

#include "platform/forms/Control.h"

namespace tavrix::forms {

class OptionButton;

/// Option buttons of which at most one is chosen. It outlives them.
class OptionGroup {
  public:
    OptionGroup() = default;
    OptionGroup(const OptionGroup&) = delete;
    OptionGroup& operator=(const OptionGroup&) = delete;

  private:
    friend class OptionButton;

    std::vector<OptionButton*> buttons_;  ///< in the order in which the arrow keys go through them
};

/// One of several choices. The arrow keys choose the next one of the group, around its ends; Tab goes to the chosen one
/// alone.
class OptionButton final : public Control {
  public:
    OptionButton(Container& container, std::string name, OptionGroup& group);

    Property<std::string> Caption{this, &OptionButton::AssignCaption};
    /// Whether it is the chosen one of its group. Choosing it, whoever does so, takes the choice from the others and
    /// raises OnClick; an option that loses the choice raises nothing.
    Property<bool> Value{this, &OptionButton::AssignValue};

    std::function<void()> OnClick;

    [[nodiscard]] LayoutNeeds Needs() const override { return {NaturalSize()}; }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void KeyPressed(int& keyCode, int shift) override;
    void AssignCaption(const std::string& value);
    void AssignValue(const bool& value);
    void TakeChoice();
    /// The next one of the group that can be chosen, or this one.
    [[nodiscard]] OptionButton& Neighbour(bool forward) const;
    void PushTabStops() const;

    OptionGroup& group_;
    std::unique_ptr<OptionPeer> optionPeer_;
};

}  // namespace tavrix::forms
