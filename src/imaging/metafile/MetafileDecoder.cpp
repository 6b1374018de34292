#include "imaging/metafile/MetafileDecoder.h"

#include <algorithm>
#include <cmath>
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

/// Nanoseconds, roughly, that a drawing may cost: seconds, so that none that a person made is cut.
constexpr std::int64_t MostWork = 8'000'000'000;
/// A drawing has no pixels of its own. One that would be larger at its size is drawn smaller, so that a few bytes do
/// not take a gigabyte; posters of two metres still have all of theirs.
constexpr std::int64_t MostDrawnPixels = 64LL << 20U;
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

/// The placement on no more pixels than are drawn. What is absurd stays so, to be refused.
metafile::Placement OnPixelsThatAreDrawn(metafile::Placement place) {
    if (place.width > MaxPictureSide || place.height > MaxPictureSide ||
        place.width * place.height <= MostDrawnPixels)
        return place;
    const double former = double(place.width) * double(place.height);
    const double scale = std::sqrt(double(MostDrawnPixels) / former);
    const auto scaled = [scale](std::int64_t side) {
        return std::max<std::int64_t>(static_cast<std::int64_t>(double(side) * scale), 1);
    };
    const metafile::Placement full = place;
    place.width = scaled(full.width);
    place.height = scaled(full.height);
    place.deviceToPicture = place.deviceToPicture.Then(vector::Affine::Scale(
        double(place.width) / double(full.width), double(place.height) / double(full.height)));
    return place;
}

DecodeStatus Play(ByteSource& source, const Recording& recording, PictureSink& sink, std::int64_t mostWork) {
    const metafile::Placement place = OnPixelsThatAreDrawn(recording.placement);
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

    vector::WorkBudget budget(mostWork);
    vector::Painter painter(*surface, budget);
    metafile::DeviceContext context(painter, place, source, sink);
    DecodeStatus ending = recording.ending;
    for (const Record& record : recording.records) {
        if (sink.Cancelled()) return {Outcome::Truncated, 0, "cancelled", true};
        if (!budget.Spend(RecordWork)) break;
        std::visit([&](const auto& one) { Replay(context, one); }, record);
    }
    if (budget.Exhausted()) ending = {Outcome::Truncated, source.Size(), "more work than is done", true};
    sink.RowsReady(surface->Height());
    ending.someRows = true;
    return ending;
}

DecodeStatus Decode(Recording (*read)(ByteSource&, const Cancellation&), ByteSource& source,
                    PictureSink& sink, std::int64_t mostWork) {
    try {
        const Recording recording = read(source, sink);
        if (!recording.trouble.empty()) return recording.ending;
        return Play(source, recording, sink, mostWork);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    } catch (const RuntimeError&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

PictureHeader SizeOf(const metafile::Placement& placement) {
    const metafile::Placement place = OnPixelsThatAreDrawn(placement);
    constexpr std::int64_t Most = std::numeric_limits<int>::max();
    return {.info = {.width = static_cast<int>(std::min(place.width, Most)),
                     .height = static_cast<int>(std::min(place.height, Most))},
            .known = true};
}

}  // namespace

bool RecognisesWmf(std::span<const std::byte> start) {
    return metafile::StartsLikeWmf(start);
}

PictureHeader ReadWmfSize(ByteSource& source, const Cancellation& waiting) {
    try {
        const metafile::WmfHeader header = metafile::ReadWmfHeader(source);
        if (!header.trouble.empty()) return {.reason = header.trouble};
        if (const auto told = metafile::ToldPlacement(header)) return SizeOf(*told);
        // Only the records tell.
        return SizeOf(metafile::ReadWmf(source, waiting).placement);
    } catch (const std::bad_alloc&) {
        return {.reason = "memory refused"};
    }
}

DecodeStatus DecodeWmf(ByteSource& source, PictureSink& sink) {
    return Decode(metafile::ReadWmf, source, sink, MostWork);
}

bool RecognisesEmf(std::span<const std::byte> start) {
    constexpr std::uint32_t HeaderRecord = 1;
    constexpr std::uint32_t Signature = 0x464D4520U;
    return start.size() >= 44 && U32(start, 0) == HeaderRecord && U32(start, 40) == Signature;
}

PictureHeader ReadEmfSize(ByteSource& source, const Cancellation&) {
    const Recording header = metafile::ReadEmfHeader(source);
    if (!header.trouble.empty()) return {.reason = header.trouble};
    return SizeOf(header.placement);
}

DecodeStatus DecodeEmf(ByteSource& source, PictureSink& sink) {
    return DecodeEmfWithin(source, sink, MostWork);
}

DecodeStatus DecodeEmfWithin(ByteSource& source, PictureSink& sink, std::int64_t mostWork) {
    return Decode(metafile::ReadEmf, source, sink, mostWork);
}

}  // namespace tavrix
