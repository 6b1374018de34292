#include "backends/qt/peers/RowDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

#include "backends/qt/peers/PlainToolTip.h"
#include "backends/qt/peers/RowModel.h"

namespace tavrix::qt {

namespace {

constexpr int IndentStep = 10;  ///< logical pixels

QStyleOptionViewItem Indented(const QStyleOptionViewItem& option, const QModelIndex& index) {
    QStyleOptionViewItem indented = option;
    indented.rect.setLeft(option.rect.left() + IndentStep * index.data(RowModel::IndentRole).toInt());
    return indented;
}

}  // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, Indented(option, index), index);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    // Rows are as wide as their list, so that the first one, which stands for all, does not make it scroll across.
    return {1, QStyledItemDelegate::sizeHint(option, index).height()};
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool cut = index.isValid() && QStyledItemDelegate::sizeHint(option, index).width() >
                                            Indented(option, index).rect.width();
    QToolTip::showText(event->globalPos(), cut ? PlainToolTip(index.data().toString()) : view->toolTip(),
                       view);
    return true;
}

}  // namespace tavrix::qt
