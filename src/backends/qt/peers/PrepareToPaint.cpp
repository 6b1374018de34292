#include "backends/qt/peers/PrepareToPaint.h"

#include <QBackingStore>
#include <QPainter>
#include <QWidget>

namespace tavrix::qt {

void PrepareToPaint(QWidget& window) {
    QBackingStore* store = window.backingStore();
    if (store == nullptr || store->size() == window.size()) return;
    store->resize(window.size());
    const QRect all(QPoint(), window.size());
    store->beginPaint(all);
    // There is none where memory cannot hold it.
    if (QPaintDevice* pages = store->paintDevice()) QPainter(pages).fillRect(all, window.palette().window());
    store->endPaint();
}

}  // namespace tavrix::qt
