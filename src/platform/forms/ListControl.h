#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/forms/Mouse.h"
#include "platform/forms/RowControl.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

/// How rows of a list are selected.
enum class MultiSelect : std::uint8_t {
    None,      ///< the current row, and no other
    Toggling,  ///< a click or the space bar selects a row, or takes it out again
    Extended   ///< a click selects one row; Shift selects up to there, Ctrl one more or one less
};

/// A list: what mouse and keys do to its rows, the same for every backend.
///
/// Where several rows can be selected, the current row and the selected ones are apart: assigning ListIndex selects
/// nothing, and selecting moves nothing. A press makes its row the current one. What a left press on a selected row does
/// to the selection is decided when the button goes up, so that a drag takes all that is selected; a right press leaves
/// the selection as it is. Moving with the left button held selects what it comes over.
class ListControl : public RowControl, public MouseHandlers {
  public:
    /// To be told before rows are selected.
    Property<forms::MultiSelect> MultiSelect{this, &ListControl::AssignMultiSelect, MultiSelect::None};
    /// Whether typed characters look for a row that begins with them.
    bool TypeAhead = true;
    /// A character was typed, on whatever layout, after the key event of its key; one comes for each repetition of a held
    /// key. True: it is a command of the list, and looks for no row.
    std::function<bool(const std::string& character)> OnCharacter;
    /// Whether a mark shows the place to which something that is dragged over the list would go.
    bool ShowsInsertionMark = false;

    /// The left button was pressed on a row, and the mouse has moved so far with it that a drag is meant. The arguments
    /// are those of the press. A handler that does not call Drag lets the move select.
    std::function<void(const MouseArguments&)> OnDragStart;

    // Selecting raises no event. With MultiSelect::None the current row is the one that is selected: Select makes it so,
    // which raises OnClick, and the commands for many rows do nothing.
    /// Throws RuntimeError 380 for a row that is not there.
    [[nodiscard]] bool Selected(int row) const;
    /// Throws RuntimeError 380 for a row that is not there.
    void Select(int row, bool selected = true);
    [[nodiscard]] int SelectedCount() const { return Selection().Count(); }
    [[nodiscard]] RowRanges Selection() const;
    /// In the place of what is selected now. Throws RuntimeError 380 for a row that is not there.
    void SetSelection(RowRanges rows);
    void SelectAll();
    void SelectNone();
    void InvertSelection();

  protected:
    ListControl(Container& container, std::string name)
        : RowControl(container, std::move(name), Look::List) {}

    void Handle(const Event& event) override;
    void KeyPressed(int& keyCode, int shift) override;
    void RowsInserted(int at, int count) override;
    /// Rows that are gone are selected no more.
    void RowsRemoved(const RowRanges& gone) override;
    /// Nothing is selected then.
    void RowsReset(int current, bool keepPlace = false) override;
    /// The same with a selection, and without scrolling: the rows are in another order, or were read again.
    void RowsRenewed(int current, RowRanges selected);

    [[nodiscard]] bool ManySelected() const override { return MultiSelect.Get() != MultiSelect::None; }
    [[nodiscard]] bool RowSelected(int row) const override;

  private:
    /// The left button is held since it was pressed on a row.
    struct Press {
        MouseEvent event;
        int formerCurrent = -1;
        RowRanges base;       ///< what was selected before
        bool waits = false;   ///< what it does to the selection is decided at the release
        bool moved = false;   ///< far enough for a drag
        bool sweeps = false;  ///< and came over other rows
    };

    void AssignMultiSelect(const forms::MultiSelect& value);
    void ShowDropPlace(std::optional<int> row) override;
    /// False: the control is no more to be touched.
    bool RaiseMouse(const MouseEvent& event);
    void MouseDown(const MouseEvent& event);
    void MouseMove(const MouseEvent& event);
    void MouseUp(const MouseEvent& event);
    void SweepTo(int row);
    /// What a click on a row does to the selection.
    void ApplyClick(int row, int shift, int formerCurrent);
    void Choose(const RowEvent& chosen);
    void MoveTo(int row, int shift);
    void PressForMenu();
    void TypedAhead(const std::string& character);
    [[nodiscard]] int RowFor(int keyCode) const;
    [[nodiscard]] int RowBeginningWith(const std::string& text, int from) const;
    [[nodiscard]] bool TypingAhead() const;
    void StoreSelection(RowRanges rows);

    RowRanges selected_;
    int anchor_ = -1;  ///< from where Shift selects
    int page_ = 10;    ///< rows that there is room for
    std::optional<Press> press_;
    std::string typed_;
    Milliseconds typedAt_{0};
};

}  // namespace tavrix::forms
