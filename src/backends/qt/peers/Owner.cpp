#include "backends/qt/peers/Owner.h"

#include "backends/qt/help/AlwaysUsable.h"

namespace tavrix::qt {

namespace {

/// Whether a window may own a modal one. Those that the modal one owns may not: a circle of owners has no end.
bool MayOwn(const QWidget& widget, const QWidget& modal) {
    if (&widget == &modal || !widget.isVisible() || AlwaysUsable::Is(widget)) return false;
    const QWindow* owned = widget.windowHandle();
    const QWindow* window = modal.windowHandle();
    return owned == nullptr || window == nullptr || !window->isAncestorOf(owned, QWindow::IncludeTransients);
}

}  // namespace

QWidget* OwnerOfModal(const QWidget& modal) {
    if (QWidget* widget = QApplication::activeModalWidget(); widget != nullptr && widget != &modal) {
        return widget;
    }
    if (QWidget* widget = QApplication::activeWindow(); widget != nullptr && MayOwn(*widget, modal)) {
        return widget;
    }
    QWidget* found = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* widget : windows) {
        const bool fits = MayOwn(*widget, modal) &&
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
