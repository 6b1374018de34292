#include "imaging/codecs/PcxDecoder.h"

#include <algorithm>
#include <new>
#include <vector>

#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/PcxHeader.h"
#include "imaging/codecs/PixelRows.h"
#include "imaging/codecs/SourcePart.h"

namespace tavrix {
namespace {

constexpr int RowsBetweenQuestions = 64;

/// The bytes of the planes one after the other, unpacked. Runs may go on from one line to the next, although the
/// manual forbids it.
class PlaneBytes {
  public:
    PlaneBytes(ByteSource& source, bool runLength) : reader_(source, 0), runLength_(runLength) {}

    /// Fills `into` and gives the number of bytes; fewer at the end of the data.
    std::size_t Read(std::span<std::byte> into) {
        if (!runLength_) return reader_.Read(into);
        std::size_t filled = 0;
        while (filled < into.size() && (left_ != 0 || BeginRun())) {
            const std::size_t count = std::min(left_, into.size() - filled);
            std::ranges::fill(into.subspan(filled, count), value_);
            filled += count;
            left_ -= count;
            if (left_ == 0) filled += TakeSingles(into.subspan(filled));
        }
        return filled;
    }
    [[nodiscard]] std::uint64_t Offset() const { return reader_.Offset(); }

  private:
    static bool IsRun(std::byte value) { return (value & std::byte{0xC0}) == std::byte{0xC0}; }

    /// Single bytes up to the next run, or fewer: photographs are hardly anything else.
    std::size_t TakeSingles(std::span<std::byte> into) {
        const std::span<const std::byte> ahead =
            reader_.Buffered().first(std::min(into.size(), reader_.Buffered().size()));
        const auto end = std::ranges::find_if(ahead, IsRun);
        std::ranges::copy(ahead.begin(), end, into.begin());
        const auto count = static_cast<std::size_t>(end - ahead.begin());
        reader_.Take(count);
        return count;
    }

    /// A single byte is a run of one.
    bool BeginRun() {
        auto value = reader_.Next();
        std::size_t count = 1;
        while (value && (*value & 0xC0U) == 0xC0U) {
            count = *value & 0x3FU;
            value = reader_.Next();
            if (count != 0) break;
            value = reader_.Next();  // a run of nothing: on to what follows
            count = 1;
        }
        if (!value) return false;
        left_ = count;
        value_ = static_cast<std::byte>(*value);
        return true;
    }

    ByteReader reader_;
    bool runLength_;
    std::size_t left_ = 0;
    std::byte value_{};
};

class PcxReader {
  public:
    PcxReader(ByteSource& pixels, const PcxHeader& header, const PictureSink& sink, Surface& surface)
        : bytes_(pixels, header.runLength), header_(header), sink_(sink), surface_(surface) {}

    DecodeStatus Run() {
        std::vector<std::byte> line(header_.bytesPerLine * header_.planes);
        for (int y = 0; y < header_.height; ++y) {
            if (y % RowsBetweenQuestions == 0 && sink_.Cancelled()) return CutOff("cancelled");
            const std::size_t got = bytes_.Read(line);
            const std::size_t whole = WholePixels(got);
            Convert(line, surface_.Row(y).first(whole));
            someRows_ = someRows_ || whole != 0;
            // Padding that is missing at the very end harms nothing.
            if (whole < static_cast<std::size_t>(header_.width)) return CutOff("pixels cut off");
        }
        return {Outcome::Complete, 0, {}, true};
    }

  private:
    [[nodiscard]] DecodeStatus CutOff(std::string_view reason) const {
        return {Outcome::Truncated, PcxHeader::Size + bytes_.Offset(), reason, someRows_};
    }

    /// How many pixels stand once that many bytes of a line are there: those that the last plane reaches.
    [[nodiscard]] std::size_t WholePixels(std::size_t got) const {
        const std::size_t before = (header_.planes - 1) * header_.bytesPerLine;
        if (got <= before) return 0;
        return std::min((got - before) * 8 / header_.bits, static_cast<std::size_t>(header_.width));
    }

    void Convert(std::span<const std::byte> line, std::span<Pixel> into) const {
        if (header_.planes == 1) return PixelsFromIndexes(header_.bits, line, header_.palette, into);
        const auto plane = [&](std::size_t number) { return line.subspan(number * header_.bytesPerLine); };
        if (header_.TrueColour()) {
            const auto red = plane(0), green = plane(1), blue = plane(2);
            for (std::size_t x = 0; x < into.size(); ++x) {
                into[x] = OpaquePixel(std::to_integer<unsigned>(red[x]), std::to_integer<unsigned>(green[x]),
                                      std::to_integer<unsigned>(blue[x]));
            }
            return;
        }
        const unsigned mask = (1U << header_.bits) - 1U;
        const std::size_t perByte = 8 / header_.bits;
        for (std::size_t x = 0; x < into.size(); ++x) {
            const std::size_t shift = 8 - header_.bits * (x % perByte + 1);
            unsigned index = 0;
            for (unsigned number = 0; number < header_.planes; ++number) {
                const auto packed = std::to_integer<unsigned>(plane(number)[x / perByte]);
                index |= ((packed >> shift) & mask) << (number * header_.bits);
            }
            into[x] = header_.palette[index];
        }
    }

    PlaneBytes bytes_;
    const PcxHeader& header_;
    const PictureSink& sink_;
    Surface& surface_;
    bool someRows_ = false;
};

DecodeStatus Decode(ByteSource& source, PictureSink& sink) {
    const PcxHeader header = ReadPcxHeader(source);
    if (!header.trouble.empty()) return {Outcome::Corrupt, 0, header.trouble, false};
    if (header.dataEnd <= PcxHeader::Size) return {Outcome::Truncated, source.Size(), "no pixels", false};
    Surface* surface = sink.Begin({.width = header.width, .height = header.height});
    if (surface == nullptr) return {Outcome::Corrupt, 0, "surface refused", false};
    SourcePart pixels(source, PcxHeader::Size, header.dataEnd - PcxHeader::Size);
    return PcxReader(pixels, header, sink, *surface).Run();
}

}  // namespace

PictureHeader ReadPcxSize(ByteSource& source, const Cancellation&) {
    const PcxHeader header = ReadPcxHeader(source);
    if (!header.trouble.empty()) return {.reason = header.trouble};
    return {.info = {.width = header.width, .height = header.height}, .known = true};
}

DecodeStatus DecodePcx(ByteSource& source, PictureSink& sink) {
    try {
        return Decode(source, sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
