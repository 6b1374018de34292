#include "backends/qt/peers/RowIcons.h"

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

const QIcon& RowIcons::Of(RowIcon icon) const {
    QIcon& made = icons_.at(static_cast<std::size_t>(icon));
    if (made.isNull()) made = QApplication::style()->standardIcon(PixmapOf(icon));
    return made;
}

}  // namespace tavrix::qt
