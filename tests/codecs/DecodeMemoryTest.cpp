// A decoder keeps the picture once, and beside it a few rows however high the picture is. The heap, and all the memory that
// the process has mapped, are looked at whenever a decoder asks for bytes, that is, all along its way.

#include <gtest/gtest.h>
#include <malloc.h>

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "codecs/BmpFile.h"
#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "codecs/JpegFile.h"
#include "codecs/PcxFile.h"
#include "codecs/TgaFile.h"

namespace tavrix::test {
namespace {

constexpr int Width = 1500;
/// Pictures from 8 MiB on have memory of their own, which does not count as heap.
constexpr int Height = 1600;
/// The piece that bitmaps are read by is half a MiB.
constexpr std::size_t MostBeside = std::size_t{640} << 10U;

std::size_t Heap() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// All memory for data, pictures too; 0 where the system does not tell.
std::size_t Mapped() {
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0, resident = 0, shared = 0, text = 0, libraries = 0, data = 0;
    file >> all >> resident >> shared >> text >> libraries >> data;
    return data * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

class WatchedSource final : public ByteSource {
  public:
    explicit WatchedSource(std::span<const std::byte> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        most_ = std::max(most_, Heap());
        mostMapped_ = std::max(mostMapped_, Mapped());
        ++reads_;
        return bytes_.ReadAt(offset, into);
    }
    [[nodiscard]] std::size_t Most() const { return most_; }
    [[nodiscard]] std::size_t MostMapped() const { return mostMapped_; }
    [[nodiscard]] int Reads() const { return reads_; }

  private:
    MemorySource bytes_;
    std::size_t most_ = 0;
    std::size_t mostMapped_ = 0;
    int reads_ = 0;
};

/// Bytes that no run-length code makes much shorter.
std::vector<std::byte> Noise(std::size_t count) {
    std::vector<std::byte> bytes(count);
    unsigned noise = 1;
    for (std::byte& byte : bytes) {
        noise = noise * 1664525U + 1013904223U;
        byte = static_cast<std::byte>((noise >> 24U) & 0x7FU);
    }
    return bytes;
}

std::vector<std::byte> Bitmap(unsigned bits) {
    BmpFile file{.width = Width, .height = Height, .bits = bits};
    if (bits == 8) file.palette = std::vector<Pixel>(256, Red);
    file.pixels.Append(Noise(std::size_t{Width} * bits / 8 * Height));
    return file.Make();
}

std::vector<std::byte> RunLengthBitmap() {
    BmpFile file{.width = Width, .height = Height, .bits = 8, .compression = 1};
    file.palette = std::vector<Pixel>(256, Red);
    for (int y = 0; y < Height; ++y) {
        for (int x = 0; x < Width; x += 4)
            file.pixels.U8({4, static_cast<unsigned>(y) & 0xFFU});
        file.pixels.U8({0, 0});
    }
    file.pixels.U8({0, 1});
    return file.Make();
}

std::vector<std::byte> Targa(bool runLength) {
    TgaFile file{.type = runLength ? 10U : 2U, .width = Width, .height = Height};
    for (int y = 0; runLength && y < Height; ++y)
        for (int x = 0; x < Width; x += 100)
            file.pixels.U8({99}).Append(Noise(300));
    if (!runLength) file.pixels.Append(Noise(std::size_t{3} * Width * Height));
    return file.Make();
}

std::vector<std::byte> Pcx() {
    PcxFile file{.planes = 3, .width = Width, .height = Height, .bytesPerLine = Width};
    file.lines.Append(Noise(std::size_t{3} * Width * Height));
    return file.Make();
}

std::vector<std::byte> Jpeg(bool progressive) {
    JpegFile file{.width = Width,
                  .height = Height,
                  .parts = {},
                  .quality = 90,
                  .subsampled = true,
                  .progressive = progressive};
    for (const std::byte part : Noise(std::size_t{3} * Width * Height))
        file.parts.push_back(std::to_integer<std::uint8_t>(part));
    return file.Make();
}

std::vector<std::byte> Gif() {
    GifFile file{.width = Width, .height = Height};
    GifImage image{.width = Width, .height = Height};
    for (const std::byte index : Noise(std::size_t{Width} * Height))
        image.pixels.push_back(std::to_integer<unsigned>(index));
    image.table = std::vector<Pixel>(128, Red);
    file.images.push_back(std::move(image));
    return file.Make();
}

struct MemoryCase {
    std::string name;
    std::function<std::vector<std::byte>()> make;
};

void PrintTo(const MemoryCase& memoryCase, std::ostream* stream) {
    *stream << memoryCase.name;
}

class DecodeMemoryOf : public testing::TestWithParam<MemoryCase> {};

TEST_P(DecodeMemoryOf, IsThePictureAndAFewRows) {
    const std::vector<std::byte> file = GetParam().make();
    WatchedSource source(file);
    const std::size_t before = Heap();
    const std::size_t mapped = Mapped();
    if (before == 0 || mapped == 0) GTEST_SKIP() << "this heap does not tell what it holds";
    const DecodedPicture decoded =
        DecodePicture(source, ImportDecoderFor(source, "x." + GetParam().name.substr(0, 3)));
    ASSERT_FALSE(decoded.error);
    ASSERT_EQ(decoded.status.outcome, Outcome::Complete);
    ASSERT_EQ(decoded.picture.Height(), Height);
    EXPECT_GE(source.Reads(), 3);
    EXPECT_LE(source.Most(), before + MostBeside);
    constexpr std::size_t Picture = std::size_t{4} * Width * Height;
    EXPECT_GE(source.MostMapped(), mapped + Picture);
    EXPECT_LE(source.MostMapped(), mapped + Picture + 2 * MostBeside) << "heaps grow by more than they need";
}

/// Progressive photos are the one kind that has to be kept whole before its first row stands.
TEST(DecodeMemory, SeesCoefficientsThatAreKept) {
    const std::vector<std::byte> file = Jpeg(true);
    WatchedSource source(file);
    const std::size_t before = Heap();
    if (before == 0) GTEST_SKIP() << "this heap does not tell what it holds";
    const DecodedPicture decoded = DecodePicture(source);
    ASSERT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_GT(source.Most(), before + MostBeside);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, DecodeMemoryOf,
    testing::Values(MemoryCase{"bmp24", [] { return Bitmap(24); }},
                    MemoryCase{"bmp8", [] { return Bitmap(8); }}, MemoryCase{"bmpRunLength", RunLengthBitmap},
                    MemoryCase{"tga", [] { return Targa(false); }},
                    MemoryCase{"tgaRunLength", [] { return Targa(true); }}, MemoryCase{"pcx", Pcx},
                    MemoryCase{"jpg", [] { return Jpeg(false); }}, MemoryCase{"gif", Gif}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace tavrix::test
