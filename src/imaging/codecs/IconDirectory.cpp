#include "imaging/codecs/IconDirectory.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PngDecoder.h"
#include "imaging/codecs/SourcePart.h"

namespace tavrix {
namespace {

constexpr std::size_t DirectoryHeaderSize = 6;
constexpr std::size_t EntrySize = 16;

std::optional<IconImage> ReadImage(ByteSource& source, std::uint64_t offset) {
    SourcePart inside(source, offset);
    if (const auto png = ReadPngHeader(inside)) {
        return IconImage{offset, png->width, png->height, png->bits, 0, true};
    }
    const BmpHeader header = ReadIconBitmap(inside);
    if (!header.trouble.empty()) return std::nullopt;
    return IconImage{offset, header.width, header.height, header.bits, 0, false};
}

}  // namespace

BmpHeader ReadIconBitmap(ByteSource& source) {
    BmpHeader header = ReadBmpInfo(source, 0, 0);
    if (!header.trouble.empty()) return header;
    if (header.storage != BmpStorage::Indexed && header.storage != BmpStorage::Packed &&
        header.storage != BmpStorage::Bgr24) {
        header.trouble = "compressed icon";
        return header;
    }
    header.height /= 2;  // what is told counts the mask, too
    if (header.height == 0) header.trouble = "no area";
    if (header.bits == 32 && header.masks[3] == 0) {
        header.masks[3] = ~(header.masks[0] | header.masks[1] | header.masks[2]);
    }
    return header;
}

std::vector<IconImage> ReadIconDirectory(ByteSource& source) {
    ByteReader reader(source, 0);
    std::array<std::byte, DirectoryHeaderSize> start{};
    if (reader.Read(start) != start.size()) return {};
    std::vector<IconImage> images;
    for (unsigned left = U16(start, 4); left > 0; --left) {
        std::array<std::byte, EntrySize> entry{};
        if (reader.Read(entry) != entry.size()) break;
        const std::uint64_t offset = U32(entry, 12);
        if (offset >= source.Size()) continue;
        std::optional<IconImage> image = ReadImage(source, offset);
        if (!image || image->Area() > MostIconPixels) continue;
        image->colours = std::to_integer<unsigned>(entry[2]);
        images.push_back(*image);
    }
    std::ranges::stable_sort(images, [](const IconImage& a, const IconImage& b) {
        return std::tuple(a.Area(), a.bits, a.colours) > std::tuple(b.Area(), b.bits, b.colours);
    });
    return images;
}

}  // namespace tavrix
