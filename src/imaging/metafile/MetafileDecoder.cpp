#include "imaging/metafile/MetafileDecoder.h"

#include <algorithm>
#include <limits>
#include <new>
#include <variant>

#include "base/RuntimeError.h"
#include "imaging/codecs/LittleEndian.h"
#include "imaging/metafile/Recording.h"
#include "imaging/metafile/Replay.h"
#include "imaging/metafile/WmfHeader.h"

namespace tavrix {
namespace {

using metafile::Record;
using metafile::Recording;

/// Nanoseconds, roughly, that a drawing may cost.
constexpr std::int64_t MostWork = 2'000'000'000;
/// What a record costs besides what it draws.
constexpr std::int64_t RecordWork = 200;

template <class... Kinds>
bool HoldsOne(const Record& record) {
    return (std::holds_alternative<Kinds>(record) || ...);
}

bool Draws(const Record& record) {
    using namespace metafile;
    return !HoldsOne<SetValue, SetMiterLimit, SetTextJustification, SetFrame, ScaleExtent, SaveState,
                     RestoreState, SetTransform, ModifyTransform, CreateObject, SelectObject, DeleteObject,
                     SelectPalette, SetPaletteEntries, ResizePalette, MoveTo, SelectClipPath, ClipBox,
                     OffsetClip, ClipRegion, ClipRegionObject, SetMetaRegion>(record);
}

/// The picture is opaque: what it shows was meant for paper, and white behind antialiased edges looks right on any
/// window, while black lines on a dark one would not be seen.
constexpr Pixel Paper = 0xFFFFFFFFU;

DecodeStatus Play(ByteSource& source, const Recording& recording, PictureSink& sink) {
    const metafile::Placement& place = recording.placement;
    constexpr std::int64_t Most = std::numeric_limits<int>::max();
    const bool complete = recording.ending.outcome == Outcome::Complete;
    if (!complete && std::ranges::none_of(recording.records, Draws)) {
        DecodeStatus ending = recording.ending;
        ending.someRows = false;
        return ending;
    }
    Surface* surface = sink.Begin({.width = static_cast<int>(std::min(place.width, Most)),
                                   .height = static_cast<int>(std::min(place.height, Most))});
    if (surface == nullptr) return {Outcome::Corrupt, 0, "surface refused", false};
    surface->Fill(Paper);

    vector::WorkBudget budget(MostWork);
    vector::Painter painter(*surface, budget);
    metafile::DeviceContext context(painter, place, source, sink);
    DecodeStatus ending = recording.ending;
    for (const Record& record : recording.records) {
        if (sink.Cancelled()) return {Outcome::Truncated, 0, "cancelled", true};
        if (!budget.Spend(RecordWork)) {
            ending = {Outcome::Truncated, source.Size(), "more work than is done", true};
            break;
        }
        std::visit([&](const auto& one) { Replay(context, one); }, record);
    }
    sink.RowsReady(surface->Height());
    ending.someRows = true;
    return ending;
}

DecodeStatus Decode(Recording (*read)(ByteSource&, const PictureSink&), ByteSource& source,
                    PictureSink& sink) {
    try {
        const Recording recording = read(source, sink);
        if (!recording.trouble.empty()) return recording.ending;
        return Play(source, recording, sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    } catch (const RuntimeError&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace

bool RecognisesWmf(std::span<const std::byte> start) {
    return metafile::StartsLikeWmf(start);
}

DecodeStatus DecodeWmf(ByteSource& source, PictureSink& sink) {
    return Decode(metafile::ReadWmf, source, sink);
}

bool RecognisesEmf(std::span<const std::byte> start) {
    constexpr std::uint32_t HeaderRecord = 1;
    constexpr std::uint32_t Signature = 0x464D4520U;
    return start.size() >= 44 && U32(start, 0) == HeaderRecord && U32(start, 40) == Signature;
}

DecodeStatus DecodeEmf(ByteSource& source, PictureSink& sink) {
    return Decode(metafile::ReadEmf, source, sink);
}

}  // namespace tavrix
