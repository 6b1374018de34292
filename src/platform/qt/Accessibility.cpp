#include "platform/qt/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "platform/qt/CanvasWidget.h"

namespace tavrix::qt {

namespace {

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    if (className != QLatin1String("QWidget")) return nullptr;
    auto* canvas = dynamic_cast<CanvasWidget*>(object);
    // The bridge owns what it gets.
    return canvas != nullptr ? new QAccessibleWidget(canvas, QAccessible::Graphic) : nullptr;
}

}  // namespace

void InstallAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

}  // namespace tavrix::qt
