#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QStyleOptionViewItem>
#include <QTimer>
#include <optional>

#include "backends/qt/peers/MouseRelay.h"
#include "backends/qt/peers/QtControl.h"
#include "backends/qt/peers/RowIcons.h"
#include "backends/qt/peers/SinkWidget.h"

namespace tavrix::qt {

/// A list that paints the rows that can be seen, and asks for no others. What mouse and keys do to rows is the forms'
/// business; this tells where the mouse is, and what was typed.
class ListWidget final : public SinkWidget<QAbstractScrollArea> {
  public:
    ListWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content);
    void Detach();

    void RowsInserted(int at, int count);
    void RowsRemoved(const forms::RowRanges& gone);
    void RowsChanged(int first, int end);
    void RowsReset(bool keepPlace);
    void CurrentChanged();
    void SetInsertionMark(std::optional<int> row);

    [[nodiscard]] QSize sizeHint() const override;

    /// 0 once the peer has gone.
    [[nodiscard]] int RowCount() const { return content_ != nullptr ? content_->RowCount() : 0; }
    /// Only where RowCount() is not 0.
    [[nodiscard]] const forms::ListContent& Content() const { return *content_; }
    [[nodiscard]] int Top() const;
    /// Before which row the mark is.
    [[nodiscard]] std::optional<int> InsertionMark() const { return mark_; }
    /// The row at a place of the viewport; -1: none.
    [[nodiscard]] int RowAt(QPoint place) const;
    /// Where a row is in the viewport, perhaps beyond what can be seen.
    [[nodiscard]] QRect PlaceOfRow(int row) const;
    /// Something is dragged at a place of the viewport: the list scrolls at its ends.
    void DraggedAt(QPoint place);
    /// For screen readers.
    void ActOn(const forms::RowEvent& row);

  protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    [[nodiscard]] QStyleOptionViewItem OptionFor(int row) const;
    [[nodiscard]] int FullRows() const;
    /// For the mouse: the nearest row while the left button is held.
    [[nodiscard]] int RowFor(const QMouseEvent& event) const;
    void MeasureRows();
    void FitBar();
    /// Counts the rows once they are to be seen: that may mean reading a folder.
    void FitLater();
    void FitIfStale();
    void ScrollOnwards();
    bool ShowRowTip(const QHelpEvent& event);
    void TellFocusedRow();
    void TellChanges();

    const forms::ListContent* content_;
    RowIcons icons_;
    MouseRelay mouse_{Port()};
    QTimer scroll_;               ///< while the mouse is held beyond an end, or drags something near one
    std::optional<QPoint> held_;  ///< where the mouse was held last
    QElapsedTimer scrolled_;      ///< since a drag scrolled last
    int scrollStep_ = 0;
    int rowHeight_ = 1;  ///< logical pixels
    int toldPage_ = -1;
    bool stale_ = true;  ///< the rows are others, and have not been counted
    std::optional<int> mark_;
};

class QtList final : public QtControl<forms::ListPeer, ListWidget> {
  public:
    QtList(const SinkPort& port, const NativePeer& container, const forms::ListContent& content)
        : QtControl(new ListWidget(*container.ControlParent(), port, content)) {}

    void RowsInserted(int at, int count) override { Get().RowsInserted(at, count); }
    void RowsRemoved(const forms::RowRanges& gone) override { Get().RowsRemoved(gone); }
    void RowsChanged(int first, int end) override { Get().RowsChanged(first, end); }
    void RowsReset(bool keepPlace) override { Get().RowsReset(keepPlace); }
    void CurrentChanged() override { Get().CurrentChanged(); }
    void SetInsertionMark(std::optional<int> row) override { Get().SetInsertionMark(row); }

    [[nodiscard]] QWidget* MouseWidget() const override { return Get().viewport(); }
    [[nodiscard]] int RowUnderDrag(QPoint place) const override;
};

}  // namespace tavrix::qt
