#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A scroll bar. Values are twips here, as everywhere on a form, in 32 bits. The arrow keys, Page Up, Page Down, Home
/// and End move it.
class ScrollBar final : public Control {
  public:
    ScrollBar(Container& container, std::string name, bool vertical)
        : Control(container, std::move(name)), vertical_(vertical) {}

    /// A new value raises OnChange; values outside the range throw RuntimeError 380.
    Property<int> Value{this, &ScrollBar::AssignValue};
    Property<int> Min{this, &ScrollBar::AssignMin};
    /// Lowering it below the value takes the value along, which raises OnChange.
    Property<int> Max{this, &ScrollBar::AssignMax, 32767};
    Property<int> SmallChange{this, &ScrollBar::AssignSmallChange, 1};
    Property<int> LargeChange{this, &ScrollBar::AssignLargeChange, 1};

    std::function<void()> OnChange;
    /// While the thumb is dragged.
    std::function<void()> OnScroll;

    [[nodiscard]] LayoutNeeds Needs() const override {
        return {NaturalSize(), vertical_ ? Slack::Centred : Slack::Filled,
                vertical_ ? Slack::Filled : Slack::Centred};
    }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void Handle(const Event& event) override;
    void KeyPressed(int& keyCode, int shift) override;
    void AssignValue(const int& value);
    void AssignMin(const int& value);
    void AssignMax(const int& value);
    void AssignSmallChange(const int& value);
    void AssignLargeChange(const int& value);
    void RangeChanged();
    void PushRange();

    bool vertical_;
    int settled_ = 0;  ///< the value that OnChange was last raised for
    std::unique_ptr<ScrollBarPeer> barPeer_;
};

}  // namespace tavrix::forms
