#include "backends/qt/peers/QtDropDownList.h"

#include <QWheelEvent>

namespace tavrix::qt {

DropDownWidget::DropDownWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content)
    : SinkWidget(port, &parent), content_(content), rows_(content) {
    setFocusPolicy(Qt::StrongFocus);
    setModel(&rows_);
    setCurrentIndex(-1);
    setSizeAdjustPolicy(AdjustToContents);  // by its widest row, also when it is asked anew
    connect(this, &QComboBox::activated, this, [this](int row) { Port().Deliver(forms::RowEvent{row}); });
}

void DropDownWidget::Detach() {
    SinkWidget::Detach();
    hidePopup();
    rows_.Detach();
}

void DropDownWidget::RowsReset() {
    hidePopup();
    rows_.Reset();
    CurrentChanged();  // Qt has taken the first one
}

void DropDownWidget::CurrentChanged() {
    setCurrentIndex(content_.CurrentRow());
}

void DropDownWidget::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        SinkWidget::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace tavrix::qt
