#include "imaging/codecs/TgaHeader.h"

#include <algorithm>
#include <array>

#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PixelRows.h"
#include "imaging/codecs/TgaDecoder.h"

namespace tavrix {
namespace {

constexpr std::size_t HeaderSize = 18;
constexpr std::size_t FooterSize = 26;
constexpr std::string_view FooterMark{"TRUEVISION-XFILE.\0", 18};
constexpr std::uint64_t AttributesInExtension = 494;

/// What the extension area says of the attribute bits.
enum class Attributes : std::uint8_t { None = 0, Undefined = 1, Retained = 2, Alpha = 3, Premultiplied = 4 };

/// The fields of the header as they are stored.
struct Fields {
    explicit Fields(std::span<const std::byte> bytes)
        : idLength(std::to_integer<unsigned>(bytes[0])),
          mapType(std::to_integer<unsigned>(bytes[1])),
          imageType(std::to_integer<unsigned>(bytes[2])),
          mapFirst(U16(bytes, 3)),
          mapLength(U16(bytes, 5)),
          mapBits(std::to_integer<unsigned>(bytes[7])),
          width(U16(bytes, 12)),
          height(U16(bytes, 14)),
          bits(std::to_integer<unsigned>(bytes[16])),
          descriptor(std::to_integer<unsigned>(bytes[17])) {}

    [[nodiscard]] unsigned MapEntryBytes() const { return (mapBits + 7) / 8; }
    [[nodiscard]] unsigned AttributeBits() const { return descriptor & 15U; }

    unsigned idLength, mapType, imageType, mapFirst, mapLength, mapBits, width, height, bits, descriptor;
};

std::string_view TroubleWith(const Fields& fields) {
    if (fields.mapType > 1) return "unknown kind of colour map";
    if (fields.width == 0 || fields.height == 0) return "no size";
    if ((fields.descriptor & 0xC0U) != 0) return "interleaved rows";
    switch (fields.imageType) {
        case 1:
        case 9:
            if (fields.mapType == 0 || fields.mapLength == 0) return "no colour map";
            if (fields.mapBits != 15 && fields.mapBits != 16 && fields.mapBits != 24 && fields.mapBits != 32)
                return "unknown depth of the colour map";
            return fields.bits == 8 || fields.bits == 15 || fields.bits == 16 ? "" : "unknown depth";
        case 2:
        case 10:
            return fields.bits == 15 || fields.bits == 16 || fields.bits == 24 || fields.bits == 32
                       ? ""
                       : "unknown depth";
        case 3:
        case 11:
            return fields.bits == 8 || fields.bits == 16 ? "" : "unknown depth";
        default:
            return "unknown image type";
    }
}

TgaPixels KindOf(unsigned imageType) {
    switch (imageType & 7U) {
        case 1:
            return TgaPixels::Mapped;
        case 2:
            return TgaPixels::Colour;
        default:
            return TgaPixels::Grey;
    }
}

/// Whether as many attribute bits are told as the pixel has besides its colour, and they are alpha. Files that tell
/// another number use the word loosely and mean opaque pixels. The one bit of 16-bit colour is an overlay's in most
/// files, so it is alpha only where the extension area says so.
bool TellsAlpha(const Fields& fields, TgaPixels kind, Attributes attributes) {
    if (attributes == Attributes::Undefined || attributes == Attributes::Retained) return false;
    const unsigned depth = kind == TgaPixels::Mapped ? fields.mapBits : fields.bits;
    if (depth == 16 && kind != TgaPixels::Grey) {
        const bool meant = attributes == Attributes::Alpha || attributes == Attributes::Premultiplied;
        return meant && fields.AttributeBits() == 1;
    }
    return (depth == 16 || depth == 32) && fields.AttributeBits() == 8;
}

Attributes AttributesOf(ByteSource& source) {
    std::array<std::byte, FooterSize> footer{};
    if (source.Size() < HeaderSize + FooterSize ||
        source.ReadAt(source.Size() - FooterSize, footer) != FooterSize) {
        return Attributes::None;
    }
    const auto mark = std::span(footer).last(FooterMark.size());
    if (!std::ranges::equal(mark, std::as_bytes(std::span(FooterMark)))) return Attributes::None;
    const std::uint64_t extension = U32(footer, 0);
    std::array<std::byte, 1> attributes{};
    if (extension == 0 || source.ReadAt(extension + AttributesInExtension, attributes) == 0) {
        return Attributes::None;
    }
    return static_cast<Attributes>(attributes[0]);
}

std::vector<Pixel> ReadMap(ByteSource& source, std::uint64_t offset, const Fields& fields, bool alpha) {
    const std::size_t entryBytes = fields.MapEntryBytes();
    std::vector<std::byte> bytes(fields.mapLength * entryBytes);
    std::vector<Pixel> map(source.ReadAt(offset, bytes) / entryBytes);
    if (map.empty()) return map;
    if (entryBytes == 3) {
        PixelsFromBgr24(bytes, map);
    } else {
        TgaPackedPixels(fields.mapBits, alpha).Convert(bytes, map);
    }
    return map;
}

}  // namespace

MaskedPixels TgaPackedPixels(unsigned bits, bool alpha) {
    if (bits == 32) return {32, {0xFF0000U, 0xFF00U, 0xFFU, alpha ? 0xFF000000U : 0U}};
    return {16, {0x7C00U, 0x3E0U, 0x1FU, alpha ? 0x8000U : 0U}};
}

bool RecognisesTga(std::span<const std::byte> start) {
    return start.size() >= HeaderSize && TroubleWith(Fields(start)).empty();
}

TgaHeader ReadTgaHeader(ByteSource& source) {
    TgaHeader header;
    std::array<std::byte, HeaderSize> bytes{};
    if (source.ReadAt(0, bytes) < HeaderSize) {
        header.trouble = "header cut off";
        return header;
    }
    const Fields fields(bytes);
    header.trouble = TroubleWith(fields);
    if (!header.trouble.empty()) return header;

    header.kind = KindOf(fields.imageType);
    header.runLength = (fields.imageType & 8U) != 0;
    header.width = static_cast<int>(fields.width);
    header.height = static_cast<int>(fields.height);
    header.bits = (fields.bits + 7) / 8 * 8;
    header.fromRight = (fields.descriptor & 0x10U) != 0;
    header.fromTop = (fields.descriptor & 0x20U) != 0;

    const Attributes attributes = AttributesOf(source);
    header.alpha = TellsAlpha(fields, header.kind, attributes);
    header.premultiplied = attributes == Attributes::Premultiplied;

    const std::uint64_t mapOffset = HeaderSize + fields.idLength;
    const std::uint64_t mapBytes =
        fields.mapType == 1 ? std::uint64_t{fields.mapLength} * fields.MapEntryBytes() : 0;
    header.pixelOffset = mapOffset + mapBytes;
    if (header.kind == TgaPixels::Mapped) {
        header.mapFirst = fields.mapFirst;
        header.map = ReadMap(source, mapOffset, fields, header.alpha);
    }
    return header;
}

}  // namespace tavrix
