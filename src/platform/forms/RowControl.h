#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/forms/Control.h"
#include "platform/forms/RowRanges.h"

namespace tavrix::forms {

/// A control that shows rows of text, of which one at most is the current one. Whoever holds the rows says what becomes
/// of them as it is: some came, some are gone, some look otherwise, all are others.
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

    // The rows themselves have changed already. No event is raised.
    /// The current row stays the same row.
    virtual void RowsInserted(int at, int count);
    /// The current row stays the same row; where it is gone, none is current.
    virtual void RowsRemoved(const RowRanges& gone);
    /// The texts of the rows from `first` on are others; `end` exclusive.
    void RowsChanged(int first, int end);
    /// All rows are others now; `current` becomes the current one. `keepPlace`: the list does not scroll for it.
    virtual void RowsReset(int current, bool keepPlace = false);

    /// The user made the row the current one, or pressed it again.
    virtual void RowChosen();
    virtual void RowDoubleClicked();

    /// Makes a row the current one without an event. False: it is that already.
    bool StoreCurrent(int row);
    /// Null before the form was first shown.
    [[nodiscard]] ListPeer* Shown() const { return listPeer_.get(); }
    void RequireRow(int row) const;
    [[nodiscard]] int CurrentRow() const override { return ListIndex; }
    [[nodiscard]] bool RowSelected(int row) const override { return row == ListIndex; }
    [[nodiscard]] bool ManySelected() const override { return false; }

  private:
    ControlPeer& CreatePeer(Toolkit& toolkit, ControlPeer& container) override;
    void AssignListIndex(const int& value);

    Look look_;
    std::unique_ptr<ListPeer> listPeer_;
};

}  // namespace tavrix::forms
