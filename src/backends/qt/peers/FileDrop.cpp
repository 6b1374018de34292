#include "backends/qt/peers/FileDrop.h"

#include <QDropEvent>
#include <QMetaObject>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "backends/qt/peers/Scale.h"

namespace tavrix::qt {

bool CarriesFiles(const QDropEvent& event) {
    return event.mimeData() != nullptr && event.mimeData()->hasUrls();
}

void AcceptFiles(QDropEvent& event, QWidget& receiver, const SinkPort& port, const ToDrivePath& toDrivePath) {
    forms::DropEvent drop;
    const QList<QUrl> urls = event.mimeData()->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) drop.files.push_back(toDrivePath(url.toLocalFile().toStdString()));
    }
    event.setDropAction(Qt::CopyAction);
    event.accept();
    const double ratio = DeviceRatio();
    drop.x = ToDevice(event.position().x(), ratio);
    drop.y = ToDevice(event.position().y(), ratio);
    QMetaObject::invokeMethod(
        &receiver, [&port, drop] { port.Deliver(drop); }, Qt::QueuedConnection);
}

}  // namespace tavrix::qt
