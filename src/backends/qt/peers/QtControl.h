#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <algorithm>

#include "backends/qt/peers/DropDoor.h"
#include "backends/qt/peers/PlainToolTip.h"
#include "backends/qt/peers/Pointers.h"
#include "backends/qt/peers/Scale.h"
#include "platform/forms/Peers.h"

namespace tavrix::qt {

class QtWindow;

/// A size that a widget asks for, in device pixels; nothing where it asks for none.
[[nodiscard]] inline forms::PixelSize NaturalInDevice(const QSize& logical) {
    const double ratio = DeviceRatio();
    return {CeilToDevice(std::max(logical.width(), 0), ratio),
            CeilToDevice(std::max(logical.height(), 0), ratio)};
}

/// What the backend needs of a peer that it gets back from forms.
class NativePeer {
  public:
    /// The widget itself.
    [[nodiscard]] virtual QWidget* Native() const = 0;
    /// The parent of the controls inside.
    [[nodiscard]] virtual QWidget* ControlParent() const { return Native(); }
    /// The widget that has the mouse while it is over the control.
    [[nodiscard]] virtual QWidget* MouseWidget() const { return Native(); }
    /// The row of a list under something that is dragged at this place of the widget, which makes the list scroll at
    /// its ends; -1: none.
    [[nodiscard]] virtual int RowUnderDrag(QPoint /*place*/) const { return -1; }

  protected:
    ~NativePeer() = default;
};

[[nodiscard]] inline NativePeer& NativeOf(forms::ControlPeer& peer) {
    return dynamic_cast<NativePeer&>(peer);
}

/// The peer of a control: what all kinds do alike. The widget has a Detach(), and goes only when no event handler of
/// its own runs any more.
template <class Interface, class Widget>
class QtControl : public Interface, public NativePeer {
  public:
    ~QtControl() override {
        if (door_) door_->Detach();
        if (!widget_) return;
        widget_->Detach();
        widget_->hide();
        widget_->deleteLater();
    }
    QtControl(const QtControl&) = delete;
    QtControl& operator=(const QtControl&) = delete;

    void SetBounds(const PixelRect& bounds) override {
        widget_->setGeometry(NearestLogical(bounds, DeviceRatio()));
    }
    void SetVisible(bool visible) override { widget_->setVisible(visible); }
    void SetEnabled(bool enabled) override { widget_->setEnabled(enabled); }
    void SetToolTip(const std::string& text) override {
        widget_->setToolTip(PlainToolTip(QString::fromStdString(text)));
    }
    void SetPointer(forms::MousePointer pointer) override { SetWidgetPointer(*widget_, pointer); }
    void SetPointerPicture(const Surface& pixels, int hotX, int hotY) override {
        widget_->setCursor(PicturePointer(pixels, hotX, hotY));
    }
    [[nodiscard]] forms::PixelSize NaturalSize() const override {
        widget_->ensurePolished();
        return NaturalInDevice(widget_->sizeHint());
    }
    void SetAccessibleName(const std::string& name) override {
        widget_->setAccessibleName(QString::fromStdString(name));
    }
    void TakeFocus() override { widget_->setFocus(Qt::OtherFocusReason); }

    void BeginDrag(const Surface* icon) override {
        if (door_) door_->BeginDrag(icon);
    }
    /// To be called once, when the control has been made.
    void OpenDoor(const SinkPort& port, const ToDrivePath& toDrivePath) {
        door_ = new DropDoor(*this, port, toDrivePath);
    }

    [[nodiscard]] QWidget* Native() const override { return widget_; }

  protected:
    explicit QtControl(Widget* widget) : widget_(widget) {
        // Forms place it. Qt would find it a size of its own when it is shown, and load a font for that.
        widget_->setAttribute(Qt::WA_Resized);
    }

    [[nodiscard]] Widget& Get() const { return *widget_; }

  private:
    QPointer<Widget> widget_;  ///< owned by its parent widget
    QPointer<DropDoor> door_;  ///< owned by the widget
};

/// Whether the user moved the focus, and not the program or the desktop.
[[nodiscard]] inline bool ByUser(Qt::FocusReason reason) {
    return reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
           reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

}  // namespace tavrix::qt
