#include "platform/forms/RowControl.h"

#include "base/RuntimeError.h"

namespace tavrix::forms {

ControlPeer& RowControl::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    listPeer_ = look_ == Look::List ? toolkit.CreateList(*this, container, *this)
                                    : toolkit.CreateDropDownList(*this, container, *this);
    if (ListIndex >= 0) listPeer_->CurrentChanged();
    return *listPeer_;
}

void RowControl::Handle(const Event& event) {
    if (!Enabled) return;
    if (const auto* chosen = std::get_if<RowEvent>(&event)) {
        if (chosen->row < 0 || chosen->row >= RowCount()) return;
        ListIndex.Store(chosen->row);
        RowChosen();
    } else if (std::holds_alternative<DoubleClickEvent>(event)) {
        if (ListIndex >= 0) RowDoubleClicked();
    }
}

void RowControl::RowChosen() {
    if (OnClick) OnClick();
}

void RowControl::RowDoubleClicked() {
    if (OnDblClick) OnDblClick();
}

void RowControl::RowsInserted(int at, int count) {
    if (ListIndex >= at) ListIndex.Store(ListIndex + count);
    if (listPeer_) listPeer_->RowsInserted(at, count);
}

void RowControl::RowsRemoved(const RowRanges& gone) {
    ListIndex.Store(RowAfterRemoval(ListIndex, gone));
    if (listPeer_) listPeer_->RowsRemoved(gone);
}

void RowControl::RowsChanged(int first, int end) {
    if (listPeer_ && first < end) listPeer_->RowsChanged(first, end);
}

void RowControl::RowsReset(int current, bool keepPlace) {
    ListIndex.Store(current);
    if (!listPeer_) return;
    listPeer_->RowsReset(keepPlace);
    if (current >= 0 && !keepPlace) listPeer_->CurrentChanged();
}

bool RowControl::StoreCurrent(int row) {
    if (!ListIndex.Store(row)) return false;
    if (listPeer_) listPeer_->CurrentChanged();
    return true;
}

void RowControl::RequireRow(int row) const {
    if (row < 0 || row >= RowCount()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
}

void RowControl::AssignListIndex(const int& value) {
    if (value != -1) RequireRow(value);
    if (StoreCurrent(value) && value >= 0 && OnClick) OnClick();
}

}  // namespace tavrix::forms
