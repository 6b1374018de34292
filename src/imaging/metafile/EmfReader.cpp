#include <algorithm>
#include <array>
#include <cmath>

#include "imaging/metafile/EmfReaders.h"
#include "imaging/metafile/RecordStream.h"
#include "imaging/metafile/Recording.h"

namespace tavrix::metafile {
namespace {

constexpr std::uint32_t EndRecord = 14;
constexpr std::size_t RecordHead = 8;
constexpr std::uint32_t HeaderSize = 88;
constexpr double ScreenDotsPerInch = 96;
constexpr double HundredthsPerInch = 2540;  // of a millimetre

using Reader = std::optional<Record> (*)(std::uint32_t, RecordBytes&);
constexpr std::array<Reader, 6> Readers{ReadEmfShape, ReadEmfState,  ReadEmfObject,
                                        ReadEmfClip,  ReadEmfBitmap, ReadEmfText};

std::optional<Record> ReadRecord(std::uint32_t type, RecordBytes& bytes) {
    for (const Reader reader : Readers) {
        if (std::optional<Record> record = reader(type, bytes)) return record;
    }
    return std::nullopt;
}

/// The device that the records are meant for; some writers leave its sizes empty.
struct Device {
    double pixelsPerMillimetreX = ScreenDotsPerInch / 25.4;
    double pixelsPerMillimetreY = ScreenDotsPerInch / 25.4;
};

Device DeviceOf(RecordBytes& header) {
    Device device;
    const Point pixels = header.P32(72);
    const Point millimetres = header.P32(80);
    if (pixels.x > 0 && millimetres.x > 0) device.pixelsPerMillimetreX = double(pixels.x) / millimetres.x;
    if (pixels.y > 0 && millimetres.y > 0) device.pixelsPerMillimetreY = double(pixels.y) / millimetres.y;
    return device;
}

/// The part of the device that the picture shows, in its pixels: the frame, which is told in hundredths of a
/// millimetre, or the bounds of what is drawn where the frame is empty.
vector::Box ShownPart(RecordBytes& header, const Device& device) {
    const Box frame = header.Box32(24);
    if (frame.right > frame.left && frame.bottom > frame.top) {
        const double x = device.pixelsPerMillimetreX / 100;
        const double y = device.pixelsPerMillimetreY / 100;
        return {frame.left * x, frame.top * y, frame.right * x, frame.bottom * y};
    }
    const Box bounds = header.Box32(8);
    return {double(bounds.left), double(bounds.top), bounds.right + 1.0, bounds.bottom + 1.0};
}

std::int64_t Pixels(double devicePixels, double pixelsPerMillimetre) {
    constexpr double Absurd = 1e12;
    const double pixels = devicePixels / pixelsPerMillimetre * 100 * ScreenDotsPerInch / HundredthsPerInch;
    return std::llround(std::clamp(pixels, 1.0, Absurd));
}

std::optional<Placement> PlacementOf(RecordBytes& header) {
    const Device device = DeviceOf(header);
    const vector::Box part = ShownPart(header, device);
    if (!(part.Width() > 0 && part.Height() > 0)) return std::nullopt;
    Placement placement;
    placement.enhanced = true;
    placement.width = Pixels(part.Width(), device.pixelsPerMillimetreX);
    placement.height = Pixels(part.Height(), device.pixelsPerMillimetreY);
    placement.pixelsPerMillimetreX = device.pixelsPerMillimetreX;
    placement.pixelsPerMillimetreY = device.pixelsPerMillimetreY;
    const double x = static_cast<double>(placement.width) / part.Width();
    const double y = static_cast<double>(placement.height) / part.Height();
    placement.deviceToPicture = {x, 0, 0, y, -part.left * x, -part.top * y};
    return placement;
}

Recording Refused(Outcome outcome, std::uint64_t offset, std::string_view why) {
    Recording recording;
    recording.trouble = why;
    recording.ending = {outcome, offset, why, false};
    return recording;
}

/// Whether a record's length can be believed: it leads to something that starts as a record does.
bool LeadsToARecord(RecordStream& stream) {
    constexpr std::uint32_t LastType = 122;
    std::array<std::byte, RecordHead> bytes{};
    std::optional<RecordBytes> next = stream.HeadBehind(bytes);
    if (!next) return false;
    const std::uint32_t type = next->U32(0);
    const std::uint32_t length = next->U32(4);
    return type > 0 && type <= LastType && length >= RecordHead && length % 4 == 0 &&
           (type == EndRecord || length <= stream.BytesBehind());
}

/// Keeps the next record. False when the list ends with it.
bool TakeRecord(RecordStream& stream) {
    const std::optional<RecordBytes> head = stream.Head(RecordHead);
    if (!head) return false;
    const std::uint32_t type = RecordBytes(*head).U32(0);
    const std::uint32_t length = RecordBytes(*head).U32(4);
    if (length < RecordHead || length % 4 != 0) {
        stream.EndBefore(Outcome::Corrupt, "record of no sensible length");
        return false;
    }
    if (type == EndRecord) {
        stream.EndComplete();
        return false;
    }
    std::optional<RecordBytes> body = stream.Body(length);
    if (!body) return false;
    std::optional<Record> record = ReadRecord(type, *body);
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

namespace {

/// `length`: of the header's record.
Recording ReadHeader(ByteSource& source, std::uint32_t& length) {
    std::array<std::byte, HeaderSize> bytes{};
    if (source.ReadAt(0, bytes) < HeaderSize)
        return Refused(Outcome::Truncated, source.Size(), "header cut off");
    RecordBytes header(bytes, 0, HeaderSize);
    length = header.U32(4);
    if (length < HeaderSize || length % 4 != 0) return Refused(Outcome::Corrupt, 4, "header too short");
    if (length > source.Size()) return Refused(Outcome::Truncated, source.Size(), "header cut off");
    const std::optional<Placement> placement = PlacementOf(header);
    if (!placement) return Refused(Outcome::Corrupt, 8, "no area");

    Recording recording;
    recording.placement = *placement;
    return recording;
}

}  // namespace

Recording ReadEmfHeader(ByteSource& source) {
    std::uint32_t length = 0;
    return ReadHeader(source, length);
}

Recording ReadEmf(ByteSource& source, const Cancellation& sink) {
    std::uint32_t length = 0;
    Recording recording = ReadHeader(source, length);
    if (!recording.trouble.empty()) return recording;
    RecordStream stream(source, length);
    while (TakeRecord(stream)) {
        if (sink.Cancelled()) {
            stream.EndBefore(Outcome::Truncated, "cancelled");
            break;
        }
    }
    recording.records = stream.Take();
    recording.ending = stream.Ending();
    return recording;
}

}  // namespace tavrix::metafile
