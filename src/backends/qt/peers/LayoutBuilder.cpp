#include "backends/qt/peers/LayoutBuilder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <variant>

#include "backends/qt/peers/CanvasWidget.h"
#include "backends/qt/peers/QtControl.h"
#include "platform/forms/Control.h"

namespace tavrix::qt {

using forms::Layout;

namespace {

/// What a part of a layout becomes. Whoever gets it owns it.
using Part = std::variant<QWidget*, QLayout*, QSpacerItem*>;

std::unique_ptr<QLayout> BuildBox(const Layout& layout);

QSize SmallestOf(const Layout& layout) {
    constexpr float TwipsPerLogicalPixel = 15;
    return {static_cast<int>(std::ceil(layout.minWidth / TwipsPerLogicalPixel)),
            static_cast<int>(std::ceil(layout.minHeight / TwipsPerLogicalPixel))};
}

QWidget* WidgetOf(const Layout& item) {
    QWidget* widget = NativeOf(*item.control->Peer()).Native();
    if (auto* canvas = dynamic_cast<CanvasWidget*>(widget)) {
        // Pictures have no text that their size could follow.
        const PixelRect bounds = item.control->PixelBounds();
        canvas->SetDeviceBounds({0, 0, bounds.width, bounds.height});
        canvas->setFixedSize(canvas->size());
    } else if (const QSize smallest = SmallestOf(item); !smallest.isNull()) {
        widget->setMinimumSize(smallest);
        // A path of any length must not decide how wide the window is.
        if (qobject_cast<QLabel*>(widget) != nullptr && smallest.width() > 0)
            widget->setSizePolicy(QSizePolicy::Ignored, widget->sizePolicy().verticalPolicy());
    }
    return widget;
}

QWidget* BuildPane(std::unique_ptr<QWidget> pane, const Layout& layout, std::unique_ptr<QLayout> inner) {
    pane->setLayout(inner.release());  // which owns it
    pane->setMinimumSize(SmallestOf(layout));
    return pane.release();
}

Part BuildPart(const Layout& layout) {
    switch (layout.kind) {
        case Layout::Kind::Item:
            return WidgetOf(layout);
        case Layout::Kind::Group: {
            auto frame = std::make_unique<QGroupBox>(QString::fromStdString(layout.caption));
            return BuildPane(std::move(frame), layout, BuildBox(layout));
        }
        case Layout::Kind::Row:
        case Layout::Kind::Column:
        case Layout::Kind::Grid: {
            auto inner = BuildBox(layout);
            if (SmallestOf(layout).isNull()) return inner.release();
            inner->setContentsMargins(0, 0, 0, 0);
            return BuildPane(std::make_unique<QWidget>(), layout, std::move(inner));
        }
        case Layout::Kind::Stretch:
            break;
    }
    const QSize smallest = SmallestOf(layout);
    return new QSpacerItem(smallest.width(), smallest.height());
}

/// A line of text beside a control stands as high as the control's own.
void CentreLabel(QWidget* widget) {
    if (auto* label = qobject_cast<QLabel*>(widget)) label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void Add(QBoxLayout& box, const Layout& item) {
    const Part part = BuildPart(item);
    if (auto* const* widget = std::get_if<QWidget*>(&part)) {
        if (box.direction() == QBoxLayout::LeftToRight) CentreLabel(*widget);
        box.addWidget(*widget, item.share);
    } else if (auto* const* inner = std::get_if<QLayout*>(&part)) {
        box.addLayout(*inner, item.share);
    } else {
        QSpacerItem* spacer = std::get<QSpacerItem*>(part);
        const bool across = box.direction() == QBoxLayout::LeftToRight;
        spacer->changeSize(spacer->sizeHint().width(), spacer->sizeHint().height(),
                           across ? QSizePolicy::Expanding : QSizePolicy::Minimum,
                           across ? QSizePolicy::Minimum : QSizePolicy::Expanding);
        box.addSpacerItem(spacer);
        box.setStretch(box.count() - 1, item.share);
    }
}

void Add(QGridLayout& grid, const Layout& item, int row, int column) {
    const Part part = BuildPart(item);
    if (auto* const* widget = std::get_if<QWidget*>(&part)) {
        CentreLabel(*widget);
        grid.addWidget(*widget, row, column);
    } else if (auto* const* inner = std::get_if<QLayout*>(&part)) {
        grid.addLayout(*inner, row, column);
    } else {
        grid.addItem(std::get<QSpacerItem*>(part), row, column);
    }
    grid.setColumnStretch(column, std::max(grid.columnStretch(column), item.share));
}

std::unique_ptr<QLayout> BuildBox(const Layout& layout) {
    if (layout.kind == Layout::Kind::Grid) {
        auto grid = std::make_unique<QGridLayout>();
        int cell = 0;
        for (const Layout& item : layout.content) {
            Add(*grid, item, cell / layout.columns, cell % layout.columns);
            ++cell;
        }
        return grid;
    }
    auto box = std::make_unique<QBoxLayout>(layout.kind == Layout::Kind::Row ? QBoxLayout::LeftToRight
                                                                             : QBoxLayout::TopToBottom);
    for (const Layout& item : layout.content)
        Add(*box, item);
    return box;
}

}  // namespace

std::unique_ptr<QLayout> BuildLayout(const Layout& layout) {
    switch (layout.kind) {
        case Layout::Kind::Row:
        case Layout::Kind::Column:
        case Layout::Kind::Grid:
            return BuildBox(layout);
        case Layout::Kind::Item:
        case Layout::Kind::Group:
        case Layout::Kind::Stretch:
            break;
    }
    return BuildBox(forms::Column({layout}));
}

}  // namespace tavrix::qt
