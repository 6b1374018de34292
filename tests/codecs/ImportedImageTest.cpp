#include "imaging/loading/ImportedImage.h"

#include <gtest/gtest.h>

#include "codecs/BmpFile.h"
#include "codecs/Decoding.h"
#include "codecs/PcxFile.h"
#include "codecs/TgaFile.h"
#include "imaging/loading/Decoders.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

const std::vector<std::byte> Tga = TgaFile{.height = 1, .pixels = Bytes().U8({0, 0, 255, 0, 255, 0})}.Make();
const std::vector<std::byte> Pcx =
    PcxFile{.width = 2, .lines = Bytes().U8({0, 1, 0, 0}), .palette = {Red, Green}}.Make();
const std::vector<std::byte> Bmp =
    BmpFile{.height = 1, .pixels = Bytes().U8({0, 0, 255, 0, 255, 0, 0, 0})}.Make();

std::string FormatOf(const std::vector<std::byte>& bytes, std::string_view name) {
    MemorySource source(bytes);
    const DecoderEntry* decoder = ImportDecoderFor(source, name);
    return decoder != nullptr ? std::string(decoder->format) : "";
}

TEST(ImportDecoders, GoByTheNameAndTheHeader) {
    EXPECT_EQ(FormatOf(Tga, "C:\\Pictures\\a.tga"), "tga");
    EXPECT_EQ(FormatOf(Tga, "C:\\PICTURES\\A.TGA"), "tga");
    EXPECT_EQ(FormatOf(Pcx, "/home/a.pcx"), "pcx");
    // The name alone does not do, and neither do the bytes.
    EXPECT_EQ(FormatOf(Tga, "a.pcx"), "");
    EXPECT_EQ(FormatOf(Pcx, "a.tga"), "");
    EXPECT_EQ(FormatOf(Tga, "a.bmp"), "");
    EXPECT_EQ(FormatOf(Tga, "a.tga.bak"), "");
    EXPECT_EQ(FormatOf(Tga, "tga"), "");
    EXPECT_EQ(FormatOf(Tga, ""), "");
    // What is known by its signature is found under any name.
    EXPECT_EQ(FormatOf(Bmp, "a.tga"), "bmp");
    EXPECT_EQ(FormatOf(Bmp, "a.pcx"), "bmp");
    EXPECT_EQ(FormatOf(Bmp, "a"), "bmp");
}

TEST(ImportDecoders, TheGeneralLoaderDoesNotKnowThem) {
    for (const auto& bytes : {Tga, Pcx}) {
        MemorySource source(bytes);
        EXPECT_EQ(DecoderFor(source), nullptr);
        EXPECT_EQ(Decode(bytes).error, ErrorNumber::InvalidPicture);
    }
    for (const DecoderEntry& decoder : ImportDecoders()) {
        EXPECT_TRUE(std::ranges::none_of(
            Decoders(), [&](const DecoderEntry& general) { return general.format == decoder.format; }));
    }
}

Pixels PixelsOf(const ImportedImage& image) {
    return {image.Pixels().Pixels().begin(), image.Pixels().Pixels().end()};
}

bool Load(ImportedImage& image, const std::vector<std::byte>& bytes, std::string_view name) {
    MemorySource source(bytes);
    return image.Load(source, name);
}

TEST(ImportedImage, HoldsTheLastOneAlone) {
    ImportedImage image;
    EXPECT_TRUE(image.Pixels().Empty());
    for (const auto& [bytes, name] : {std::pair(Tga, "a.tga"), {Pcx, "a.pcx"}, {Bmp, "a.bmp"}}) {
        EXPECT_TRUE(Load(image, bytes, name));
        EXPECT_EQ(PixelsOf(image), (Pixels{Red, Green}));
        EXPECT_FALSE(Load(image, Bytes().Text("no picture").Get(), name));
        EXPECT_TRUE(image.Pixels().Empty());
    }
}

TEST(ImportedImage, IsOpaque) {
    ImportedImage image;
    const TgaFile half{
        .height = 1, .bits = 32, .descriptor = 0x28, .pixels = Bytes().U32(0x80000000).U32(0x00123456)};
    EXPECT_TRUE(Load(image, half.Make(), "a.tga"));
    EXPECT_EQ(PixelsOf(image), (Pixels{0xFF7F7F7FU, WhitePixel}));
    // What is missing too.
    EXPECT_TRUE(Load(image, TgaFile{.pixels = Bytes().U8({0, 0, 255})}.Make(), "a.tga"));
    EXPECT_EQ(PixelsOf(image), (Pixels{Red, WhitePixel, WhitePixel, WhitePixel}));
}

TEST(ImportedImage, BeyondTheLimits) {
    ImportedImage image;
    EXPECT_FALSE(
        Load(image, TgaFile{.width = 65535, .height = 65535, .pixels = Bytes().Zeros(9)}.Make(), "a.tga"));
    EXPECT_TRUE(image.Pixels().Empty());
}

}  // namespace
}  // namespace tavrix::test
