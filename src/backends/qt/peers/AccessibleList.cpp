#include "backends/qt/peers/AccessibleList.h"

namespace tavrix::qt {

AccessibleList::AccessibleList(ListWidget& list) : QAccessibleWidget(&list, QAccessible::List) {}

AccessibleList::~AccessibleList() {
    for (const QAccessible::Id id : std::as_const(rows_))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessible::State AccessibleList::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = childCount() > 0 && List().Content().ManySelected();
    return state;
}

QAccessibleInterface* AccessibleList::child(int index) const {
    if (!Has(index)) return nullptr;
    const auto known = rows_.constFind(index);
    if (known != rows_.cend()) return QAccessible::accessibleInterface(*known);
    auto* row = new AccessibleRow(List(), index);  // the bridge owns it
    rows_.insert(index, QAccessible::registerAccessibleInterface(row));
    return row;
}

int AccessibleList::indexOfChild(const QAccessibleInterface* child) const {
    const auto* row = dynamic_cast<const AccessibleRow*>(child);
    return row != nullptr ? row->Number() : -1;
}

QAccessibleInterface* AccessibleList::childAt(int x, int y) const {
    return child(List().RowAt(List().viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* AccessibleList::focusChild() const {
    return childCount() > 0 ? child(List().Content().CurrentRow()) : nullptr;
}

void* AccessibleList::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* AccessibleList::cellAt(int row, int column) const {
    return column == 0 ? child(row) : nullptr;
}

QList<QAccessibleInterface*> AccessibleList::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        cells.push_back(child(row));
    return cells;
}

int AccessibleList::selectedRowCount() const {
    return static_cast<int>(selectedRows().size());
}

QList<int> AccessibleList::selectedRows() const {
    QList<int> rows;
    for (int row = 0; row < childCount(); ++row) {
        if (isRowSelected(row)) rows.push_back(row);
    }
    return rows;
}

bool AccessibleList::isRowSelected(int row) const {
    return Has(row) && List().Content().RowSelected(row);
}

bool AccessibleList::selectRow(int row) {
    if (!Has(row)) return false;
    List().ActOn({row, forms::RowEvent::How::Select});
    return true;
}

bool AccessibleList::unselectRow(int row) {
    if (!Has(row)) return false;
    List().ActOn({row, forms::RowEvent::How::Deselect});
    return true;
}

QAccessibleInterface* AccessibleRow::parent() const {
    return QAccessible::queryAccessibleInterface(list_.data());
}

QString AccessibleRow::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !isValid()) return {};
    return QString::fromStdString(list_->Content().Row(row_).text);
}

QRect AccessibleRow::rect() const {
    if (!isValid()) return {};
    const QRect place = list_->PlaceOfRow(row_);
    return {list_->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State AccessibleRow::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.multiSelectable = list_->Content().ManySelected();
    state.selected = isSelected();
    state.focused = list_->hasFocus() && row_ == list_->Content().CurrentRow();
    state.active = row_ == list_->Content().CurrentRow();
    state.disabled = !list_->isEnabled();
    const QRect shown = list_->viewport()->rect().intersected(list_->PlaceOfRow(row_));
    state.invisible = !list_->isVisible() || shown.isEmpty();
    return state;
}

void* AccessibleRow::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool AccessibleRow::isSelected() const {
    return isValid() && list_->Content().RowSelected(row_);
}

QStringList AccessibleRow::actionNames() const {
    return isValid() && list_->isEnabled() ? QStringList{pressAction()} : QStringList();
}

void AccessibleRow::doAction(const QString& actionName) {
    if (isValid() && actionName == pressAction()) list_->ActOn({row_, forms::RowEvent::How::Click});
}

}  // namespace tavrix::qt
