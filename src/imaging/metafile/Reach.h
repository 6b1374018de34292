#pragma once

#include <span>

#include "imaging/codecs/Decoder.h"
#include "imaging/metafile/Records.h"

namespace tavrix::metafile {

/// The box around the origin and all that the records of a plain metafile draw, in their own units. Text is laid out
/// for this, with the fonts that there are. May throw std::bad_alloc.
[[nodiscard]] Box ReachOf(std::span<const Record> records, ByteSource& source, const Cancellation& sink);

}  // namespace tavrix::metafile
