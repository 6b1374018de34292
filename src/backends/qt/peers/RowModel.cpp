#include "backends/qt/peers/RowModel.h"

namespace tavrix::qt {

void RowModel::Reset() {
    beginResetModel();
    endResetModel();
}

void RowModel::Changed(int first, int end) {
    emit dataChanged(index(first), index(end - 1));
}

void RowModel::Detach() {
    beginResetModel();
    content_ = nullptr;
    endResetModel();
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || content_ == nullptr ? 0 : content_->RowCount();
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    const bool known = role == Qt::DisplayRole || role == Qt::DecorationRole;
    if (!known || index.row() < 0 || index.row() >= rowCount()) return {};
    const forms::ListRow row = content_->Row(index.row());
    if (role == Qt::DisplayRole) return QString::fromStdString(row.text);
    return row.icon != forms::RowIcon::None ? QVariant(icons_.Of(row.icon)) : QVariant();
}

}  // namespace tavrix::qt
