#include "backends/qt/clipboard/SurfaceOfImage.h"

#include <cstring>
#include <span>

namespace tavrix::qt {

Surface SurfaceOfImage(const QImage& image) {
    const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
    Surface pixels(opaque.width(), opaque.height());
    for (int y = 0; y < opaque.height(); ++y) {
        const std::span<Pixel> row = pixels.Row(y);
        std::memcpy(row.data(), opaque.constScanLine(y), row.size_bytes());
        // The format leaves the highest byte undefined.
        for (Pixel& pixel : row)
            pixel |= OpaquePixel(0, 0, 0);
    }
    return pixels;
}

}  // namespace tavrix::qt
