#include "backends/qt/peers/QtList.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

#include "backends/qt/peers/PlainToolTip.h"
#include "platform/forms/RowWindow.h"

namespace tavrix::qt {

namespace {

constexpr int IndentStep = 10;      ///< logical pixels
constexpr int ScrollInterval = 50;  ///< milliseconds a row

}  // namespace

ListWidget::ListWidget(QWidget& parent, const SinkPort& port, const forms::ListContent& content)
    : SinkWidget(port, &parent), content_(&content) {
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    viewport()->setBackgroundRole(QPalette::Base);
    verticalScrollBar()->setSingleStep(1);
    mouse_.tellsClicks = false;
    mouse_.rowFor = [this](const QMouseEvent& event) { return RowFor(event); };
    viewport()->setMouseTracking(true);
    scroll_.setInterval(ScrollInterval);
    connect(&scroll_, &QTimer::timeout, this, [this] { ScrollOnwards(); });
}

void ListWidget::Detach() {
    SinkWidget::Detach();
    scroll_.stop();
    content_ = nullptr;
    stale_ = false;
    FitBar();
}

QSize ListWidget::sizeHint() const {
    constexpr int Characters = 24;
    constexpr int Rows = 8;
    return {Characters * fontMetrics().averageCharWidth(), Rows * fontMetrics().lineSpacing()};
}

// Rows and their places.

int ListWidget::Top() const {
    return verticalScrollBar()->value();
}

int ListWidget::FullRows() const {
    return std::max(viewport()->height() / rowHeight_, 1);
}

int ListWidget::RowAt(QPoint place) const {
    if (!viewport()->rect().contains(place)) return -1;
    const int row = Top() + place.y() / rowHeight_;
    return row < RowCount() ? row : -1;
}

QRect ListWidget::PlaceOfRow(int row) const {
    return {0, (row - Top()) * rowHeight_, viewport()->width(), rowHeight_};
}

int ListWidget::RowFor(const QMouseEvent& event) const {
    const QPoint place = event.position().toPoint();
    const bool held = event.type() == QEvent::MouseMove && event.buttons().testFlag(Qt::LeftButton);
    if (!held || RowCount() == 0) return RowAt(place);
    const int within = std::clamp(place.y(), 0, std::max(viewport()->height() - 1, 0));
    return std::min(Top() + within / rowHeight_, RowCount() - 1);
}

QStyleOptionViewItem ListWidget::OptionFor(int row) const {
    QStyleOptionViewItem option;
    option.initFrom(this);
    option.state &= ~QStyle::State_MouseOver;
    option.font = font();
    option.fontMetrics = fontMetrics();
    option.widget = this;
    option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.decorationAlignment = Qt::AlignCenter;
    option.decorationPosition = QStyleOptionViewItem::Left;
    option.textElideMode = Qt::ElideRight;
    option.showDecorationSelected =
        style()->styleHint(QStyle::SH_ItemView_ShowDecorationSelected, nullptr, this) != 0;
    option.features = QStyleOptionViewItem::HasDisplay;
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    option.decorationSize = {side, side};
    option.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    if (row < 0 || row >= RowCount()) {
        option.text = QStringLiteral("X");
        return option;
    }
    const forms::ListRow content = content_->Row(row);
    option.text = QString::fromStdString(content.text);
    option.rect = PlaceOfRow(row);
    option.rect.setLeft(IndentStep * content.indent);
    if (content.icon != forms::RowIcon::None) {
        option.features |= QStyleOptionViewItem::HasDecoration;
        option.icon = icons_.Of(content.icon);
        option.decorationSize = option.icon.actualSize(option.decorationSize);
    }
    option.state.setFlag(QStyle::State_Selected, content_->RowSelected(row));
    const bool current = row == content_->CurrentRow();
    option.state.setFlag(QStyle::State_HasFocus, current && hasFocus());
    // Where several rows can be selected, nothing else tells which one is current.
    if (current && content_->ManySelected()) option.state |= QStyle::State_KeyboardFocusChange;
    return option;
}

void ListWidget::MeasureRows() {
    const QStyleOptionViewItem option = OptionFor(0);
    rowHeight_ =
        std::max(style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), this).height(), 1);
}

void ListWidget::FitBar() {
    const int page = FullRows();
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, std::max(RowCount() - page, 0));
    viewport()->update();
    if (page == toldPage_) return;
    toldPage_ = page;
    Port().Deliver(forms::PageEvent{page});
}

void ListWidget::FitIfStale() {
    if (!stale_) return;
    stale_ = false;
    MeasureRows();
    FitBar();
}

void ListWidget::FitLater() {
    stale_ = true;
    viewport()->update();
    if (!isVisible()) return;
    const auto fit = [this] {
        if (isVisible()) FitIfStale();
    };
    QMetaObject::invokeMethod(this, fit, Qt::QueuedConnection);
}

void ListWidget::showEvent(QShowEvent* event) {
    SinkWidget::showEvent(event);
    FitIfStale();
}

void ListWidget::resizeEvent(QResizeEvent* event) {
    SinkWidget::resizeEvent(event);
    const double ratio = DeviceRatio();
    mouse_.offset = {-ToDevice(viewport()->x(), ratio), -ToDevice(viewport()->y(), ratio)};
    if (!stale_) FitBar();
}

void ListWidget::changeEvent(QEvent* event) {
    SinkWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitLater();
}

void ListWidget::scrollContentsBy(int, int) {
    viewport()->update();
}

// What forms tell.

void ListWidget::RowsInserted(int at, int count) {
    const int top = forms::TopAfterInsertion(Top(), at, count);
    if (RowCount() == count) stale_ = true;  // the first ones tell how high rows are
    FitIfStale();
    FitBar();
    verticalScrollBar()->setValue(top);
    TellChanges();
}

