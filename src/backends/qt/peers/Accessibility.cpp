#include "backends/qt/peers/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "backends/qt/peers/AccessibleList.h"
#include "backends/qt/peers/AccessibleTick.h"
#include "backends/qt/peers/CanvasWidget.h"
#include "backends/qt/peers/QtCheckBox.h"
#include "backends/qt/peers/QtOptionButton.h"
#include "backends/qt/peers/WindowWidget.h"

namespace tavrix::qt {

namespace {

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    // The bridge owns what it gets.
    if (className == QLatin1String("QRadioButton")) {
        if (auto* option = dynamic_cast<OptionWidget*>(object))
            return new AccessibleTick(*option, QAccessible::RadioButton);
    }
    if (className == QLatin1String("QCheckBox")) {
        if (auto* box = dynamic_cast<CheckWidget*>(object))
            return new AccessibleTick(*box, QAccessible::CheckBox);
    }
    if (className == QLatin1String("QAbstractScrollArea")) {
        if (auto* list = dynamic_cast<ListWidget*>(object)) return new AccessibleList(*list);
    }
    if (className != QLatin1String("QWidget")) return nullptr;
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
