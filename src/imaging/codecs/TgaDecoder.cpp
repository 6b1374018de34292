#include "imaging/codecs/TgaDecoder.h"

#include <algorithm>
#include <array>
#include <new>
#include <vector>

#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/LittleEndian.h"
#include "imaging/codecs/PixelRows.h"
#include "imaging/codecs/TgaHeader.h"

namespace tavrix {
namespace {

constexpr Pixel Opaque = 0xFF000000U;
constexpr Pixel OutsideMap = Opaque;
constexpr int RowsBetweenQuestions = 64;

/// The stored pixels one after the other, unpacked. Packets may go on from one row to the next.
class StoredPixels {
  public:
    StoredPixels(ByteSource& source, const TgaHeader& header)
        : reader_(source, header.pixelOffset),
          pixelBytes_(header.BytesPerPixel()),
          runLength_(header.runLength) {}

    /// Fills `into` and gives the number of bytes of whole pixels; fewer at the end of the data.
    std::size_t Read(std::span<std::byte> into) {
        if (!runLength_) return Whole(reader_.Read(into));
        std::size_t filled = 0;
        while (filled < into.size() && (left_ != 0 || BeginPacket())) {
            const std::size_t count = std::min(left_, (into.size() - filled) / pixelBytes_);
            const auto part = into.subspan(filled, count * pixelBytes_);
            left_ -= count;
            if (repeated_) {
                Repeat(part);
            } else if (const std::size_t got = reader_.Read(part); got < part.size()) {
                left_ = 0;
                return filled + Whole(got);
            }
            filled += part.size();
        }
        return filled;
    }
    [[nodiscard]] std::uint64_t Offset() const { return reader_.Offset(); }

  private:
    [[nodiscard]] std::size_t Whole(std::size_t bytes) const { return bytes - bytes % pixelBytes_; }

    bool BeginPacket() {
        const auto head = reader_.Next();
        if (!head) return false;
        repeated_ = (*head & 0x80U) != 0;
        if (repeated_ && reader_.Read(std::span(value_).first(pixelBytes_)) < pixelBytes_) return false;
        left_ = (*head & 0x7FU) + 1;
        return true;
    }

    void Repeat(std::span<std::byte> into) const {
        if (pixelBytes_ == 1) {
            std::ranges::fill(into, value_[0]);
            return;
        }
        for (std::size_t at = 0; at < into.size(); at += pixelBytes_) {
            for (std::size_t i = 0; i < pixelBytes_; ++i)
                into[at + i] = value_[i];
        }
    }

    ByteReader reader_;
    std::size_t pixelBytes_;
    bool runLength_;
    bool repeated_ = false;
    std::size_t left_ = 0;  ///< pixels of the packet
    std::array<std::byte, 4> value_{};
};

/// Turns stored pixels into pixels.
class RowConverter {
  public:
    explicit RowConverter(const TgaHeader& header)
        : header_(header), packed_(TgaPackedPixels(header.bits, header.alpha)) {
        if (header.kind != TgaPixels::Mapped) return;
        for (unsigned i = 0; i < palette_.size(); ++i)
            palette_[i] = Mapped(i);
    }

    void Convert(std::span<const std::byte> from, std::span<Pixel> into) const {
        if (header_.kind == TgaPixels::Colour) {
            if (header_.bits == 24) {
                PixelsFromBgr24(from, into);
            } else {
                packed_.Convert(from, into);
            }
        } else if (header_.bits == 16) {
            for (std::size_t i = 0; i < into.size(); ++i) {
                into[i] =
                    header_.kind == TgaPixels::Mapped ? Mapped(U16(from, 2 * i)) : Grey(U16(from, 2 * i));
            }
        } else if (header_.kind == TgaPixels::Mapped) {
            PixelsFromIndexes(8, from, palette_, into);
        } else {
            std::ranges::transform(from.first(into.size()), into.begin(), [](std::byte value) {
                return Opaque | (0x010101U * std::to_integer<unsigned>(value));
            });
        }
        if (header_.alpha && header_.premultiplied) Unscale(into);
    }

  private:
    [[nodiscard]] Pixel Mapped(unsigned index) const {
        if (index < header_.mapFirst || index - header_.mapFirst >= header_.map.size()) return OutsideMap;
        return header_.map[index - header_.mapFirst];
    }
    [[nodiscard]] Pixel Grey(unsigned stored) const {
        return (0x010101U * (stored & 0xFFU)) | (header_.alpha ? (stored & 0xFF00U) << 16U : Opaque);
    }

