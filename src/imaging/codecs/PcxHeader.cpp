#include "imaging/codecs/PcxHeader.h"

#include <algorithm>

#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PcxDecoder.h"

namespace tavrix {
namespace {

constexpr std::size_t PaletteInHeader = 16;
constexpr std::uint64_t PaletteAtEnd = 1 + 3 * 256;
constexpr std::byte PaletteMark{0x0C};

/// The colours of the display adapters of the time: blue, green, red and intensity in the bits of the index.
constexpr std::array<Pixel, 16> AdapterColours{
    0xFF000000U, 0xFF0000AAU, 0xFF00AA00U, 0xFF00AAAAU, 0xFFAA0000U, 0xFFAA00AAU, 0xFFAA5500U, 0xFFAAAAAAU,
    0xFF555555U, 0xFF5555FFU, 0xFF55FF55U, 0xFF55FFFFU, 0xFFFF5555U, 0xFFFF55FFU, 0xFFFFFF55U, 0xFFFFFFFFU};

bool KnownDepth(unsigned bits, unsigned planes) {
    switch (bits) {
        case 1:
            return planes >= 1 && planes <= 4;
        case 2:
            return planes == 1 || planes == 2;
        case 4:
            return planes == 1;
        case 8:
            return planes == 1 || planes == 3 || planes == 4;
        default:
            return false;
    }
}

Pixel Rgb(std::span<const std::byte> bytes, std::size_t at) {
    return OpaquePixel(std::to_integer<unsigned>(bytes[at]), std::to_integer<unsigned>(bytes[at + 1]),
                       std::to_integer<unsigned>(bytes[at + 2]));
}

/// Whether the header's palette holds no colours but the two bytes by which pictures of four colours were told:
/// the background in the first, the set of the other three in the fourth.
bool TellsColourSet(std::span<const std::byte> palette) {
    for (std::size_t i = 0; i < 12; ++i) {
        if (i != 0 && i != 3 && palette[i] != std::byte{0}) return false;
    }
    return true;
}

void TakeColourSet(std::span<const std::byte> palette, std::span<Pixel> into) {
    const auto set = std::to_integer<unsigned>(palette[3]) >> 5U;
    const std::size_t white = (set & 2U) != 0 ? 1 : 0;
    const std::size_t bright = (set & 1U) != 0 ? 8 : 0;
    into[0] = AdapterColours[std::to_integer<unsigned>(palette[0]) >> 4U];
    for (std::size_t i = 1; i < 4; ++i)
        into[i] = AdapterColours[2 * i + white + bright];
}

/// Up to four bits. The versions that have no palette by the format's rules have one in some files, and those that
/// have one leave it empty in others; so what counts is whether there are colours.
void TakeHeaderPalette(const PcxHeader& header, std::span<const std::byte> palette, std::span<Pixel> into) {
    const unsigned bits = header.bits * header.planes;
    if (bits == 1) {
        into[0] = OpaquePixel(0, 0, 0);
        into[1] = OpaquePixel(255, 255, 255);
        return;
    }
    if (header.bits == 2 && header.planes == 1 && TellsColourSet(palette))
        return TakeColourSet(palette, into);
    const std::size_t colours = std::size_t{1} << bits;
    for (std::size_t i = 0; i < colours; ++i)
        into[i] = Rgb(palette, 3 * i);
    const auto used = into.first(colours);
    if (std::ranges::adjacent_find(used, std::not_equal_to()) == used.end()) {
        std::ranges::copy(std::span(AdapterColours).first(colours), into.begin());
    }
}

/// The palette at the end of the file where there is one, and shades of grey otherwise. Gives where the pixels end.
std::uint64_t Take256Colours(ByteSource& source, std::span<Pixel> into) {
    std::array<std::byte, PaletteAtEnd> end{};
    const std::uint64_t size = source.Size();
    if (size >= PcxHeader::Size + PaletteAtEnd && source.ReadAt(size - PaletteAtEnd, end) == end.size() &&
        end[0] == PaletteMark) {
        for (std::size_t i = 0; i < into.size(); ++i)
            into[i] = Rgb(end, 1 + 3 * i);
        return size - PaletteAtEnd;
    }
    for (unsigned i = 0; i < into.size(); ++i)
        into[i] = OpaquePixel(i, i, i);
    return size;
}

}  // namespace

bool RecognisesPcx(std::span<const std::byte> start) {
    return start.size() >= 4 && start[0] == std::byte{10} && std::to_integer<unsigned>(start[1]) <= 5 &&
           std::to_integer<unsigned>(start[2]) <= 1;
}

PcxHeader ReadPcxHeader(ByteSource& source) {
    PcxHeader header;
    std::array<std::byte, PcxHeader::Size> bytes{};
    if (source.ReadAt(0, bytes) < bytes.size()) {
        header.trouble = "header cut off";
        return header;
    }
    if (!RecognisesPcx(bytes)) {
        header.trouble = "unknown version or encoding";
        return header;
    }
    header.runLength = bytes[2] == std::byte{1};
    header.bits = std::to_integer<unsigned>(bytes[3]);
    header.planes = std::to_integer<unsigned>(bytes[65]);
    header.width = U16(bytes, 8) - U16(bytes, 4) + 1;
    header.height = U16(bytes, 10) - U16(bytes, 6) + 1;
    header.bytesPerLine = U16(bytes, 66);
    header.dataEnd = source.Size();
    if (!KnownDepth(header.bits, header.planes)) {
        header.trouble = "unknown depth";
    } else if (header.width <= 0 || header.height <= 0) {
        header.trouble = "no size";
    } else if (header.bytesPerLine * 8 < static_cast<std::size_t>(header.width) * header.bits) {
        header.trouble = "lines shorter than the picture is wide";
    } else if (header.bits * header.planes <= 4) {
        TakeHeaderPalette(header, std::span(bytes).subspan(PaletteInHeader), header.palette);
    } else if (!header.TrueColour()) {
        header.dataEnd = Take256Colours(source, header.palette);
    }
    return header;
}

}  // namespace tavrix
