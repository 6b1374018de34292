#include "imaging/codecs/BmpRows.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PixelRows.h"

namespace tavrix {
namespace {

/// Large enough for few system calls, small enough to stay in the processor's cache.
constexpr std::uint64_t BandBytes = 512U << 10U;

class RowDecoder {
  public:
    explicit RowDecoder(const BmpHeader& header) : header_(header) {
        if (header.storage == BmpStorage::Packed) masked_.emplace(header.bits, header.masks);
    }

    /// As many pixels as `row` holds whole.
    void Convert(std::span<const std::byte> row, std::span<Pixel> into) const {
        const std::uint64_t whole = std::uint64_t{row.size()} * 8 / header_.bits;
        if (whole < into.size()) into = into.first(static_cast<std::size_t>(whole));
        switch (header_.storage) {
            case BmpStorage::Bgr24:
                return PixelsFromBgr24(row, into);
            case BmpStorage::Packed:
                return masked_->Convert(row, into);
            default:
                return PixelsFromIndexes(header_.bits, row, header_.palette, into);
        }
    }

  private:
    const BmpHeader& header_;
    std::optional<MaskedPixels> masked_;
};

/// Many writers declare an alpha part and leave it 0. Such a picture is meant to be opaque.
bool UsesAlpha(ByteSource& source, const BmpHeader& header, std::span<std::byte> buffer) {
    if (header.masks[3] == 0) return false;
    const std::uint64_t end =
        header.pixelOffset + header.Stride() * static_cast<std::uint64_t>(header.height);
    for (std::uint64_t at = header.pixelOffset; at < end;) {
        const auto want = static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size() / 4 * 4, end - at));
        const std::size_t got = source.ReadAt(at, buffer.first(want));
        const std::span<const std::byte> bytes = buffer;
        for (std::size_t i = 0; i + 4 <= got; i += 4) {
            const std::uint32_t packed = U32(bytes, i);
            const std::uint32_t mask =
                header.bits == 32 ? header.masks[3] : header.masks[3] | (header.masks[3] << 16U);
            if ((packed & mask) != 0) return true;
        }
        if (got < want) return false;
        at += got;
    }
    return false;
}

}  // namespace

DecodeStatus DecodeBmpRows(ByteSource& source, BmpHeader header, PictureSink& sink) {
    const std::uint64_t stride = header.Stride();
    const std::uint64_t needed = (static_cast<std::uint64_t>(header.width) * header.bits + 7U) / 8U;
    const auto height = static_cast<std::uint64_t>(header.height);
    const std::uint64_t available =
        source.Size() > header.pixelOffset ? source.Size() - header.pixelOffset : std::uint64_t{0};
    if (available * 8 < header.bits) return {Outcome::Truncated, source.Size(), "no pixels", false};

    const std::uint64_t bandRows = std::clamp<std::uint64_t>(BandBytes / stride, 1, height);
    if (!WithinPictureLimits(header.width, header.height)) {
        sink.Begin({.width = header.width, .height = header.height});
        return {Outcome::Corrupt, 0, "over the limits", false};
    }
    std::vector<std::byte> band(static_cast<std::size_t>(bandRows * stride));

    if (header.storage == BmpStorage::Packed && !UsesAlpha(source, header, band)) header.masks[3] = 0;
    const std::uint64_t complete = (height - 1) * stride + needed;
    const bool transparent = header.masks[3] != 0 || available < complete;
    Surface* surface =
        sink.Begin({.width = header.width, .height = header.height, .transparent = transparent});
    if (surface == nullptr) return {Outcome::Corrupt, 0, "surface refused", false};

    const RowDecoder decoder(header);
    bool shortRead = false;
    for (std::uint64_t top = 0; top < height; top += bandRows) {
        if (sink.Cancelled()) return {Outcome::Truncated, header.pixelOffset, "cancelled", top != 0};
        const std::uint64_t rows = std::min(bandRows, height - top);
        const std::uint64_t first = header.topDown ? top : height - top - rows;  // in the order of the file
        const std::uint64_t length = (rows - 1) * stride + needed;
        const std::size_t got = source.ReadAt(header.pixelOffset + first * stride,
                                              std::span(band).first(static_cast<std::size_t>(length)));
        shortRead = shortRead || got < length;
        for (std::uint64_t i = 0; i * stride < got && i < rows; ++i) {
            const std::uint64_t row = first + i;
            const std::uint64_t y = header.topDown ? row : height - 1 - row;
            const auto at = static_cast<std::size_t>(i * stride);
            const std::size_t count = std::min<std::size_t>(static_cast<std::size_t>(needed), got - at);
            decoder.Convert(std::span(band).subspan(at, count), surface->Row(static_cast<int>(y)));
        }
        sink.RowsReady(static_cast<int>(top + rows));
    }
    if (shortRead) return {Outcome::Truncated, source.Size(), "pixels cut off", true};
    return {Outcome::Complete, 0, {}, true};
}

}  // namespace tavrix
