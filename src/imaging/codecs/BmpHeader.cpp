#include "imaging/codecs/BmpHeader.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>

#include "imaging/codecs/LittleEndian.h"

namespace tavrix {
namespace {

constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t CoreHeaderSize = 12;
constexpr std::size_t InfoHeaderSize = 40;
constexpr std::size_t Os2HeaderSize = 64;
constexpr std::size_t V5HeaderSize = 124;

enum Compression : std::uint32_t {
    Rgb = 0,
    Rle8 = 1,
    Rle4 = 2,
    Bitfields = 3,
    JpegData = 4,
    PngData = 5,
    AlphaBitfields = 6
};

BmpHeader Refused(std::string_view why) {
    BmpHeader header;
    header.trouble = why;
    return header;
}

/// A header as it stands in the file; fields that it is too short for are 0.
struct RawHeader {
    explicit RawHeader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint32_t Field(std::size_t at) const {
        return at + 4 <= bytes_.size() ? U32(bytes_, at) : 0U;
    }
    [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
    [[nodiscard]] bool Core() const { return Size() == CoreHeaderSize; }
    /// OS/2 2.x numbers its compressions differently.
    [[nodiscard]] bool Os2() const { return Size() < InfoHeaderSize || Size() == Os2HeaderSize; }
    [[nodiscard]] unsigned Bits() const { return Core() ? U16(bytes_, 10) : U16(bytes_, 14); }
    [[nodiscard]] std::uint32_t Compression() const { return Core() ? 0U : Field(16); }

  private:
    std::span<const std::byte> bytes_;
};

std::optional<BmpStorage> StorageOf(const RawHeader& raw) {
    const unsigned bits = raw.Bits();
    switch (raw.Compression()) {
        case Rgb:
            if (bits == 1 || bits == 2 || bits == 4 || bits == 8) return BmpStorage::Indexed;
            if (bits == 16 || bits == 32) return BmpStorage::Packed;
            if (bits == 24) return BmpStorage::Bgr24;
            return std::nullopt;
        case Rle8:
            return bits == 8 ? std::optional(BmpStorage::Rle8) : std::nullopt;
        case Rle4:
            return bits == 4 ? std::optional(BmpStorage::Rle4) : std::nullopt;
        case Bitfields:
        case AlphaBitfields:
            if (raw.Os2()) return std::nullopt;  // there, 3 is a fax compression
            return bits == 16 || bits == 32 ? std::optional(BmpStorage::Packed) : std::nullopt;
        case JpegData:
            if (raw.Os2()) return bits == 24 ? std::optional(BmpStorage::Rle24) : std::nullopt;
            return BmpStorage::Jpeg;
        case PngData:
            return raw.Os2() ? std::nullopt : std::optional(BmpStorage::Png);
        default:
            return std::nullopt;
    }
}

/// Reads the masks and gives the number of bytes that they take behind the header.
std::size_t ReadMasks(ByteSource& source, std::uint64_t headerEnd, const RawHeader& raw, BmpHeader& header) {
    if (raw.Compression() == Rgb) {
        header.masks = header.bits == 16 ? std::array<std::uint32_t, 4>{0x7C00U, 0x3E0U, 0x1FU, 0U}
                                         : std::array<std::uint32_t, 4>{0xFF0000U, 0xFF00U, 0xFFU, 0U};
        return 0;
    }
    std::size_t behind = 0;
    if (raw.Size() >= InfoHeaderSize + 12) {
        for (std::size_t i = 0; i < 4; ++i)
            header.masks[i] = raw.Field(InfoHeaderSize + 4 * i);
    } else {
        behind = raw.Compression() == AlphaBitfields ? 16 : 12;
        std::array<std::byte, 16> bytes{};
        source.ReadAt(headerEnd, std::span(bytes).first(behind));
        for (std::size_t i = 0; i < 4; ++i)
            header.masks[i] = U32(bytes, 4 * i);
    }
    if (header.bits == 16) {
        for (std::uint32_t& mask : header.masks)
            mask &= 0xFFFFU;
    }
    return behind;
}

/// Fills the palette from what there is of it between its offset and the pixels, and gives the number of bytes that
/// it claims.
std::uint64_t ReadPalette(ByteSource& source, const RawHeader& raw, BmpHeader& header) {
    header.palette.fill(OpaquePixel(0, 0, 0));
    const std::size_t entrySize = raw.Core() ? 3 : 4;
    // A file in place of pixels often has 0 bits told, and no palette.
    const bool indexed = header.bits >= 1 && header.bits <= 8;
    const std::uint64_t possible = indexed ? std::uint64_t{1} << header.bits : 0U;
    const std::uint64_t told = raw.Field(32);
    header.paletteCount = raw.Core() || told == 0 ? possible : told;

    std::uint64_t count = std::min(header.paletteCount, possible);
    if (header.pixelOffset > header.paletteOffset)
        count = std::min(count, (header.pixelOffset - header.paletteOffset) / entrySize);
    std::array<std::byte, std::size_t{256} * 4> bytes{};
    const std::size_t got = source.ReadAt(
        header.paletteOffset, std::span(bytes).first(static_cast<std::size_t>(count) * entrySize));
    for (std::size_t i = 0; i < got / entrySize; ++i) {
        const auto part = [&](std::size_t at) {
            return std::to_integer<unsigned>(bytes[i * entrySize + at]);
        };
        header.palette[i] = OpaquePixel(part(2), part(1), part(0));
    }
    return header.paletteCount * entrySize;
}

}  // namespace

BmpHeader ReadBmpHeader(ByteSource& source) {
    std::array<std::byte, FileHeaderSize> bytes{};
    std::uint64_t base = 0;
    std::size_t got = source.ReadAt(base, bytes);
    if (got >= 2 && bytes[0] == std::byte{'B'} && bytes[1] == std::byte{'A'}) {
        base = FileHeaderSize;  // an array of bitmaps: the first one is for the best display
        bytes.fill(std::byte{0});
        got = source.ReadAt(base, bytes);
    }
    if (got < FileHeaderSize) return Refused("header cut off");
    if (bytes[0] != std::byte{'B'} || bytes[1] != std::byte{'M'}) return Refused("no bitmap");
    return ReadBmpInfo(source, base + FileHeaderSize, U32(bytes, 10));
}

BmpHeader ReadBmpInfo(ByteSource& source, std::uint64_t start, std::uint64_t pixelOffset) {
    std::array<std::byte, V5HeaderSize> bytes{};
    const std::size_t got = source.ReadAt(start, bytes);
    if (got < CoreHeaderSize) return Refused("header cut off");
    const std::uint32_t headerSize = U32(bytes, 0);
    if (headerSize < CoreHeaderSize || (headerSize > CoreHeaderSize && headerSize < 16) ||
        headerSize > V5HeaderSize) {
        return Refused("unknown header");
    }
    if (got < headerSize) return Refused("header cut off");
    const auto whole = std::span<const std::byte>(bytes);
    const RawHeader raw{whole.first(headerSize)};

    BmpHeader header;
    header.width = raw.Core() ? U16(whole, 4) : I32(whole, 4);
    header.height = raw.Core() ? U16(whole, 6) : I32(whole, 8);
    if (header.height == std::numeric_limits<std::int32_t>::min()) return Refused("absurd height");
    header.topDown = header.height < 0;
    if (header.topDown) header.height = -header.height;
    if (header.width <= 0 || header.height == 0) return Refused("no area");

    const std::optional<BmpStorage> storage = StorageOf(raw);
    if (!storage) return Refused("unknown compression or bit count");
    header.storage = *storage;
    header.bits = raw.Bits();

    const std::uint64_t headerEnd = start + headerSize;
    header.paletteOffset = headerEnd;
    if (header.storage == BmpStorage::Packed)
        header.paletteOffset += ReadMasks(source, headerEnd, raw, header);
    header.pixelOffset = pixelOffset;
    const std::uint64_t paletteSize = ReadPalette(source, raw, header);
    if (header.bits <= 8 && raw.Field(32) != 0 && paletteSize > source.Size())
        return Refused("absurd palette");
    // Some writers leave the offset empty or let it point into the headers or behind the file.
    if (header.pixelOffset < header.paletteOffset || header.pixelOffset >= source.Size()) {
        header.pixelOffset = header.paletteOffset + paletteSize;
    }
    return header;
}

}  // namespace tavrix
