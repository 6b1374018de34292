#pragma once

#include <QComboBox>

#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/RowModel.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

class DropDownWidget final : public SinkWidget<QComboBox> {
  public:
    DropDownWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content);
    void Detach();

    void ResetRows();

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    RowModel rows_;
};

class QtDropDownList final : public QtControl<forms::ListPeer, DropDownWidget> {
  public:
    QtDropDownList(const SinkPort& port, const NativePeer& container, const forms::ListContent& content)
        : QtControl(new DropDownWidget(*container.ControlParent(), port, content)) {}

    void ResetRows() override { Get().ResetRows(); }
    void SetCurrent(int row) override { Get().setCurrentIndex(row); }
};

}  // namespace tavrix::qt
