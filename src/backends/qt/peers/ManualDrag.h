#pragma once

#include <QCursor>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "backends/qt/peers/DropDoor.h"

namespace tavrix::qt {

/// One control dragged over the windows of the program, from the press of a mouse button to its release. Other programs
/// see nothing of it. It watches the widget that has the mouse, tells the controls under the pointer, and destroys itself.
class ManualDrag final : public QObject {
  public:
    /// `mouse`: the widget in which the button was pressed.
    ManualDrag(DropDoor& source, QWidget& mouse, const Surface* icon);
    ~ManualDrag() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void MoveTo(QPoint screenPlace);
    void Cancel();
    void Finish(DropDoor* target);

    QPointer<DropDoor> source_;
    QPointer<QWidget> mouse_;
    QPointer<DropDoor> over_;
    QPoint place_;  ///< on the screen
    bool hasIcon_;
    bool ended_ = false;
    std::optional<QCursor> former_;
    QTimer again_;  ///< lists scroll on while the pointer rests at one of their ends
};

}  // namespace tavrix::qt
