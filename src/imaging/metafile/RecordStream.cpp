#include "imaging/metafile/RecordStream.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tavrix::metafile {
namespace {

/// Of a longer record only the beginning is looked at. Bitmaps stay in the file, so nothing sensible is longer.
constexpr std::uint64_t MostBytesAtHand = 32U << 20U;
/// Beyond these a drawing ends, so that no file fills the memory.
constexpr std::uint64_t MostBytesKept = 256U << 20U;
constexpr std::size_t MostRecords = 2U << 20U;

bool LeavesItsBytesInTheFile(const Record& record) {
    return std::holds_alternative<std::unique_ptr<const Blit>>(record) ||
           std::holds_alternative<std::unique_ptr<const Plg>>(record) ||
           std::holds_alternative<std::unique_ptr<const DrawDib>>(record);
}

}  // namespace

std::optional<RecordBytes> RecordStream::Head(std::size_t size) {
    offset_ = reader_.Offset();
    bytes_.resize(size);
    if (reader_.Read(bytes_) < size) {
        EndBefore(Outcome::Truncated, "no end record");
        return std::nullopt;
    }
    return RecordBytes(bytes_, offset_, size);
}

std::optional<RecordBytes> RecordStream::Body(std::uint64_t length) {
    if (length > size_ - offset_) {
        EndBefore(Outcome::Truncated, "record cut off");
        return std::nullopt;
    }
    const std::size_t head = bytes_.size();
    bytes_.resize(static_cast<std::size_t>(std::min(length, MostBytesAtHand)));
    if (reader_.Read(std::span(bytes_).subspan(head)) < bytes_.size() - head) {
        EndBefore(Outcome::Truncated, "record cut off");
        return std::nullopt;
    }
    reader_.Skip(length - bytes_.size());
    return RecordBytes(bytes_, offset_, length);
}

std::optional<RecordBytes> RecordStream::HeadBehind(std::span<std::byte> into) {
    const std::uint64_t offset = reader_.Offset();
    if (source_.ReadAt(offset, into) < into.size()) return std::nullopt;
    return RecordBytes(into, offset, into.size());
}

void RecordStream::LeaveOut() {
    if (!leftOut_) leftOut_ = DecodeStatus{Outcome::Corrupt, offset_, "broken record", true};
}

bool RecordStream::Keep(Record record) {
    if (!LeavesItsBytesInTheFile(record)) kept_ += bytes_.size();
    if (records_.size() == MostRecords || kept_ > MostBytesKept) {
        EndBefore(Outcome::Truncated, "more records than are drawn");
        return false;
    }
    records_.push_back(std::move(record));
    return true;
}

void RecordStream::EndBefore(Outcome outcome, std::string_view reason) {
    ending_ = {outcome, outcome == Outcome::Truncated ? std::min(reader_.Offset(), size_) : offset_, reason,
               true};
}

}  // namespace tavrix::metafile
