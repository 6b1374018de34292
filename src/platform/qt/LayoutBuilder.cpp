#include "platform/qt/LayoutBuilder.h"

#include <QBoxLayout>

#include "platform/forms/Control.h"
#include "platform/qt/CanvasWidget.h"
#include "platform/qt/QtControl.h"

namespace tavrix::qt {

using forms::Layout;

namespace {

void AddControl(QBoxLayout& box, const forms::Control& control) {
    QWidget* widget = NativeOf(*control.Peer()).Native();
    if (auto* canvas = dynamic_cast<CanvasWidget*>(widget)) {
        // Pictures have no text that their size could follow.
        const PixelRect bounds = control.PixelBounds();
        canvas->SetDeviceBounds({0, 0, bounds.width, bounds.height});
        canvas->setFixedSize(canvas->size());
    }
    box.addWidget(widget);
}

void Fill(QBoxLayout& box, const std::vector<Layout>& content) {
    for (const Layout& item : content) {
        switch (item.kind) {
            case Layout::Kind::Item:
                AddControl(box, *item.control);
                break;
            case Layout::Kind::Row:
            case Layout::Kind::Column: {
                auto* inner = new QBoxLayout(item.kind == Layout::Kind::Row ? QBoxLayout::LeftToRight
                                                                            : QBoxLayout::TopToBottom);
                box.addLayout(inner);  // which owns it
                Fill(*inner, item.content);
                break;
            }
            case Layout::Kind::Stretch:
                box.addStretch();
                break;
        }
    }
}

}  // namespace

std::unique_ptr<QLayout> BuildLayout(const Layout& layout) {
    auto box = std::make_unique<QBoxLayout>(layout.kind == Layout::Kind::Row ? QBoxLayout::LeftToRight
                                                                             : QBoxLayout::TopToBottom);
    if (layout.kind == Layout::Kind::Item) {
        Fill(*box, {layout});
    } else {
        Fill(*box, layout.content);
    }
    return box;
}

}  // namespace tavrix::qt