void ListWidget::RowsRemoved(const forms::RowRanges& gone) {
    const int top = forms::TopAfterRemoval(Top(), gone);
    FitIfStale();
    FitBar();
    verticalScrollBar()->setValue(top);
    TellChanges();
}

void ListWidget::RowsChanged(int first, int end) {
    if (first <= Top() + FullRows() && end > Top()) viewport()->update();
    if (!QAccessible::isActive()) return;
    QAccessibleEvent changed(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&changed);
}

void ListWidget::RowsReset(bool keepPlace) {
    FitLater();
    if (!keepPlace) verticalScrollBar()->setValue(0);
    TellChanges();
}

void ListWidget::CurrentChanged() {
    FitIfStale();
    verticalScrollBar()->setValue(forms::TopShowing(content_->CurrentRow(), Top(), FullRows()));
    viewport()->update();
    TellFocusedRow();
}

void ListWidget::SetInsertionMark(std::optional<int> row) {
    if (mark_ == row) return;
    mark_ = row;
    viewport()->update();
}

void ListWidget::TellChanges() {
    if (!QAccessible::isActive()) return;
    QAccessibleTableModelChangeEvent changed(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&changed);
}

void ListWidget::TellFocusedRow() {
    if (!QAccessible::isActive() || !hasFocus() || RowCount() == 0 || content_->CurrentRow() < 0) return;
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(content_->CurrentRow());
    QAccessible::updateAccessibility(&focused);
}

// Painting.

void ListWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const int last = std::min(Top() + event->rect().bottom() / rowHeight_, RowCount() - 1);
    for (int row = Top() + event->rect().top() / rowHeight_; row <= last; ++row) {
        const QStyleOptionViewItem option = OptionFor(row);
        style()->drawControl(QStyle::CE_ItemViewItem, &option, &painter, this);
    }
    if (!mark_) return;
    constexpr int Thickness = 2;
    const int y = std::clamp(PlaceOfRow(*mark_).top() - Thickness / 2, 0, viewport()->height() - Thickness);
    painter.fillRect(0, y, viewport()->width(), Thickness, palette().highlight());
}

// Mouse and keys.

bool ListWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) return ShowRowTip(static_cast<const QHelpEvent&>(*event));
    return SinkWidget::viewportEvent(event);
}

bool ListWidget::ShowRowTip(const QHelpEvent& event) {
    const int row = RowAt(event.pos());
    QString tip = toolTip();
    if (row >= 0) {
        const QStyleOptionViewItem option = OptionFor(row);
        const QSize whole = style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), this);
        if (whole.width() > option.rect.width()) tip = PlainToolTip(option.text);
    }
    QToolTip::showText(event.globalPos(), tip, viewport(), row >= 0 ? PlaceOfRow(row) : QRect());
    return true;
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
    mouse_.Press(*event);
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const int row = RowAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && row >= 0 && row == content_->CurrentRow()) {
        mouse_.PressUntold(*event);
        Port().Deliver(forms::DoubleClickEvent{});
    } else {
        mouse_.Press(*event);  // the second press met another row
    }
}

void ListWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const bool beyond = place.y() < 0 || place.y() >= viewport()->height();
    scrollStep_ = place.y() < 0 ? -1 : 1;
    held_ = place;
    if (!event->buttons().testFlag(Qt::LeftButton) || !beyond) {
        scroll_.stop();
    } else if (!scroll_.isActive()) {
        scroll_.start();
    }
    mouse_.Move(*event);
}

void ListWidget::mouseReleaseEvent(QMouseEvent* event) {
    scroll_.stop();
    mouse_.Release(*event, *viewport());
}

void ListWidget::ScrollOnwards() {
    if (!held_ || !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) {
        scroll_.stop();
        return;
    }
    verticalScrollBar()->setValue(Top() + scrollStep_);
    const QMouseEvent again(QEvent::MouseMove, *held_, viewport()->mapToGlobal(QPointF(*held_)), Qt::NoButton,
                            Qt::LeftButton, QGuiApplication::keyboardModifiers());
    mouse_.Move(again);
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool typed = !text.isEmpty() && text.at(0).isPrint() && !(event->modifiers() & commands);
    if (typed) {
        Port().Deliver(forms::CharacterEvent{text.toStdString(), nullptr});
    } else {
        event->ignore();  // what forms did not take is the window's
    }
}

void ListWidget::focusInEvent(QFocusEvent* event) {
    SinkWidget::focusInEvent(event);
    viewport()->update();
    TellFocusedRow();
}

void ListWidget::focusOutEvent(QFocusEvent* event) {
    SinkWidget::focusOutEvent(event);
    viewport()->update();
}

void ListWidget::DraggedAt(QPoint place) {
    const int margin = rowHeight_;
    const bool up = place.y() < margin && Top() > 0;
    const bool down = place.y() >= viewport()->height() - margin;
    if (!up && !down) return;
    if (scrolled_.isValid() && scrolled_.elapsed() < ScrollInterval) return;
    scrolled_.start();
    verticalScrollBar()->setValue(Top() + (up ? -1 : 1));
}

void ListWidget::ActOn(const forms::RowEvent& row) {
    // A handler may open a window, and whoever asked for it is to be free to read that.
    const auto act = [this, row] {
        if (!isEnabled()) return;
        setFocus(Qt::ShortcutFocusReason);
        Port().Deliver(row);
    };
    QMetaObject::invokeMethod(this, act, Qt::QueuedConnection);
}

int QtList::RowUnderDrag(QPoint place) const {
    const QPoint inside = Get().viewport()->mapFrom(&Get(), place);
    Get().DraggedAt(inside);
    return Get().RowAt(inside);
}

}  // namespace tavrix::qt
