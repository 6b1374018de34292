#pragma once

#include <QListView>

#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/RowDelegate.h"
#include "backends/qt/peers/RowModel.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

class ListWidget final : public SinkWidget<QListView> {
  public:
    ListWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content);
    void Detach();

    void ResetRows();
    void PushCurrent(int row);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent*) override {}
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    void Choose(const QModelIndex& index);
    void TellRow(int row);

    RowModel rows_;
    RowDelegate delegate_;
    int known_ = -1;     ///< the current row as forms have it
    bool busy_ = false;  ///< Qt is being told something, or is at work; what comes of it is told afterwards
};

class QtList final : public QtControl<forms::ListPeer, ListWidget> {
  public:
    QtList(const SinkPort& port, const NativePeer& container, const forms::ListContent& content)
        : QtControl(new ListWidget(*container.ControlParent(), port, content)) {}

    void ResetRows() override { Get().ResetRows(); }
    void SetCurrent(int row) override { Get().PushCurrent(row); }
};

}  // namespace tavrix::qt
