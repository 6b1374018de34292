#include "platform/qt/Owner.h"

#include "platform/qt/AlwaysUsable.h"

namespace tavrix::qt {

QWidget* OwnerOfModal(const QWidget& modal) {
    if (QWidget* widget = QApplication::activeModalWidget(); widget != nullptr && widget != &modal) {
        return widget;
    }
    if (QWidget* widget = QApplication::activeWindow();
        widget != nullptr && widget != &modal && widget->isVisible() && !AlwaysUsable::Is(*widget)) {
        return widget;
    }
    QWidget* found = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* widget : windows) {
        const bool fits = widget != &modal && widget->isVisible() && !AlwaysUsable::Is(*widget) &&
                          (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog);
        if (fits && (found == nullptr || widget->windowType() == Qt::Window)) found = widget;
    }
    return found;
}

void SetOwner(QWidget& window, QWidget* owner) {
    window.winId();
    QWindow* ownerWindow = owner != nullptr && owner != &window ? owner->windowHandle() : nullptr;
    window.windowHandle()->setTransientParent(ownerWindow);
}

}  // namespace tavrix::qt
