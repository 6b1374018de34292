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

    /// There are other rows now; which one is current is told by the content.
    void RowsReset();
    void RowsChanged(int first, int end) { rows_.Changed(first, end); }
    void CurrentChanged();

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void wheelEvent(QWheelEvent* event) override;

  private:
    // In logical pixels.
    static constexpr int IconGap = 4;  ///< between icon and text
    static constexpr int RowAir = 1;   ///< above and below a row

    const forms::ListContent& content_;
    RowModel rows_;
};

class QtDropDownList final : public QtControl<forms::ListPeer, DropDownWidget> {
  public:
    QtDropDownList(const SinkPort& port, const NativePeer& container, const forms::ListContent& content)
        : QtControl(new DropDownWidget(*container.ControlParent(), port, content)) {}

    void RowsInserted(int, int) override { Get().RowsReset(); }
    void RowsRemoved(const forms::RowRanges&) override { Get().RowsReset(); }
    void RowsChanged(int first, int end) override { Get().RowsChanged(first, end); }
    void RowsReset(bool) override { Get().RowsReset(); }
    void CurrentChanged() override { Get().CurrentChanged(); }
    void SetInsertionMark(std::optional<int>) override {}
};

}  // namespace tavrix::qt
