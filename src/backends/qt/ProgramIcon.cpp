#include "backends/qt/ProgramIcon.h"

#include <QPixmap>

/// The resource is in a static library, which nothing else would bring in. Its own function is in no namespace.
static void LoadResource() {
    Q_INIT_RESOURCE(icons);
}

namespace tavrix::qt {

QIcon ProgramIcon() {
    LoadResource();
    QIcon icon;
    // Pixmaps, and not files: an icon that is told a file looks for a plugin for its kind first.
    for (const int size : {16, 24, 32, 48, 64})
        icon.addPixmap(QPixmap(QStringLiteral(":/icons/%1/tavrix.png").arg(size), "PNG"));
    return icon;
}

}  // namespace tavrix::qt
