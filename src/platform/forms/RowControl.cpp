#include "platform/forms/RowControl.h"

#include "base/RuntimeError.h"

namespace tavrix::forms {

ControlPeer& RowControl::CreatePeer(Toolkit& toolkit, ControlPeer& container) {
    listPeer_ = look_ == Look::List ? toolkit.CreateList(*this, container, *this)
                                    : toolkit.CreateDropDownList(*this, container, *this);
    if (ListIndex >= 0) listPeer_->SetCurrent(ListIndex);
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

void RowControl::RowsChanged(int current) {
    ListIndex.Store(current);
    if (!listPeer_) return;
    listPeer_->ResetRows();
    if (current >= 0) listPeer_->SetCurrent(current);
}

void RowControl::AssignListIndex(const int& value) {
    if (value < -1 || value >= RowCount()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    if (!ListIndex.Store(value)) return;
    if (listPeer_) listPeer_->SetCurrent(value);
    if (value >= 0 && OnClick) OnClick();
}

}  // namespace tavrix::forms
