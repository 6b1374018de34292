#include "backends/qt/peers/QtMenuItem.h"

#include <QMenuBar>
#include <algorithm>
#include <utility>

#include "backends/qt/peers/QtWindow.h"

namespace tavrix::qt {

using forms::MenuItemState;

QtMenuItem::QtMenuItem(const SinkPort& port, QtWindow& window, QtMenuItem* parent, MenuItemState state,
                       Popups& popups)
    : port_(port), window_(window), parent_(parent), state_(std::move(state)), popups_(popups) {
    if (parent_ == nullptr) {
        window_.AddBarMenu(*this);
        if (!window_.BarWaits()) MakeAction(*window_.MenuParent());
    } else {
        parent_->entries_.push_back(this);
        if (parent_->filled_) {
            MakeAction(*parent_->menu_);
            Fill();
        }
    }
}

QtMenuItem::~QtMenuItem() {
    port_.Detach();
    popups_.Forget(*this);
    if (parent_ != nullptr) {
        std::erase(parent_->entries_, this);
    } else {
        window_.RemoveBarMenu(*this);
    }
    for (QtMenuItem* entry : entries_)
        entry->parent_ = nullptr;
    if (action_) action_->setVisible(false);
    if (menu_) {
        menu_->deleteLater();
    } else if (action_) {
        action_->deleteLater();
    }
}

void QtMenuItem::Update(const MenuItemState& state) {
    if (state == state_) return;
    state_ = state;
    Push();
}

void QtMenuItem::MakeAction(QWidget& container) {
    if (state_.kind == MenuItemState::Kind::SubMenu) {
        menu_ = new QMenu(&container);
        menu_->setSeparatorsCollapsible(false);
        action_ = menu_->menuAction();
        QObject::connect(menu_, &QMenu::aboutToShow, menu_, [this] { Fill(); });
    } else {
        action_ = new QAction(&container);
        QObject::connect(action_, &QAction::triggered, action_, [this] {
            if (!port_.Attached()) return;
            action_->setChecked(state_.checked);  // only the program checks entries
            if (!popups_.Note(*this)) DeliverClick();
        });
    }
    container_ = &container;
    Push();
}

// Entries that have never had a name are not listed, since a screen reader would find them there.
void QtMenuItem::List() {
    if (listed_ || !container_ || (!state_.visible && state_.caption.empty())) return;
    listed_ = true;
    QAction* next = nullptr;
    if (parent_ != nullptr) {
        auto at = std::ranges::find(parent_->entries_, this);
        while (at != parent_->entries_.end() && (*at == this || !(*at)->listed_))
            ++at;
        if (at != parent_->entries_.end()) next = (*at)->action_;
    }
    container_->insertAction(next, action_);
}

void QtMenuItem::Push() {
    if (!action_) return;
    QString text = QString::fromStdString(state_.caption);
    if (state_.literal) text.replace(QLatin1Char('&'), QLatin1String("&&"));
    const bool separator = state_.kind == MenuItemState::Kind::Separator;
    // A line with a text would be drawn as the heading of what follows.
    action_->setText(separator ? QString() : text);
    action_->setSeparator(separator);
    action_->setEnabled(state_.enabled);
    action_->setVisible(state_.visible);
    action_->setCheckable(state_.checkable);
    action_->setChecked(state_.checked);
    List();
}

void QtMenuItem::Fill() {
    if (parent_ == nullptr && !container_) MakeAction(*window_.MenuParent());
    if (filled_ || !menu_) return;
    filled_ = true;
    for (QtMenuItem* entry : entries_) {
        entry->MakeAction(*menu_);
        entry->Fill();
    }
}

}  // namespace tavrix::qt
