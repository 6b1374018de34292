#pragma once

#include <optional>

#include "imaging/metafile/RecordBytes.h"
#include "imaging/metafile/Records.h"

/// The records of an enhanced metafile, a family a file. Each gives nothing for a type that it does not know; a record
/// that is broken is marked so in `bytes`, and what is given for it is of no use.
/// Source: [MS-EMF], Enhanced Metafile Format, section 2.3.
namespace tavrix::metafile {

[[nodiscard]] std::optional<Record> ReadEmfState(std::uint32_t type, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadEmfObject(std::uint32_t type, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadEmfShape(std::uint32_t type, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadEmfClip(std::uint32_t type, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadEmfBitmap(std::uint32_t type, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadEmfText(std::uint32_t type, RecordBytes& bytes);

}  // namespace tavrix::metafile
