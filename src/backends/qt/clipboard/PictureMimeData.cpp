#include "backends/qt/clipboard/PictureMimeData.h"

#include <new>
#include <span>

#include "imaging/codecs/BmpWriter.h"
#include "imaging/codecs/PngEncoder.h"

namespace tavrix::qt {
namespace {

constexpr QLatin1String PngType("image/png");

/// Whoever asks for a picture makes this process wait. Up to this size, packing takes some fifth of a second at most; a
/// larger picture goes out as it is.
constexpr qsizetype MostPackedPixels = 4'000'000;

void Append(QByteArray& bytes, std::span<const std::byte> part) {
    bytes.append(reinterpret_cast<const char*>(part.data()), static_cast<qsizetype>(part.size()));
}

/// Bytes with room for a picture that is not packed.
QByteArray RoomFor(const Surface& pixels) {
    QByteArray bytes;
    const auto count = static_cast<qsizetype>(pixels.Pixels().size());
    bytes.reserve(3 * count + count / 1000 + 8 * pixels.Height() + 1000);
    return bytes;
}

QByteArray AsPng(const Surface& pixels) {
    const bool packed = static_cast<qsizetype>(pixels.Pixels().size()) <= MostPackedPixels;
    QByteArray bytes = packed ? QByteArray() : RoomFor(pixels);
    const bool encoded = EncodePng(pixels, packed ? PngPacking::Packed : PngPacking::Stored,
                                   [&bytes](std::span<const std::byte> part) {
                                       try {
                                           Append(bytes, part);
                                           return true;
                                       } catch (const std::bad_alloc&) {
                                           return false;
                                       }
                                   });
    return encoded ? bytes : QByteArray();
}

QByteArray AsBmp(const Surface& pixels) {
    QByteArray bytes = RoomFor(pixels);
    WriteBmp(pixels, [&bytes](std::span<const std::byte> part) { Append(bytes, part); });
    return bytes;
}

}  // namespace

QStringList PictureMimeData::formats() const {
    return {PngType, "image/bmp"};
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
