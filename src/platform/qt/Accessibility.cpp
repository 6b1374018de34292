#include "platform/qt/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/CanvasWidget.h"
#include "platform/qt/WindowWidget.h"

namespace tavrix::qt {

namespace {

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    if (className != QLatin1String("QWidget")) return nullptr;
    // The bridge owns what it gets.
    if (auto* canvas = dynamic_cast<CanvasWidget*>(object))
        return new QAccessibleWidget(canvas, QAccessible::Graphic);
    if (auto* window = dynamic_cast<WindowWidget*>(object)) {
        const bool dialog = window->windowType() == Qt::Dialog;
        return new QAccessibleWidget(window, dialog ? QAccessible::Dialog : QAccessible::Window);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

}  // namespace tavrix::qt
