#include "backends/qt/peers/AccessibleTick.h"

#include <QKeySequence>

#include "backends/qt/peers/Mnemonics.h"

namespace tavrix::qt {

AccessibleTick::AccessibleTick(QAbstractButton& button, QAccessible::Role role)
    : QAccessibleWidget(&button, role) {}

QAbstractButton& AccessibleTick::Button() const {
    return static_cast<QAbstractButton&>(*widget());
}

QString AccessibleTick::text(QAccessible::Text kind) const {
    // Qt would name it after the frame that it lies in.
    if (kind == QAccessible::Name && Button().accessibleName().isEmpty())
        return WithoutMarks(Button().text());
    if (kind == QAccessible::Accelerator) return Button().shortcut().toString(QKeySequence::NativeText);
    return QAccessibleWidget::text(kind);
}

QAccessible::State AccessibleTick::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = Button().isChecked();
    state.pressed = Button().isDown();
    return state;
}

QStringList AccessibleTick::actionNames() const {
    QStringList names;
    if (Button().isEnabled()) names << toggleAction();
    return names << QAccessibleWidget::actionNames();
}

void AccessibleTick::doAction(const QString& actionName) {
    if (actionName != toggleAction()) {
        QAccessibleWidget::doAction(actionName);
        return;
    }
    // A handler may open a window, and whoever asked for the action is to be free to read it.
    const auto click = [button = &Button()] {
        if (!button->isEnabled()) return;
        button->setFocus(Qt::ShortcutFocusReason);
        button->click();
    };
    QMetaObject::invokeMethod(&Button(), click, Qt::QueuedConnection);
}

QStringList AccessibleTick::keyBindingsForAction(const QString& actionName) const {
    if (actionName == toggleAction()) return {Button().shortcut().toString()};
    return QAccessibleWidget::keyBindingsForAction(actionName);
}

}  // namespace tavrix::qt
