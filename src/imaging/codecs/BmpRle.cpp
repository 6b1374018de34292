#include "imaging/codecs/BmpRle.h"

#include <algorithm>
#include <optional>

#include "imaging/codecs/ByteReader.h"

namespace tavrix {
namespace {

class RleDecoder {
  public:
    RleDecoder(ByteSource& source, const BmpHeader& header, Surface& surface, const Cancellation& sink)
        : reader_(source, header.pixelOffset), header_(header), surface_(surface), sink_(sink) {}

    DecodeStatus Run() {
        while (y_ < header_.height) {
            const auto count = reader_.Next();
            const auto value = reader_.Next();
            if (!value) return Ended(Outcome::Truncated, "run-length data cut off");
            if (*count != 0) {
                if (!Repeat(*count, *value)) return Ended(Outcome::Truncated, "run cut off");
            } else if (*value == EndOfRow) {
                x_ = 0;
                ++y_;
                if (sink_.Cancelled()) return Ended(Outcome::Truncated, "cancelled");
            } else if (*value == EndOfPicture) {
                break;
            } else if (*value == Move) {
                const auto right = reader_.Next();
                const auto up = reader_.Next();
                if (!up) return Ended(Outcome::Truncated, "move cut off");
                x_ += *right;
                y_ += static_cast<int>(*up);
                if (y_ >= header_.height) return Ended(Outcome::Corrupt, "move out of the picture");
            } else if (!Literal(*value)) {
                return Ended(Outcome::Truncated, "literal pixels cut off");
            }
        }
        drawn_ = true;
        return Ended(Outcome::Complete, {});
    }

  private:
    static constexpr unsigned EndOfRow = 0;
    static constexpr unsigned EndOfPicture = 1;
    static constexpr unsigned Move = 2;

    [[nodiscard]] DecodeStatus Ended(Outcome outcome, std::string_view reason) const {
        return {outcome, outcome == Outcome::Complete ? 0 : reader_.Offset(), reason, drawn_};
    }

    /// Puts one pixel. A row that is too long goes on in the next one.
    void Put(Pixel pixel) {
        std::int64_t row = y_;
        std::int64_t column = x_;
        if (column >= header_.width) {
            row += column / header_.width;
            column %= header_.width;
        }
        ++x_;
        if (row >= header_.height) return;
        const auto y = static_cast<int>(header_.topDown ? row : header_.height - 1 - row);
        surface_.Row(y)[static_cast<std::size_t>(column)] = pixel;
        drawn_ = true;
    }

    /// The colour that starts with the byte `first`.
    [[nodiscard]] std::optional<Pixel> Colour24(unsigned first) {
        const auto green = reader_.Next();
        const auto red = reader_.Next();
        if (!red) return std::nullopt;
        return OpaquePixel(*red, *green, first);
    }

    bool Repeat(unsigned count, unsigned value) {
        std::array<Pixel, 2> colours{};
        if (header_.storage == BmpStorage::Rle24) {
            const auto colour = Colour24(value);
            if (!colour) return false;
            colours.fill(*colour);
        } else if (header_.storage == BmpStorage::Rle4) {
            colours = {header_.palette[value >> 4U], header_.palette[value & 15U]};
        } else {
            colours.fill(header_.palette[value]);
        }
        for (unsigned i = 0; i < count; ++i)
            Put(colours[i & 1U]);
        return true;
    }

    bool Literal(unsigned count) {
        unsigned bytes = 0;
        for (unsigned i = 0; i < count; ++i) {
            const auto value = reader_.Next();
            if (!value) return false;
            ++bytes;
            if (header_.storage == BmpStorage::Rle24) {
                const auto colour = Colour24(*value);
                if (!colour) return false;
                bytes += 2;
                Put(*colour);
            } else if (header_.storage == BmpStorage::Rle4) {
                Put(header_.palette[*value >> 4U]);
                if (++i < count) Put(header_.palette[*value & 15U]);
            } else {
                Put(header_.palette[*value]);
            }
        }
        // Literal pixels are padded to 16 bits. A missing last pad harms nothing.
        if (bytes % 2 != 0) static_cast<void>(reader_.Next());
        return true;
    }

    ByteReader reader_;
    const BmpHeader& header_;
    Surface& surface_;
    const Cancellation& sink_;
    std::int64_t x_ = 0;
    int y_ = 0;  ///< in the order of the file
    bool drawn_ = false;
};

}  // namespace

DecodeStatus DecodeBmpRle(ByteSource& source, const BmpHeader& header, Surface& surface,
                          const Cancellation& sink) {
    return RleDecoder(source, header, surface, sink).Run();
}

}  // namespace tavrix
