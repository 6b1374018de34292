#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <queue>

#include "imaging/metafile/RecordStream.h"
#include "imaging/metafile/Recording.h"
#include "imaging/metafile/WmfHeader.h"
#include "imaging/metafile/WmfReaders.h"

namespace tavrix::metafile {
namespace {

constexpr std::uint16_t EndRecord = 0;
constexpr std::size_t RecordHead = 6;
constexpr std::uint64_t SmallestRecord = 6;

using Reader = std::optional<Record> (*)(std::uint16_t, RecordBytes&);
constexpr std::array<Reader, 6> Readers{ReadWmfShape, ReadWmfState,  ReadWmfObject,
                                        ReadWmfClip,  ReadWmfBitmap, ReadWmfText};

std::optional<Record> ReadRecord(std::uint16_t function, RecordBytes& bytes) {
    for (const Reader reader : Readers) {
        if (std::optional<Record> record = reader(function, bytes)) return record;
    }
    return std::nullopt;
}

/// An object goes to the first place of the table that is free.
class Places {
  public:
    /// MostHandles when the table is full.
    [[nodiscard]] Handle Take() {
        if (freed_.empty()) return next_ < MostHandles ? Occupy(next_++) : MostHandles;
        const Handle place = freed_.top();
        freed_.pop();
        return Occupy(place);
    }
    void Free(Handle place) {
        if (place >= occupied_.size() || !occupied_[place]) return;
        occupied_[place] = false;
        freed_.push(place);
    }

  private:
    Handle Occupy(Handle place) {
        if (place >= occupied_.size()) occupied_.resize(place + 1);
        occupied_[place] = true;
        return place;
    }

    std::priority_queue<Handle, std::vector<Handle>, std::greater<>> freed_;
    std::vector<bool> occupied_;
    Handle next_ = 0;
};

/// Whether a record's length can be believed: it leads to something that starts as a record does.
bool LeadsToARecord(RecordStream& stream) {
    std::array<std::byte, RecordHead> bytes{};
    std::optional<RecordBytes> next = stream.HeadBehind(bytes);
    if (!next) return false;
    const std::uint64_t length = std::uint64_t{2} * next->U32(0);
    return next->U16(4) == EndRecord || (length >= SmallestRecord && length <= stream.BytesBehind());
}

/// Keeps the next record. False when the list ends with it.
bool TakeRecord(RecordStream& stream, Places& places) {
    const std::optional<RecordBytes> head = stream.Head(RecordHead);
    if (!head) return false;
    const std::uint64_t length = std::uint64_t{2} * RecordBytes(*head).U32(0);
    const std::uint16_t function = RecordBytes(*head).U16(4);
    if (function == EndRecord) {
        stream.EndComplete();
        return false;
    }
    if (length < SmallestRecord) {
        stream.EndBefore(Outcome::Corrupt, "record of no sensible length");
        return false;
    }
    std::optional<RecordBytes> body = stream.Body(length);
    if (!body) return false;
    std::optional<Record> record = ReadRecord(function, *body);
    if (record) {
        if (auto* create = std::get_if<CreateObject>(&*record)) {
            create->handle = places.Take();
            if (create->handle == MostHandles) body->Break();
        } else if (const auto* freed = std::get_if<DeleteObject>(&*record); freed && !body->Broken()) {
            places.Free(freed->handle);
        }
    }
    if (body->Broken()) {
        if (LeadsToARecord(stream)) {
            stream.LeaveOut();
            return true;
        }
        stream.EndBefore(Outcome::Corrupt, "broken record");
        return false;
    }
    return !record || stream.Keep(std::move(*record));
}

}  // namespace

Recording ReadWmf(ByteSource& source, const Cancellation& sink) {
    Recording recording;
    const WmfHeader header = ReadWmfHeader(source);
    if (!header.trouble.empty()) {
        recording.trouble = header.trouble;
        recording.ending = {header.outcome, std::min(header.recordsStart, source.Size()), header.trouble,
                            false};
        return recording;
    }
    RecordStream stream(source, header.recordsStart);
    Places places;
    while (TakeRecord(stream, places)) {
        if (sink.Cancelled()) {
            stream.EndBefore(Outcome::Truncated, "cancelled");
            break;
        }
    }
    recording.records = stream.Take();
    recording.ending = stream.Ending();
    recording.placement = PlacementOf(header, recording.records, source, sink);
    return recording;
}

}  // namespace tavrix::metafile
