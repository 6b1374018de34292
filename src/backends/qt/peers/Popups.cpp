#include "backends/qt/peers/Popups.h"

#include <QCursor>
#include <algorithm>
#include <utility>

#include "backends/qt/peers/QtMenuItem.h"
#include "backends/qt/peers/SinkPort.h"

namespace tavrix::qt {

void Popups::Open(QtMenuItem& subMenu, const QtMenuItem* defaultEntry, std::function<void()> closed) {
    if (closed_) Finish();
    root_ = &subMenu;
    chosen_ = nullptr;
    closed_ = std::move(closed);
    subMenu.Fill();
    QMenu* menu = subMenu.SubMenu();
    const auto shown = [](const QAction* action) { return action->isVisible(); };
    if (menu == nullptr || std::ranges::none_of(menu->actions(), shown)) {
        FinishSoon();
        return;
    }
    menu->setDefaultAction(defaultEntry != nullptr ? defaultEntry->Action() : nullptr);
    QObject::connect(menu, &QMenu::aboutToHide, &context_, [this] { FinishSoon(); });
    menu->popup(QCursor::pos());
}

bool Popups::Note(QtMenuItem& entry) {
    if (!closed_) return false;
    chosen_ = &entry;
    return true;
}

void Popups::Forget(const QtMenuItem& entry) {
    if (chosen_ == &entry) chosen_ = nullptr;
    if (root_ != &entry) return;
    root_ = nullptr;
    if (closed_) FinishSoon();
}

void Popups::FinishSoon() {
    // The choice is told only after the menu has been hidden.
    QMetaObject::invokeMethod(
        &context_, [this] { Finish(); }, Qt::QueuedConnection);
}

void Popups::Finish() {
    if (!closed_) return;
    if (root_ != nullptr && root_->SubMenu() != nullptr) {
        root_->SubMenu()->disconnect(&context_);
        root_->SubMenu()->setDefaultAction(nullptr);
    }
    root_ = nullptr;
    const auto closed = std::exchange(closed_, nullptr);
    const QtMenuItem* chosen = std::exchange(chosen_, nullptr);
    const LogicCalls::Scope scope(calls_);
    closed();
    if (chosen != nullptr) chosen->DeliverClick();
}

}  // namespace tavrix::qt
