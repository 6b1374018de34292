#include "backends/qt/clipboard/MimePicture.h"

#include <QElapsedTimer>
#include <QImage>
#include <QMimeData>
#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <span>
#include <utility>

#include "base/RuntimeError.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/graphics/Flatten.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"

namespace tavrix::qt {
namespace {

/// Those that keep most of a picture come first. PNG does better than a bitmap, which shows whatever colour lies where
/// the picture is transparent.
constexpr std::array PixelTypes{
    "image/png",           "image/bmp", "image/x-bmp",  "image/x-MS-bmp",
    "image/x-windows-bmp", "image/gif", "image/x-icon", "image/vnd.microsoft.icon",
    "image/jpeg",          "image/jpg"};
constexpr std::array MetafileTypes{"image/emf", "image/x-emf", "application/x-emf",
                                   "image/wmf", "image/x-wmf", "application/x-wmf"};
/// A program that has not answered for so long is not asked again.
constexpr qint64 Patience = 1000;  // milliseconds

MemorySource SourceOf(const QByteArray& bytes) {
    return MemorySource(std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

/// The decoder goes by the content, whatever the type says. PNG is none of the formats that files have.
const DecoderEntry* DecoderOf(ByteSource& source) {
    static constexpr DecoderEntry Png{"png", nullptr, DecodePng};
    return ReadPngHeader(source) ? &Png : DecoderFor(source);
}

Picture PictureOf(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    Surface surface(pixels.width(), pixels.height());
    for (int y = 0; y < pixels.height(); ++y) {
        const auto row = surface.Row(y);
        std::memcpy(row.data(), pixels.constScanLine(y), row.size_bytes());
    }
    Picture picture = tavrix::PictureOf(std::move(surface));
    picture.transparent = true;
    return picture;
}

/// Goes through the kinds of the data until one of them is a whole picture.
class Search {
  public:
    explicit Search(const QMimeData& data) : data_(data) {}

    /// Whether a whole picture came.
    bool Among(std::span<const char* const> types) {
        return std::ranges::any_of(types, [this](const char* type) { return Try(QLatin1String(type)); });
    }
    /// Kinds that only the toolkit decodes.
    bool AmongOthers() {
        if (named_ || !data_.hasImage()) return false;
        const auto image = qvariant_cast<QImage>(data_.imageData());
        if (image.isNull()) {
            error_ = ErrorNumber::InvalidPicture;
            return false;
        }
        found_ = PictureOf(image);
        return true;
    }

    /// What there is in the end, perhaps a part of a picture.
    [[nodiscard]] Picture Result() const {
        if (!found_.Empty()) return Flattened(found_);
        throw RuntimeError(
            error_.value_or(named_ ? ErrorNumber::CantOpenClipboard : ErrorNumber::InvalidPicture));
    }

  private:
    bool Try(const QString& type) {
        if (silent_ || !data_.hasFormat(type)) return false;
        named_ = true;
        QElapsedTimer time;
        time.start();
        const QByteArray bytes = data_.data(type);
        if (bytes.isEmpty()) {
            silent_ = time.elapsed() >= Patience;
            return false;
        }
        MemorySource source = SourceOf(bytes);
        DecodedPicture decoded = DecodePicture(source, DecoderOf(source));
        if (decoded.error) {
            error_ = decoded.error;
            return false;
        }
        const bool whole = decoded.status.outcome == Outcome::Complete;
        if (whole || found_.Empty()) found_ = std::move(decoded.picture);
        return whole;
    }

    const QMimeData& data_;
    Picture found_;
    std::optional<ErrorNumber> error_;
    bool named_ = false;   ///< a kind was there that is decoded here
    bool silent_ = false;  ///< the program does not answer
};

}  // namespace

bool NamesPicture(const QMimeData& data) {
    return data.hasImage() || std::ranges::any_of(PixelTypes, [&data](const char* type) {
               return data.hasFormat(QLatin1String(type));
           });
}

bool HoldsMetafile(const QMimeData& data) {
    return std::ranges::any_of(MetafileTypes, [&data](const char* type) {
        if (!data.hasFormat(QLatin1String(type))) return false;
        const QByteArray bytes = data.data(QLatin1String(type));
        MemorySource source = SourceOf(bytes);
        return DecoderFor(source) != nullptr;
    });
}

Picture PictureIn(const QMimeData& data) {
    Search search(data);
    if (!search.Among(PixelTypes) && !search.AmongOthers()) search.Among(MetafileTypes);
    return search.Result();
}

}  // namespace tavrix::qt
