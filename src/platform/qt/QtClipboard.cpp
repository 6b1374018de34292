#include "platform/qt/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <array>

#include "platform/qt/X11.h"

namespace tavrix::qt {

bool QtClipboard::Has(ClipboardFormat format) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr) return false;
    switch (format) {
        case ClipboardFormat::Bitmap:
        case ClipboardFormat::DeviceIndependentBitmap:
            return data->hasImage();
        case ClipboardFormat::Metafile:
            for (const char* type : {"image/wmf", "image/x-wmf", "image/emf", "image/x-emf",
                                     "application/x-wmf", "application/x-emf"}) {
                if (data->hasFormat(QLatin1String(type))) return true;
            }
            return false;
    }
    return false;
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::Persist() {
    if (QGuiApplication::clipboard()->ownsClipboard()) x11::SaveClipboard();
}

}  // namespace tavrix::qt
