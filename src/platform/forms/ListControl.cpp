#include "platform/forms/ListControl.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/forms/Application.h"
#include "platform/forms/Form.h"

namespace tavrix::forms {

namespace {

constexpr float DragDistance = 120;         ///< twips
constexpr Milliseconds TypingPause{1'000};  ///< after which another word begins

RowRanges Between(int a, int b) {
    return {std::min(a, b), std::max(a, b) + 1};
}

bool HasShift(int shift, int mask) {
    return (shift & mask) != 0;
}

}  // namespace

bool ListControl::Selected(int row) const {
    RequireRow(row);
    return RowSelected(row);
}

bool ListControl::RowSelected(int row) const {
    return ManySelected() ? selected_.Contains(row) : RowControl::RowSelected(row);
}

void ListControl::Select(int row, bool selected) {
    RequireRow(row);
    if (!ManySelected()) {
        if (selected) {
            ListIndex = row;
        } else if (ListIndex == row) {
            ListIndex = -1;
        }
        return;
    }
    if (selected_.Contains(row) == selected) return;
    if (selected) {
        selected_.Add(row);
    } else {
        selected_.Remove(row);
    }
    RowsChanged(row, row + 1);
}

RowRanges ListControl::Selection() const {
    if (ManySelected()) return selected_;
    return ListIndex >= 0 ? Between(ListIndex, ListIndex) : RowRanges();
}

void ListControl::SetSelection(RowRanges rows) {
    if (!rows.Empty()) {
        RequireRow(rows.Ranges().front().first);
        RequireRow(rows.Ranges().back().end - 1);
    }
    if (ManySelected()) StoreSelection(std::move(rows));
}

void ListControl::StoreSelection(RowRanges rows) {
    if (selected_ == rows) return;
    selected_ = std::move(rows);
    RowsChanged(0, RowCount());
}

void ListControl::SelectAll() {
    if (ManySelected()) StoreSelection({0, RowCount()});
}

void ListControl::SelectNone() {
    StoreSelection({});
}

void ListControl::InvertSelection() {
    if (!ManySelected()) return;
    RowRanges others = selected_;
    others.Invert(RowCount());
    StoreSelection(std::move(others));
}

void ListControl::AssignMultiSelect(const forms::MultiSelect& value) {
    if (MultiSelect.Store(value)) StoreSelection({});
}

void ListControl::RowsInserted(int at, int count) {
    press_.reset();
    selected_.RowsInserted(at, count);
    if (anchor_ >= at) anchor_ += count;
    RowControl::RowsInserted(at, count);
}

void ListControl::RowsRemoved(const RowRanges& gone) {
    press_.reset();
    selected_.RowsRemoved(gone);
    anchor_ = RowAfterRemoval(anchor_, gone);
    RowControl::RowsRemoved(gone);
}

void ListControl::RowsReset(int current, bool keepPlace) {
    press_.reset();
    selected_.Clear();
    anchor_ = -1;
    RowControl::RowsReset(current, keepPlace);
}

void ListControl::RowsRenewed(int current, RowRanges selected) {
    press_.reset();
    selected_ = ManySelected() ? std::move(selected) : RowRanges();
    anchor_ = -1;
    RowControl::RowsReset(current, true);
}

void ListControl::ShowDropPlace(std::optional<int> row) {
    if (Shown() == nullptr || !ShowsInsertionMark) return;
    if (row && *row < 0) row = RowCount();
    Shown()->SetInsertionMark(row);
}

void ListControl::Handle(const Event& event) {
    if (const auto* page = std::get_if<PageEvent>(&event)) {
        page_ = page->rows;
        return;
    }
    if (!Enabled) return;
    if (const auto* mouse = std::get_if<MouseEvent>(&event)) {
        if (mouse->action == MouseAction::Down) MouseDown(*mouse);
        if (mouse->action == MouseAction::Move) MouseMove(*mouse);
        if (mouse->action == MouseAction::Up) MouseUp(*mouse);
    } else if (const auto* chosen = std::get_if<RowEvent>(&event)) {
        Choose(*chosen);
    } else if (const auto* typed = std::get_if<CharacterEvent>(&event)) {
        TypedAhead(typed->character);
    } else {
        press_.reset();
        RowControl::Handle(event);
    }
}

bool ListControl::RaiseMouse(const MouseEvent& event) {
    Raise(event, OwnerForm().App().Screen().Info());
    return !OwnerForm().Unloaded();
}

void ListControl::MouseDown(const MouseEvent& event) {
    press_.reset();
    const bool left = event.button == MouseButton::Left;
    const bool onRow = event.row >= 0 && event.row < RowCount();
    bool chosen = false;
    if (onRow) {
        const int former = ListIndex;
        const bool waits = left && ManySelected() && selected_.Contains(event.row);
        chosen = (left && !waits) || event.row != former;
        if (left) press_ = Press{event, former, selected_, waits, false, false};
        StoreCurrent(event.row);
        if (left && !waits) ApplyClick(event.row, event.shift, former);
    }
    if (!RaiseMouse(event)) return;
    if (Dragged()) {
        press_.reset();
        return;
    }
    if (chosen && !(press_ && press_->waits)) RowChosen();
}

void ListControl::MouseMove(const MouseEvent& event) {
    if (press_ && HasShift(event.button, MouseButton::Left)) {
        const ScreenInfo screen = OwnerForm().App().Screen().Info();
        const float far =
            std::max(std::abs(static_cast<float>(event.x - press_->event.x)) * screen.twipsPerPixelX,
                     std::abs(static_cast<float>(event.y - press_->event.y)) * screen.twipsPerPixelY);
        if (!press_->moved && far >= DragDistance) {
            press_->moved = true;
            if (OnDragStart) OnDragStart(InTwips(press_->event, screen));
            if (OwnerForm().Unloaded()) return;
            if (Dragged()) {
                press_.reset();
                return;
            }
        }
        const bool mayDrag = OnDragStart != nullptr && press_ && !press_->moved;
        if (press_ && ManySelected() && !mayDrag && event.row >= 0 && event.row < RowCount() &&
            event.row != ListIndex)
            SweepTo(event.row);
    }
    RaiseMouse(event);
}

void ListControl::MouseUp(const MouseEvent& event) {
    if (event.button == MouseButton::Left && press_) {
        const Press press = *std::exchange(press_, std::nullopt);
        if (press.waits && !press.sweeps) {
            ApplyClick(press.event.row, press.event.shift, press.formerCurrent);
            RowChosen();
            if (OwnerForm().Unloaded()) return;
        }
    }
    RaiseMouse(event);
}

void ListControl::SweepTo(int row) {
    press_->sweeps = true;
    RowRanges selected = selected_;
    if (MultiSelect.Get() == MultiSelect::Toggling) {
        const int former = ListIndex >= 0 ? ListIndex.Get() : press_->event.row;
        selected.Add(std::min(former, row), std::max(former, row) + 1);
    } else {
        if (press_->waits) anchor_ = press_->event.row;
        if (anchor_ < 0) anchor_ = press_->event.row;
        const RowRanges swept = Between(anchor_, row);
        selected = HasShift(press_->event.shift, ShiftMask::Ctrl) ? press_->base : RowRanges();
        selected.Add(swept.Ranges().front().first, swept.Ranges().front().end);
    }
    StoreCurrent(row);
    StoreSelection(std::move(selected));
}

void ListControl::ApplyClick(int row, int shift, int formerCurrent) {
    if (!ManySelected()) return;
    const bool flips = MultiSelect.Get() == MultiSelect::Toggling || shift == ShiftMask::Ctrl;
    if (flips) {
        anchor_ = row;
        Select(row, !selected_.Contains(row));
        return;
    }
    if (!HasShift(shift, ShiftMask::Shift)) {
        anchor_ = row;
        StoreSelection(Between(row, row));
        return;
    }
    if (anchor_ < 0) anchor_ = formerCurrent >= 0 ? formerCurrent : row;
    RowRanges selected = HasShift(shift, ShiftMask::Ctrl) ? selected_ : RowRanges();
    selected.Add(std::min(anchor_, row), std::max(anchor_, row) + 1);
    StoreSelection(std::move(selected));
}

void ListControl::Choose(const RowEvent& chosen) {
    if (chosen.row < 0 || chosen.row >= RowCount()) return;
    press_.reset();
    if (chosen.how != RowEvent::How::Click && ManySelected()) {
        Select(chosen.row, chosen.how == RowEvent::How::Select);
        return;
    }
    if (chosen.how == RowEvent::How::Deselect) return;
    const int former = ListIndex;
    StoreCurrent(chosen.row);
    ApplyClick(chosen.row, ShiftMask::None, former);
    RowChosen();
}

int ListControl::RowFor(int keyCode) const {
    const int current = ListIndex;
    const int last = RowCount() - 1;
    const int page = std::max(page_ - 1, 1);
    switch (keyCode) {
        case KeyCode::Up:
            return std::max(current - 1, 0);
        case KeyCode::Down:
            return std::min(current + 1, last);
        case KeyCode::PageUp:
            return std::max(current - page, 0);
        case KeyCode::PageDown:
            return std::min(std::max(current, 0) + page, last);
        case KeyCode::Home:
            return 0;
        case KeyCode::End:
            return last;
        default:
            return -1;
    }
}

void ListControl::KeyPressed(int& keyCode, int shift) {
    if (!Enabled) return;
    if (keyCode == KeyCode::Apps || (keyCode == KeyCode::F10 && shift == ShiftMask::Shift)) {
        keyCode = 0;
        PressForMenu();
        return;
    }
    if (RowCount() == 0 || HasShift(shift, ShiftMask::Alt)) return;
    if (const int row = RowFor(keyCode); row >= 0) {
        keyCode = 0;
        MoveTo(row, shift);
        return;
    }
    if (!ManySelected()) return;
    if (keyCode == KeyCode::Space && ListIndex >= 0 && !TypingAhead()) {
        keyCode = 0;
        ApplyClick(ListIndex, shift, ListIndex);
        RowChosen();
    } else if (keyCode == 'A' && shift == ShiftMask::Ctrl) {
        keyCode = 0;
        SelectAll();
        RowChosen();
    }
}

void ListControl::MoveTo(int row, int shift) {
    const int former = ListIndex;
    RowRanges before = selected_;
    StoreCurrent(row);
    const bool selects = MultiSelect.Get() == MultiSelect::Extended && shift != ShiftMask::Ctrl;
    if (selects) ApplyClick(row, shift, former);
    if (row != former || before != selected_) RowChosen();
}

void ListControl::PressForMenu() {
    for (const MouseAction action : {MouseAction::Down, MouseAction::Up}) {
        MouseEvent press;
        press.action = action;
        press.button = MouseButton::Right;
        press.row = ListIndex;
        if (!RaiseMouse(press)) return;
    }
}

bool ListControl::TypingAhead() const {
    return !typed_.empty() && OwnerForm().App().GetToolkit().Now() - typedAt_ < TypingPause;
}

void ListControl::TypedAhead(const std::string& character) {
    if (OnCharacter && OnCharacter(character)) return;
    if (!TypeAhead || RowCount() == 0) return;
    if (!TypingAhead()) typed_.clear();
    typedAt_ = OwnerForm().App().GetToolkit().Now();
    const bool again = typed_ == character;  // the same letter goes from row to row
    if (!again) typed_ += character;
    const bool next = again || CharacterCount(typed_) == 1;
    const int row = RowBeginningWith(typed_, next ? ListIndex + 1 : std::max(ListIndex.Get(), 0));
    if (row >= 0) MoveTo(row, ShiftMask::None);
}

int ListControl::RowBeginningWith(const std::string& text, int from) const {
    const int count = RowCount();
    const std::size_t length = CharacterCount(text);
    for (int i = 0; i < count; ++i) {
        const int row = (from + i) % count;
        if (EqualIgnoringCase(tavrix::Left(Row(row).text, length), text)) return row;
    }
    return -1;
}

}  // namespace tavrix::forms
