#include "platform/codecs/BmpWriter.h"

#include <array>
#include <cstdint>
#include <vector>

#include "platform/graphics/Composite.h"

namespace tavrix {
namespace {

constexpr std::size_t HeadersSize = 14 + 40;
constexpr std::size_t PieceBytes = 256U << 10U;

void Put(std::span<std::byte> into, std::size_t at, std::size_t count, std::uint64_t value) {
    for (std::size_t i = 0; i < count; ++i)
        into[at + i] = static_cast<std::byte>(value >> (8 * i));
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

    std::vector<std::byte> piece;
    piece.reserve(PieceBytes + stride);
    for (int y = surface.Height() - 1; y >= 0; --y) {
        const std::size_t start = piece.size();
        piece.resize(start + stride);
        std::byte* out = &piece[start];
        for (const Pixel pixel : surface.Row(y)) {
            const Pixel flat = Over(pixel, ToPixel(SurfaceBackground));
            *out++ = static_cast<std::byte>(flat);
            *out++ = static_cast<std::byte>(flat >> 8U);
            *out++ = static_cast<std::byte>(flat >> 16U);
        }
        if (piece.size() >= PieceBytes || y == 0) {
            write(piece);
            piece.clear();
        }
    }
}

}  // namespace tavrix
