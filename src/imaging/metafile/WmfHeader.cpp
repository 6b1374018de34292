#include "imaging/metafile/WmfHeader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "imaging/metafile/Reach.h"
#include "imaging/metafile/RecordBytes.h"

namespace tavrix::metafile {
namespace {

constexpr std::uint32_t PlaceableKey = 0x9AC6CDD7U;
constexpr std::size_t PlaceableSize = 22;
constexpr std::size_t HeaderSize = 18;
constexpr double ScreenDotsPerInch = 96;
/// What a writer means that leaves the number of units empty: twips.
constexpr std::uint16_t UsualUnitsPerInch = 1440;
/// The longest side of a metafile that does not tell its size.
constexpr double LongestSide = 2048;

bool IsHeader(std::span<const std::byte> bytes) {
    if (bytes.size() < 6) return false;
    const std::uint16_t kind = U16(bytes, 0);
    const std::uint16_t words = U16(bytes, 2);
    const std::uint16_t version = U16(bytes, 4);
    return (kind == 1 || kind == 2) && words == HeaderSize / 2 && (version == 0x0100 || version == 0x0300);
}

bool IsPlaceable(std::span<const std::byte> bytes) {
    return bytes.size() >= 4 && U32(bytes, 0) == PlaceableKey;
}

WmfHeader::Placeable ReadPlaceable(std::span<const std::byte> bytes) {
    RecordBytes fields(bytes, 0, bytes.size());
    WmfHeader::Placeable placeable;
    const Point first = fields.P16(6);
    const Point second = fields.P16(10);
    placeable.bounds = {first.x, first.y, second.x, second.y};
    placeable.unitsPerInch = fields.U16(14);
    return placeable;
}

WmfHeader Refused(Outcome outcome, std::uint64_t offset, std::string_view why) {
    WmfHeader header;
    header.recordsStart = offset;
    header.trouble = why;
    header.outcome = outcome;
    return header;
}

std::optional<Point> FirstExtent(std::span<const Record> records) {
    for (const Record& record : records) {
        const auto* set = std::get_if<SetFrame>(&record);
        if (set != nullptr && set->frame == Frame::WindowExtent && set->value.x != 0 && set->value.y != 0)
            return set->value;
    }
    return std::nullopt;
}

std::int64_t Pixels(double size) {
    return std::max<std::int64_t>(std::llround(std::abs(size)), 1);
}

Placement Placed(double width, double height, const vector::Box& window) {
    Placement placement;
    placement.width = Pixels(width);
    placement.height = Pixels(height);
    placement.window = window;
    placement.viewport = {0, 0, double(placement.width), double(placement.height)};
    return placement;
}

}  // namespace

bool StartsLikeWmf(std::span<const std::byte> start) {
    if (!IsPlaceable(start)) return IsHeader(start);
    return start.size() < PlaceableSize + 6 || IsHeader(start.subspan(PlaceableSize));
}

WmfHeader ReadWmfHeader(ByteSource& source) {
    std::array<std::byte, PlaceableSize + HeaderSize> bytes{};
    const std::size_t got = source.ReadAt(0, bytes);
    const auto start = std::span<const std::byte>(bytes).first(got);
    const std::size_t before = IsPlaceable(start) ? PlaceableSize : 0;
    if (got < before + HeaderSize) return Refused(Outcome::Truncated, got, "header cut off");
    if (!IsHeader(start.subspan(before))) return Refused(Outcome::Corrupt, before, "no metafile");
    WmfHeader header;
    header.recordsStart = before + HeaderSize;
    if (before != 0) header.placeable = ReadPlaceable(start);
    return header;
}

std::optional<Placement> ToldPlacement(const WmfHeader& header) {
    if (!header.placeable) return std::nullopt;
    const Box& bounds = header.placeable->bounds;
    const std::uint16_t told = header.placeable->unitsPerInch;
    const double scale = ScreenDotsPerInch / (told == 0 ? UsualUnitsPerInch : told);
    const vector::Box window{double(bounds.left), double(bounds.top), double(bounds.right),
                             double(bounds.bottom)};
    if (window.Width() == 0 || window.Height() == 0) return std::nullopt;
    return Placed(window.Width() * scale, window.Height() * scale, window);
}

Placement PlacementOf(const WmfHeader& header, std::span<const Record> records, ByteSource& source,
                      const Cancellation& sink) {
    if (const auto told = ToldPlacement(header)) return *told;
    vector::Box window;
    if (const std::optional<Point> extent = FirstExtent(records)) {
        window = {0, 0, double(extent->x), double(extent->y)};
    } else {
        const Box reach = ReachOf(records, source, sink);
        window = {double(reach.left), double(reach.top), reach.right + 1.0, reach.bottom + 1.0};
    }
    const double longest = std::max(std::abs(window.Width()), std::abs(window.Height()));
    const double scale = longest > LongestSide ? LongestSide / longest : 1;
    return Placed(window.Width() * scale, window.Height() * scale, window);
}

}  // namespace tavrix::metafile
