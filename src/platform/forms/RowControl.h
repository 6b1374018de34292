#pragma once

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// A control that shows rows of text, of which one at most is the current one.
class RowControl : public Control, protected ListContent {
  public:
    /// The current row, counted from 0 as it is shown; -1 for none. A new value raises OnClick, unless it is -1.
    /// Throws RuntimeError 380 for a row that is not there.
    Property<int> ListIndex{this, &RowControl::AssignListIndex, -1};

    /// A row became the current one, or the user pressed the one that was.
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;

    [[nodiscard]] LayoutNeeds Needs() const override {
        const bool list = look_ == Look::List;
        return {NaturalSize(), list ? Slack::Wanted : Slack::Filled, list ? Slack::Wanted : Slack::Centred};
    }

  protected:
    enum class Look : std::uint8_t { List, DropDown };

    RowControl(Container& container, std::string name, Look look)
        : Control(container, std::move(name)), look_(look) {}

    void Handle(const Event& event) override;
    /// All rows are others now; `current` becomes the current one without an event.
    void RowsChanged(int current);
    /// The user made the row the current one, or pressed it again.
    virtual void RowChosen();
    virtual void RowDoubleClicked();

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void AssignListIndex(const int& value);

    Look look_;
    std::unique_ptr<ListPeer> listPeer_;
};

}  // namespace tavrix::forms
