#include "backends/qt/clipboard/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

#include "backends/qt/clipboard/MimePicture.h"
#include "backends/qt/clipboard/PictureMimeData.h"
#include "backends/qt/x11/X11.h"
#include "base/RuntimeError.h"
#include "imaging/graphics/Flatten.h"

namespace tavrix::qt {
namespace {

const QMimeData* Data() {
    return QGuiApplication::clipboard()->mimeData();
}

/// What this process has put there; null when the clipboard is another program's.
const PictureMimeData* Own(const QMimeData* data) {
    return dynamic_cast<const PictureMimeData*>(data);
}

}  // namespace

bool QtClipboard::Has(ClipboardFormat format) {
    const QMimeData* data = Data();
    if (data == nullptr) return false;
    if (format == ClipboardFormat::Metafile) return HoldsMetafile(*data);
    return Own(data) != nullptr || NamesPicture(*data);
}

Picture QtClipboard::Get() {
    const QMimeData* data = Data();
    if (data == nullptr) throw RuntimeError(ErrorNumber::InvalidPicture);
    const PictureMimeData* own = Own(data);
    return own != nullptr ? own->ThePicture() : PictureIn(*data);
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::Set(const Picture& picture) {
    if (picture.Empty()) throw RuntimeError(ErrorNumber::InvalidPicture);
    auto data = std::make_unique<PictureMimeData>(Flattened(picture));
    QGuiApplication::clipboard()->setMimeData(data.release());
    if (x11::Running() && !x11::OwnsClipboard()) throw RuntimeError(ErrorNumber::CantOpenClipboard);
}

void QtClipboard::Persist() {
    if (QGuiApplication::clipboard()->ownsClipboard()) x11::SaveClipboard();
}

}  // namespace tavrix::qt
