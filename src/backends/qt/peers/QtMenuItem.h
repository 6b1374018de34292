#pragma once

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <vector>

#include "backends/qt/peers/Popups.h"
#include "backends/qt/peers/SinkPort.h"
#include "platform/forms/Peers.h"

namespace tavrix::qt {

class QtWindow;

/// An entry of a menu. The menus of a bar and what lies below them have no widgets until they are filled, since nobody
/// looks into menus before the first picture is on the screen.
class QtMenuItem final : public forms::MenuItemPeer {
  public:
    QtMenuItem(const SinkPort& port, QtWindow& window, QtMenuItem* parent, forms::MenuItemState state,
               Popups& popups);
    ~QtMenuItem() override;
    QtMenuItem(const QtMenuItem&) = delete;
    QtMenuItem& operator=(const QtMenuItem&) = delete;

    void Update(const forms::MenuItemState& state) override;

    /// Makes the entries below, all the way down, and for a menu of the bar that one first.
    void Fill();
    /// Null for an entry that has nothing below it, and before it was made.
    [[nodiscard]] QMenu* SubMenu() const { return menu_; }
    [[nodiscard]] QAction* Action() const { return action_; }
    void DeliverClick() const { port_.Deliver(forms::ClickEvent{}); }

  private:
    void MakeAction(QWidget& container);
    void Push();
    void List();

    SinkPort port_;
    QtWindow& window_;
    QtMenuItem* parent_;
    std::vector<QtMenuItem*> entries_;
    forms::MenuItemState state_;
    Popups& popups_;
    QPointer<QAction> action_;
    QPointer<QMenu> menu_;
    QPointer<QWidget> container_;
    bool listed_ = false;
    bool filled_ = false;
};

}  // namespace tavrix::qt
