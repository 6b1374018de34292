#include "backends/qt/peers/QtList.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace tavrix::qt {

ListWidget::ListWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content)
    : SinkWidget(port, &parent), rows_(content) {
    setFocusPolicy(Qt::StrongFocus);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    const int iconSide = style()->pixelMetric(QStyle::PM_SmallIconSize);
    setIconSize({iconSide, iconSide});
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setItemDelegate(&delegate_);
    setModel(&rows_);
    setCurrentIndex({});  // else Qt makes a row current when the list gets the focus
}

void ListWidget::Detach() {
    SinkWidget::Detach();
    busy_ = true;
    rows_.Detach();
}

QSize ListWidget::sizeHint() const {
    constexpr int Characters = 24;
    constexpr int Rows = 8;
    return {Characters * fontMetrics().averageCharWidth(), Rows * fontMetrics().lineSpacing()};
}

void ListWidget::ResetRows() {
    const QScopedValueRollback quiet(busy_, true);
    known_ = -1;
    rows_.Reset();
    setCurrentIndex({});
    scrollToTop();
}

void ListWidget::PushCurrent(int row) {
    const QScopedValueRollback quiet(busy_, true);
    known_ = row;
    const QModelIndex index = rows_.index(row);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (index.isValid()) scrollTo(index);
}

void ListWidget::Choose(const QModelIndex& index) {
    const QScopedValueRollback quiet(busy_, true);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void ListWidget::TellRow(int row) {
    known_ = row;
    Port().Deliver(forms::RowEvent{row});
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) return;
    const int row = index.row();
    if (row == known_ && event->button() != Qt::LeftButton) return;
    Choose(index);
    TellRow(row);
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid() && index.row() == known_) {
        Port().Deliver(forms::DoubleClickEvent{});
    } else {
        mousePressEvent(event);  // the second press met another row
    }
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape) {
        event->ignore();  // they are the window's
        return;
    }
    {
        const QScopedValueRollback quiet(busy_, true);
        SinkWidget::keyPressEvent(event);
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    }
    const int row = currentIndex().row();
    if (row >= 0 && row != known_) TellRow(row);
}

void ListWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    SinkWidget::currentChanged(current, previous);
    if (!busy_ && current.isValid()) TellRow(current.row());
}

void ListWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    SinkWidget::selectionChanged(selected, deselected);
    // A screen reader selects a row without making it the current one.
    if (busy_ || selected.isEmpty()) return;
    const QModelIndex index = selected.indexes().first();
    if (index != currentIndex()) selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

}  // namespace tavrix::qt
