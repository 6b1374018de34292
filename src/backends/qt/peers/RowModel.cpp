#include "backends/qt/peers/RowModel.h"

#include <QApplication>
#include <QStyle>

namespace tavrix::qt {

using forms::RowIcon;

namespace {

QStyle::StandardPixmap PixmapOf(RowIcon icon) {
    switch (icon) {
        case RowIcon::OpenFolder:
            return QStyle::SP_DirOpenIcon;
        case RowIcon::FloppyDrive:
            return QStyle::SP_DriveFDIcon;
        case RowIcon::FixedDrive:
        case RowIcon::RamDrive:
            return QStyle::SP_DriveHDIcon;
        case RowIcon::NetworkDrive:
            return QStyle::SP_DriveNetIcon;
        case RowIcon::CdDrive:
            return QStyle::SP_DriveCDIcon;
        case RowIcon::Folder:
        case RowIcon::None:
            break;
    }
    return QStyle::SP_DirIcon;
}

}  // namespace

void RowModel::Reset() {
    beginResetModel();
    endResetModel();
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
    const bool known = role == Qt::DisplayRole || role == Qt::DecorationRole || role == IndentRole;
    if (!known || index.row() < 0 || index.row() >= rowCount()) return {};
    const forms::ListRow row = content_->Row(index.row());
    if (role == Qt::DisplayRole) return QString::fromStdString(row.text);
    if (role == IndentRole) return row.indent;
    return row.icon != RowIcon::None ? QVariant(IconOf(row.icon)) : QVariant();
}

const QIcon& RowModel::IconOf(RowIcon icon) const {
    QIcon& made = icons_.at(static_cast<std::size_t>(icon));
    if (made.isNull()) made = QApplication::style()->standardIcon(PixmapOf(icon));
    return made;
}

}  // namespace tavrix::qt
