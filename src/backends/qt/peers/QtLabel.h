#pragma once

#include <QLabel>
#include <QMouseEvent>

#include "backends/qt/peers/MouseRelay.h"
#include "backends/qt/peers/QtControl.h"

namespace tavrix::qt {

class LabelWidget final : public QLabel {
  public:
    LabelWidget(QWidget& parent, const SinkPort& port);
    void Detach() { port_.Detach(); }

  protected:
    /// A line that does not fit is cut with an ellipsis in its middle; broken lines that do not are set in a smaller
    /// font.
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { mouse_.Move(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { mouse_.Release(*event, *this); }

  private:
    [[nodiscard]] bool FitsWrapped() const;

    SinkPort port_;
    MouseRelay mouse_{port_};
};

class QtLabel final : public QtControl<forms::LabelPeer, LabelWidget> {
  public:
    QtLabel(const SinkPort& port, const NativePeer& container)
        : QtControl(new LabelWidget(*container.ControlParent(), port)) {}

    void SetText(const std::string& text) override;
    void SetBuddy(forms::ControlPeer& buddy) override;
    void SetWordWrap(bool wraps) override { Get().setWordWrap(wraps); }
    void SetBackColor(std::optional<Colour> colour) override;
    [[nodiscard]] forms::PixelSize NaturalSize() const override;
    [[nodiscard]] int HeightAt(int width) const override;

  private:
    void Show();

    QString caption_;
    QString toldName_;  ///< what the buddy was called last
};

}  // namespace tavrix::qt
