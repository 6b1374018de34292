#include "backends/qt/peers/FileDrop.h"

#include <QDropEvent>
#include <QMetaObject>
#include <QMimeData>
#include <QObject>
#include <QUrl>

namespace tavrix::qt {

bool CarriesFiles(const QDropEvent& event) {
    return event.mimeData() != nullptr && event.mimeData()->hasUrls();
}

void AcceptFiles(QDropEvent& event, QObject& receiver, const SinkPort& port, forms::DropEvent drop,
                 const ToDrivePath& toDrivePath) {
    const QList<QUrl> urls = event.mimeData()->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) drop.files.push_back(toDrivePath(url.toLocalFile().toStdString()));
    }
    event.setDropAction(Qt::CopyAction);
    event.accept();
    QMetaObject::invokeMethod(
        &receiver, [&port, drop] { port.Deliver(drop); }, Qt::QueuedConnection);
}

}  // namespace tavrix::qt
