#include "backends/qt/ProgramIcon.h"

#include <QPixmap>
#include <QResource>
#include <span>

#include "backends/qt/peers/SurfaceImage.h"
#include "imaging/loading/DecodePicture.h"

/// The resource is in a static library, which nothing else would bring in. Its own function is in no namespace.
static void LoadResource() {
    Q_INIT_RESOURCE(icons);
}

namespace tavrix::qt {

QIcon ProgramIcon() {
    LoadResource();
    QIcon icon;
    // By our own decoder: the toolkit looks through its plugins for each kind of file first, which every start would pay.
    for (const int size : {16, 24, 32, 48, 64}) {
        const QByteArray bytes =
            QResource(QStringLiteral(":/icons/%1/tavrix.png").arg(size)).uncompressedData();
        MemorySource source(
            std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
        const DecodedPicture decoded = DecodePicture(source);
        if (decoded.picture.pixels)
            icon.addPixmap(QPixmap::fromImage(ImageOf(decoded.picture.pixels->Whole())));
    }
    return icon;
}

}  // namespace tavrix::qt
