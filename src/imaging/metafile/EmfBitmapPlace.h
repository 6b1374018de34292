#pragma once

#include "imaging/metafile/RecordBytes.h"

namespace tavrix::metafile {

/// A bitmap whose header's offset and length, pixels' offset and length stand at `at`, and the use of its palette at
/// `usage`. None where no header is told of; the record is broken where a part of it lies outside.
[[nodiscard]] BitmapPlace ReadEmfBitmapPlace(RecordBytes& bytes, std::uint64_t at, std::uint64_t usage);

}  // namespace tavrix::metafile
