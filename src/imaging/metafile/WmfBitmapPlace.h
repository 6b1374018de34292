#pragma once

#include "imaging/metafile/RecordBytes.h"

namespace tavrix::metafile {

/// A bitmap with its header at `at` and its pixels behind it, up to the end of the record. The record is broken where
/// it has no room for a header.
[[nodiscard]] BitmapPlace ReadWmfDib(RecordBytes& bytes, std::uint64_t at, bool paletteIndexes);
/// A bitmap of the old kind: a header of ten bytes, `gap` bytes, and the pixels up to the end of the record.
[[nodiscard]] BitmapPlace ReadWmfDeviceBitmap(RecordBytes& bytes, std::uint64_t at, std::uint64_t gap);

}  // namespace tavrix::metafile