    static void Unscale(std::span<Pixel> pixels) {
        for (Pixel& pixel : pixels) {
            const unsigned alpha = pixel >> 24U;
            if (alpha == 0 || alpha == 0xFFU) continue;
            const auto part = [&](unsigned shift) {
                const unsigned scaled = (pixel >> shift) & 0xFFU;
                return std::min((scaled * 255U + alpha / 2) / alpha, 255U) << shift;
            };
            pixel = (alpha << 24U) | part(16) | part(8) | part(0);
        }
    }

    const TgaHeader& header_;
    MaskedPixels packed_;
    std::array<Pixel, 256> palette_{};
};

class TgaReader {
  public:
    TgaReader(ByteSource& source, const TgaHeader& header, PictureSink& sink, Surface& surface)
        : stored_(source, header), converter_(header), header_(header), sink_(sink), surface_(surface) {}

    DecodeStatus Run() {
        std::vector<std::byte> row(static_cast<std::size_t>(header_.width) * header_.BytesPerPixel());
        for (int y = 0; y < header_.height; ++y) {
            if (y % RowsBetweenQuestions == 0 && sink_.Cancelled()) return Ended("cancelled");
            const std::size_t got = stored_.Read(row);
            const auto pixels = Place(y, got / header_.BytesPerPixel());
            converter_.Convert(row, pixels);
            if (header_.fromRight) std::ranges::reverse(pixels);
            for (const Pixel pixel : pixels)
                seen_ |= pixel;
            pixels_ += pixels.size();
            if (got < row.size()) return Ended("pixels cut off");
        }
        return Ended({});
    }

  private:
    /// Where the first `count` pixels of a stored row belong.
    [[nodiscard]] std::span<Pixel> Place(int storedRow, std::size_t count) {
        const auto row = surface_.Row(header_.fromTop ? storedRow : header_.height - 1 - storedRow);
        return header_.fromRight ? row.last(count) : row.first(count);
    }

    DecodeStatus Ended(std::string_view trouble) {
        if (header_.alpha && (seen_ & Opaque) == 0) MakeOpaque();
        if (trouble.empty()) return {Outcome::Complete, 0, {}, true};
        return {Outcome::Truncated, stored_.Offset(), trouble, pixels_ != 0};
    }

    /// Many writers tell attribute bits and leave them 0. Such a picture is meant to be seen.
    void MakeOpaque() {
        const auto width = static_cast<std::size_t>(header_.width);
        std::size_t left = pixels_;
        for (int y = 0; left != 0; ++y) {
            const std::size_t count = std::min(left, width);
            for (Pixel& pixel : Place(y, count))
                pixel |= Opaque;
            left -= count;
        }
    }

    StoredPixels stored_;
    RowConverter converter_;
    const TgaHeader& header_;
    const PictureSink& sink_;
    Surface& surface_;
    std::size_t pixels_ = 0;  ///< decoded so far
    Pixel seen_ = 0;          ///< all bits that were set in some pixel
};

DecodeStatus Decode(ByteSource& source, PictureSink& sink) {
    const TgaHeader header = ReadTgaHeader(source);
    if (!header.trouble.empty()) return {Outcome::Corrupt, 0, header.trouble, false};
    if (source.Size() <= header.pixelOffset) return {Outcome::Truncated, source.Size(), "no pixels", false};
    Surface* surface =
        sink.Begin({.width = header.width, .height = header.height, .transparent = header.alpha});
    if (surface == nullptr) return {Outcome::Corrupt, 0, "surface refused", false};
    return TgaReader(source, header, sink, *surface).Run();
}

}  // namespace

PictureHeader ReadTgaSize(ByteSource& source, const Cancellation&) {
    const TgaHeader header = ReadTgaHeader(source);
    if (!header.trouble.empty()) return {.reason = header.trouble};
    return {.info = {.width = header.width, .height = header.height}, .known = true};
}

DecodeStatus DecodeTga(ByteSource& source, PictureSink& sink) {
    try {
        return Decode(source, sink);
    } catch (const std::bad_alloc&) {
        return {Outcome::Corrupt, 0, "memory refused", false};
    }
}

}  // namespace tavrix
