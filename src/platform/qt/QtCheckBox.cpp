#include "platform/qt/QtCheckBox.h"

#include <QShortcutEvent>

namespace tavrix::qt {

CheckWidget::CheckWidget(QWidget& parent, const SinkPort& port) : SinkWidget(port, &parent) {
    connect(this, &QCheckBox::clicked, this,
            [this](bool checked) { Port().Deliver(forms::CheckEvent{checked}); });
}

bool CheckWidget::event(QEvent* event) {
    // The mnemonic gives the focus too; Qt would not tell that the user did it.
    if (event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
        setFocus(Qt::ShortcutFocusReason);
    }
    return SinkWidget::event(event);
}

}  // namespace tavrix::qt
