#pragma once

#include <vector>

#include "imaging/codecs/Decoder.h"
#include "imaging/metafile/Records.h"
#include "imaging/vector/Geometry.h"

namespace tavrix::metafile {

/// How large the picture is, and how the units that the records start with fall on it.
struct Placement {
    std::int64_t width = 0;   ///< pixels, perhaps over the limits
    std::int64_t height = 0;  ///< pixels
    /// From pixels of the device that the records are meant for to pixels of the picture.
    vector::Affine deviceToPicture;
    double pixelsPerMillimetreX = 96 / 25.4;  ///< of that device
    double pixelsPerMillimetreY = 96 / 25.4;
    /// What MM_TEXT means: the part of the units that falls on the viewport.
    vector::Box window{0, 0, 1, 1};
    vector::Box viewport{0, 0, 1, 1};  ///< pixels of the device
    /// Enhanced metafiles: boxes include their right and lower sides, regions are in pixels of the device.
    bool enhanced = false;
};

/// A metafile, checked. It holds no more than a small multiple of the bytes that the file really has.
struct Recording {
    Placement placement;
    std::vector<Record> records;
    std::string_view trouble;  ///< why there is no picture at all; empty when there is one
    /// How the list ended: Complete at the end record, otherwise before a record that is broken. One that is broken in
    /// itself, and whose length leads to the next, is left out; then this is Corrupt, although the list goes on.
    DecodeStatus ending;
};

/// The placement alone, without a record.
[[nodiscard]] Recording ReadEmfHeader(ByteSource& source);
[[nodiscard]] Recording ReadEmf(ByteSource& source, const Cancellation& sink);
[[nodiscard]] Recording ReadWmf(ByteSource& source, const Cancellation& sink);

}  // namespace tavrix::metafile
