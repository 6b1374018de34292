#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <memory>

#include "backends/qt/peers/FileDrop.h"
#include "backends/qt/peers/SinkPort.h"
#include "imaging/graphics/Surface.h"

class QDropEvent;
class QWidget;

namespace tavrix::qt {

class NativePeer;

/// Where what is dragged over a control comes in: files of other programs, and controls of ours. It belongs to the
/// control's widget.
class DropDoor final : public QObject {
  public:
    DropDoor(const NativePeer& peer, const SinkPort& port, const ToDrivePath& toDrivePath);
    ~DropDoor() override;

    /// The peer goes.
    void Detach();
    /// The control at a place of the screen; null: none of ours.
    [[nodiscard]] static DropDoor* At(QPoint screenPlace);

    /// The control itself is dragged from here on.
    void BeginDrag(const Surface* icon);
    /// A control of ours is over this one, at a place of the screen. Whether it would be taken.
    bool Over(QPoint screenPlace);
    void Leave();
    void Drop(QPoint screenPlace);
    void Ended();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] forms::DragEvent Make(forms::DragAction action, QPoint place) const;
    bool TellOver(QPoint place, bool files);

    const NativePeer* peer_;
    SinkPort port_;
    const ToDrivePath& toDrivePath_;
};

}  // namespace tavrix::qt
