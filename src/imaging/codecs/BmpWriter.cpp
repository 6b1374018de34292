#include "imaging/codecs/BmpWriter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <numeric>
#include <vector>

#include "imaging/codecs/PixelRows.h"
#include "imaging/graphics/Composite.h"

namespace tavrix {
namespace {

constexpr std::size_t HeadersSize = 14 + 40;
constexpr std::size_t PieceBytes = 256U << 10U;

void Put(std::span<std::byte> into, std::size_t at, std::size_t count, std::uint64_t value) {
    for (std::size_t i = 0; i < count; ++i)
        into[at + i] = static_cast<std::byte>(value >> (8 * i));
}

/// A row over SurfaceBackground: itself where it is opaque, else what is laid into `flat`.
std::span<const Pixel> Flat(std::span<const Pixel> row, std::vector<Pixel>& flat) {
    if (std::reduce(row.begin(), row.end(), ~Pixel{0}, std::bit_and<>()) >= 0xFF000000U) return row;
    flat.assign(row.begin(), row.end());
    for (Pixel& pixel : flat)
        pixel = Over(pixel, ToPixel(SurfaceBackground));
    return flat;
}

}  // namespace

void WriteBmp(const Surface& surface, const std::function<void(std::span<const std::byte>)>& write) {
    const auto width = static_cast<std::size_t>(surface.Width());
    const std::size_t stride = (3 * width + 3) / 4 * 4;
    const std::size_t imageSize = stride * static_cast<std::size_t>(surface.Height());

    std::array<std::byte, HeadersSize> headers{};
    Put(headers, 0, 2, 0x4D42);  // "BM"
    Put(headers, 2, 4, HeadersSize + imageSize);
    Put(headers, 10, 4, HeadersSize);
    Put(headers, 14, 4, 40);
    Put(headers, 18, 4, width);
    Put(headers, 22, 4, static_cast<std::uint64_t>(surface.Height()));
    Put(headers, 26, 2, 1);
    Put(headers, 28, 2, 24);
    Put(headers, 34, 4, imageSize);
    write(headers);

    // The bytes that fill up a row stay zero.
    const std::size_t rowsAPiece = std::max<std::size_t>(PieceBytes / std::max<std::size_t>(stride, 1), 1);
    std::vector<std::byte> piece(rowsAPiece * stride);
    std::vector<Pixel> flat;
    std::size_t rows = 0;
    for (int y = surface.Height() - 1; y >= 0; --y) {
        Bgr24FromPixels(Flat(surface.Row(y), flat), std::span(piece).subspan(rows * stride, 3 * width));
        if (++rows == rowsAPiece || y == 0) {
            write(std::span(piece).first(rows * stride));
            rows = 0;
        }
    }
}

}  // namespace tavrix
