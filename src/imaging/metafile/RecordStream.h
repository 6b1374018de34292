#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/Decoder.h"
#include "imaging/metafile/RecordBytes.h"
#include "imaging/metafile/Records.h"

namespace tavrix::metafile {

/// Takes a file record by record and keeps what the records say, within bounds.
class RecordStream {
  public:
    RecordStream(ByteSource& source, std::uint64_t start)
        : source_(source), size_(source.Size()), reader_(source, start) {}

    /// The first bytes of the next record, to find its length in; nothing, and Ended, where the file ends before.
    [[nodiscard]] std::optional<RecordBytes> Head(std::size_t size);
    /// The record whose head was read, once its length is known; nothing, and Ended, where the file ends before.
    [[nodiscard]] std::optional<RecordBytes> Body(std::uint64_t length);
    /// Passes to the next record. False, and Ended, where there are too many of them.
    bool Keep(Record record);

    /// The first bytes of the record behind the one whose body was read; nothing where the file ends before.
    [[nodiscard]] std::optional<RecordBytes> HeadBehind(std::span<std::byte> into);
    /// How much of the file lies from there on.
    [[nodiscard]] std::uint64_t BytesBehind() const { return size_ - reader_.Offset(); }
    /// Leaves the record under way out, since it makes no sense. The list goes on, but does not end well any more.
    void LeaveOut();

    /// The list has come to its end, or ends before the record under way.
    void EndComplete() { ending_ = leftOut_.value_or(DecodeStatus{}); }
    void EndBefore(Outcome outcome, std::string_view reason);
    [[nodiscard]] const DecodeStatus& Ending() const { return ending_; }
    [[nodiscard]] std::vector<Record> Take() { return std::move(records_); }

  private:
    ByteSource& source_;
    std::uint64_t size_;
    ByteReader reader_;
    std::vector<std::byte> bytes_;
    std::uint64_t offset_ = 0;  ///< of the record under way
    std::vector<Record> records_;
    std::uint64_t kept_ = 0;               ///< bytes of records whose contents are kept
    std::optional<DecodeStatus> leftOut_;  ///< the first of them
    DecodeStatus ending_;
};

}  // namespace tavrix::metafile
