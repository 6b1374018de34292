#include "backends/qt/peers/QtDropDownList.h"

#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <algorithm>

namespace tavrix::qt {

DropDownWidget::DropDownWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content)
    : SinkWidget(port, &parent), content_(content), rows_(content) {
    setFocusPolicy(Qt::StrongFocus);
    setModel(&rows_);
    setCurrentIndex(-1);
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

QSize DropDownWidget::sizeHint() const {
    // Qt looks at the rows only until the first show.
    int widest = 0;
    for (int row = 0; row < count(); ++row) {
        const int icon = itemIcon(row).isNull() ? 0 : iconSize().width() + IconGap;
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(row)) + icon);
    }
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize content(widest, std::max(fontMetrics().height(), iconSize().height()) + 2 * RowAir);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, this);
}

void DropDownWidget::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        SinkWidget::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace tavrix::qt
