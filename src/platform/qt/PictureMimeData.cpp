#include "platform/qt/PictureMimeData.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <new>

#include "platform/codecs/BmpWriter.h"

namespace tavrix::qt {
namespace {

constexpr QLatin1String PngType("image/png");

QByteArray AsPng(const Surface& pixels) {
    // The image reads the surface's memory where it is.
    const QImage image(reinterpret_cast<const uchar*>(pixels.Pixels().data()), pixels.Width(),
                       pixels.Height(), pixels.Width() * static_cast<qsizetype>(sizeof(Pixel)),
                       QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "png");
    // Whoever asks makes this process wait: the least that compresses at all.
    writer.setCompression(1);
    if (!writer.write(image)) bytes.clear();
    return bytes;
}

QByteArray AsBmp(const Surface& pixels) {
    QByteArray bytes;
    constexpr qsizetype BytesPerPixel = 3;
    bytes.reserve(static_cast<qsizetype>(pixels.Pixels().size()) * BytesPerPixel + 4 * pixels.Height() + 64);
    WriteBmp(pixels, [&bytes](std::span<const std::byte> part) {
        bytes.append(reinterpret_cast<const char*>(part.data()), static_cast<qsizetype>(part.size()));
    });
    return bytes;
}

}  // namespace

QStringList PictureMimeData::formats() const {
    return {PngType, "image/bmp", "image/x-bmp", "image/x-MS-bmp"};
}

QVariant PictureMimeData::retrieveData(const QString& type, QMetaType wanted) const {
    if (!formats().contains(type)) return QMimeData::retrieveData(type, wanted);
    try {
        const Surface& pixels = picture_.pixels->Whole();
        return type == PngType ? AsPng(pixels) : AsBmp(pixels);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace tavrix::qt
