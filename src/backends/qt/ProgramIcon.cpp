#include "backends/qt/ProgramIcon.h"

#include <QByteArray>
#include <QPixmap>
#include <QResource>
#include <cstddef>
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
    for (const int side : {16, 24, 32, 48, 64}) {  // pixels
        const QByteArray file =
            QResource(QStringLiteral(":/icons/%1/tavrix.png").arg(side)).uncompressedData();
        // By our own decoder: the toolkit looks through its plugins for each kind of file first.
        MemorySource source(
            std::as_bytes(std::span(file.constData(), static_cast<std::size_t>(file.size()))));
        const DecodedPicture decoded = DecodePicture(source);
        if (decoded.picture.pixels)
            icon.addPixmap(QPixmap::fromImage(ImageOf(decoded.picture.pixels->Whole())));
    }
    return icon;
}

}  // namespace tavrix::qt
