#pragma once

#include <optional>

#include "imaging/metafile/RecordBytes.h"
#include "imaging/metafile/Records.h"

/// The records of a Windows metafile, a family a file. Each gives nothing for a function that it does not know; a
/// record that is broken is marked so in `bytes`, and what is given for it is of no use.
/// Source: [MS-WMF], Windows Metafile Format, section 2.3.
namespace tavrix::metafile {

/// Where the parameters start, behind a record's size and function.
inline constexpr std::uint64_t WmfParameters = 6;

[[nodiscard]] std::optional<Record> ReadWmfState(std::uint16_t function, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadWmfShape(std::uint16_t function, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadWmfClip(std::uint16_t function, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadWmfBitmap(std::uint16_t function, RecordBytes& bytes);
[[nodiscard]] std::optional<Record> ReadWmfText(std::uint16_t function, RecordBytes& bytes);
/// Records that make, choose and free objects. A made object's place in the table is not told in the record.
[[nodiscard]] std::optional<Record> ReadWmfObject(std::uint16_t function, RecordBytes& bytes);

/// A place that is told as y and then x.
[[nodiscard]] inline Point WmfPlace(RecordBytes& bytes, std::uint64_t at) {
    return {bytes.I16(at + 2), bytes.I16(at)};
}
/// A box that is told from the last side to the first: bottom, right, top, left.
[[nodiscard]] inline Box WmfBox(RecordBytes& bytes, std::uint64_t at) {
    return {bytes.I16(at + 6), bytes.I16(at + 4), bytes.I16(at + 2), bytes.I16(at)};
}

}  // namespace tavrix::metafile
