#include "backends/qt/peers/QtMenuItem.h"

#include <QMenuBar>
#include <utility>

#include "backends/qt/peers/QtWindow.h"

namespace tavrix::qt {

using forms::MenuItemState;

QtMenuItem::QtMenuItem(const SinkPort& port, QtWindow& window, QtMenuItem* parent, MenuItemState state,
                       Popups& popups)
    : port_(port), window_(window), parent_(parent), state_(std::move(state)), popups_(popups) {
    if (parent_ == nullptr) {
        window_.AddBarMenu(*this);
        MakeAction(*window_.MenuParent());
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
    Push();
    container.addAction(action_);
}

void QtMenuItem::Push() {
    if (!action_) return;
    QString text = QString::fromStdString(state_.caption);
    if (state_.literal) text.replace(QLatin1Char('&'), QLatin1String("&&"));
    action_->setText(text);
    action_->setSeparator(state_.kind == MenuItemState::Kind::Separator);
    action_->setEnabled(state_.enabled);
    action_->setVisible(state_.visible);
    action_->setCheckable(state_.checked);
    action_->setChecked(state_.checked);
}

void QtMenuItem::Fill() {
    if (filled_ || !menu_) return;
    filled_ = true;
    for (QtMenuItem* entry : entries_) {
        entry->MakeAction(*menu_);
        entry->Fill();
    }
}

}  // namespace tavrix::qt
