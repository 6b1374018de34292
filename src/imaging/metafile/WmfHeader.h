#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "imaging/codecs/ByteSource.h"
#include "imaging/metafile/Recording.h"

namespace tavrix::metafile {

/// What stands before the records of a Windows metafile.
struct WmfHeader {
    /// The header that makes a metafile placeable: its bounds in logical units, and how many of them are an inch.
    struct Placeable {
        Box bounds;
        std::uint16_t unitsPerInch = 0;
    };

    std::optional<Placeable> placeable;
    std::uint64_t recordsStart = 0;  ///< bytes from the start of the file
    std::string_view trouble;        ///< why the file is refused; empty when it is not
    Outcome outcome = Outcome::Complete;
};

[[nodiscard]] WmfHeader ReadWmfHeader(ByteSource& source);
/// Whether the first bytes of a file are such a header.
[[nodiscard]] bool StartsLikeWmf(std::span<const std::byte> start);

/// What the header itself tells; nothing where it does not.
[[nodiscard]] std::optional<Placement> ToldPlacement(const WmfHeader& header);
/// A placeable metafile has its bounds' size at 96 dots an inch. Of others the first window extent tells the size, a
/// unit a pixel, or where there is none, what is drawn; both within what a screen shows.
[[nodiscard]] Placement PlacementOf(const WmfHeader& header, std::span<const Record> records,
                                    ByteSource& source, const Cancellation& sink);

}  // namespace tavrix::metafile
