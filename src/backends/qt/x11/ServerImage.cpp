#include "backends/qt/x11/ServerImage.h"

#include <bit>
#include <cstring>

#include "base/RuntimeError.h"

namespace tavrix::qt {

namespace {

constexpr Pixel Opaque = OpaquePixel(0, 0, 0);

/// One colour of a pixel: its bits in the server's number, and the values 0 to 255.
class Channel {
  public:
    explicit Channel(std::uint32_t mask)
        : mask_(mask), shift_(std::countr_zero(mask)), most_(mask >> static_cast<unsigned>(shift_)) {}

    [[nodiscard]] unsigned From(std::uint32_t number) const {
        const std::uint32_t bits = (number & mask_) >> static_cast<unsigned>(shift_);
        return most_ == Full ? bits : static_cast<unsigned>((std::uint64_t{bits} * Full + most_ / 2) / most_);
    }
    [[nodiscard]] std::uint32_t To(unsigned value) const {
        const std::uint64_t bits = most_ == Full ? value : (std::uint64_t{value} * most_ + Full / 2) / Full;
        return static_cast<std::uint32_t>(bits << static_cast<unsigned>(shift_));
    }

  private:
    static constexpr std::uint32_t Full = 255;
    std::uint32_t mask_;
    int shift_;
    std::uint32_t most_;
};

bool IsOneRun(std::uint32_t mask) {
    return mask != 0 &&
           std::has_single_bit((std::uint64_t{mask} >> static_cast<unsigned>(std::countr_zero(mask))) + 1);
}

int PlaceOfByte(const ServerImageLayout& layout, int byte) {
    return layout.highByteFirst ? layout.bitsPerPixel / 8 - 1 - byte : byte;
}

std::uint32_t NumberAt(const ServerImageLayout& layout, const std::uint8_t* bytes) {
    std::uint32_t number = 0;
    for (int byte = 0; byte < layout.bitsPerPixel / 8; ++byte)
        number |= std::uint32_t{bytes[PlaceOfByte(layout, byte)]} << static_cast<unsigned>(8 * byte);
    return number;
}

void PutNumber(const ServerImageLayout& layout, std::uint32_t number, std::uint8_t* bytes) {
    for (int byte = 0; byte < layout.bitsPerPixel / 8; ++byte)
        bytes[PlaceOfByte(layout, byte)] =
            static_cast<std::uint8_t>(number >> static_cast<unsigned>(8 * byte));
}

}  // namespace

bool ServerImageLayout::Known() const {
    const bool size = bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32;
    return size && rowBits >= 8 && rowBits % 8 == 0 && IsOneRun(red) && IsOneRun(green) && IsOneRun(blue);
}

std::size_t ServerImageLayout::BytesPerRow(int width) const {
    const std::size_t bits = static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel);
    const auto unit = static_cast<std::size_t>(rowBits);
    return (bits + unit - 1) / unit * unit / 8;
}

Surface FromServerImage(const ServerImageLayout& layout, int width, int height,
                        std::span<const std::uint8_t> bytes) {
    if (!layout.Known()) throw RuntimeError(ErrorNumber::InvalidPicture);
    Surface surface(width, height);
    const std::size_t rowBytes = layout.BytesPerRow(width);
    if (bytes.size() < rowBytes * static_cast<std::size_t>(height))
        throw RuntimeError(ErrorNumber::InvalidPicture);

    const Channel red(layout.red);
    const Channel green(layout.green);
    const Channel blue(layout.blue);
    const auto pixelBytes = static_cast<std::size_t>(layout.bitsPerPixel / 8);
    // What nearly all servers have is our own order but for the highest byte, which means nothing.
    const bool asInMemory = layout == ServerImageLayout() && std::endian::native == std::endian::little;
    for (int y = 0; y < height; ++y) {
        const std::uint8_t* at = bytes.data() + rowBytes * static_cast<std::size_t>(y);
        if (asInMemory) {
            const std::span<Pixel> row = surface.Row(y);
            std::memcpy(row.data(), at, row.size_bytes());
            for (Pixel& pixel : row)
                pixel |= Opaque;
            continue;
        }
        for (Pixel& pixel : surface.Row(y)) {
            const std::uint32_t number = NumberAt(layout, at);
            pixel = OpaquePixel(red.From(number), green.From(number), blue.From(number));
            at += pixelBytes;
        }
    }
    return surface;
}

std::vector<std::uint8_t> ToServerImage(const ServerImageLayout& layout, const Surface& pixels, int firstRow,
                                        int rows) {
    const Channel red(layout.red);
    const Channel green(layout.green);
    const Channel blue(layout.blue);
    const std::size_t rowBytes = layout.BytesPerRow(pixels.Width());
    const auto pixelBytes = static_cast<std::size_t>(layout.bitsPerPixel / 8);
    std::vector<std::uint8_t> bytes(rowBytes * static_cast<std::size_t>(rows));
    for (int y = 0; y < rows; ++y) {
        std::uint8_t* at = bytes.data() + rowBytes * static_cast<std::size_t>(y);
        for (const Pixel pixel : pixels.Row(firstRow + y)) {
            const std::uint32_t number =
                red.To(pixel >> 16U & 0xFFU) | green.To(pixel >> 8U & 0xFFU) | blue.To(pixel & 0xFFU);
            PutNumber(layout, number, at);
            at += pixelBytes;
        }
    }
    return bytes;
}

}  // namespace tavrix::qt
