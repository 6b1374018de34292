#include "backends/qt/peers/DropDoor.h"

#include <QApplication>
#include <QDropEvent>
#include <QWidget>

#include "backends/qt/peers/ManualDrag.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/Scale.h"

namespace tavrix::qt {

using forms::DragAction;

DropDoor::DropDoor(const NativePeer& peer, const SinkPort& port, const ToDrivePath& toDrivePath)
    : QObject(peer.Native()), peer_(&peer), port_(port), toDrivePath_(toDrivePath) {
    peer.Native()->setAcceptDrops(true);
    peer.Native()->installEventFilter(this);
}

DropDoor::~DropDoor() = default;

void DropDoor::Detach() {
    port_.Detach();
    peer_ = nullptr;
}

DropDoor* DropDoor::At(QPoint screenPlace) {
    for (QWidget* widget = QApplication::widgetAt(screenPlace); widget != nullptr;
         widget = widget->parentWidget()) {
        for (QObject* child : widget->children()) {
            if (auto* door = dynamic_cast<DropDoor*>(child)) return door;
        }
        if (widget->isWindow()) break;
    }
    return nullptr;
}

forms::DragEvent DropDoor::Make(DragAction action, QPoint place) const {
    forms::DragEvent drag;
    drag.action = action;
    const double ratio = DeviceRatio();
    const QPoint inside = peer_->ControlParent()->mapFrom(peer_->Native(), place);
    drag.x = ToDevice(inside.x(), ratio);
    drag.y = ToDevice(inside.y(), ratio);
    drag.row = peer_->RowUnderDrag(place);
    return drag;
}

bool DropDoor::TellOver(QPoint place, bool files) {
    if (peer_ == nullptr || !peer_->Native()->isEnabled()) return false;
    bool wanted = false;
    forms::DragEvent drag = Make(DragAction::Over, place);
    drag.files = files;
    drag.wanted = &wanted;
    port_.Deliver(drag);
    return wanted;
}

void DropDoor::BeginDrag(const Surface* icon) {
    if (peer_ != nullptr) new ManualDrag(*this, *peer_->MouseWidget(), icon);  // which goes by itself
}

bool DropDoor::Over(QPoint screenPlace) {
    return peer_ != nullptr && TellOver(peer_->Native()->mapFromGlobal(screenPlace), false);
}

void DropDoor::Leave() {
    forms::DragEvent drag;
    drag.action = DragAction::Leave;
    port_.Deliver(drag);
}

void DropDoor::Drop(QPoint screenPlace) {
    if (peer_ == nullptr) return;
    const QPoint place = peer_->Native()->mapFromGlobal(screenPlace);
    if (peer_->Native()->isEnabled()) {
        port_.Deliver(Make(DragAction::Drop, place));
    } else {
        Leave();
    }
}

void DropDoor::Ended() {
    forms::DragEvent drag;
    drag.action = DragAction::Ended;
    port_.Deliver(drag);
}

bool DropDoor::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto& drag = static_cast<QDropEvent&>(*event);
            if (!CarriesFiles(drag) || !TellOver(drag.position().toPoint(), true)) {
                drag.ignore();
                return false;  // what the control lies in is asked next
            }
            drag.acceptProposedAction();
            return true;
        }
        case QEvent::DragLeave:
            Leave();
            return false;
        case QEvent::Drop: {
            auto& drop = static_cast<QDropEvent&>(*event);
            if (peer_ == nullptr || !CarriesFiles(drop)) return false;
            forms::DropEvent told;
            const forms::DragEvent place = Make(DragAction::Drop, drop.position().toPoint());
            told.x = place.x;
            told.y = place.y;
            told.row = place.row;
            Leave();
            AcceptFiles(drop, *this, port_, told, toDrivePath_);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace tavrix::qt
