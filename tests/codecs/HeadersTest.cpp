// The first step of each decoder: size and frames, from the headers alone.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "codecs/BmpFile.h"
#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "codecs/JpegFile.h"
#include "codecs/PngFile.h"
#include "codecs/WmfFile.h"

namespace tavrix::test {
namespace {

class CountedSource final : public ByteSource {
  public:
    explicit CountedSource(std::span<const std::byte> bytes) : bytes_(bytes) {}
    [[nodiscard]] std::uint64_t Size() const override { return bytes_.Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        const std::size_t got = bytes_.ReadAt(offset, into);
        read += got;
        return got;
    }
    std::size_t read = 0;

  private:
    MemorySource bytes_;
};

PictureHeader HeaderOf(const std::vector<std::byte>& file, std::string_view name = "") {
    MemorySource source(file);
    return ImportDecoderFor(source, name)->ReadHeader(source, NeverCancelled());
}

TEST(Headers, TellWhatDecodingFinds) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TAVRIX_SOURCE_DIR "/samples")) {
        const std::string name = entry.path().string();
        if (!entry.is_regular_file() || name.ends_with(".py") || name.ends_with("/make")) continue;
        SCOPED_TRACE(name);
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::vector<char> chars{std::istreambuf_iterator<char>(stream), {}};
        const auto bytes = std::as_bytes(std::span(chars));
        const std::vector<std::byte> file(bytes.begin(), bytes.end());
        const PictureHeader header = HeaderOf(file, name);
        const DecodedPicture decoded = Decode(file, name);
        ASSERT_TRUE(header.known) << header.reason;
        EXPECT_EQ(header.info.width, decoded.picture.Width());
        EXPECT_EQ(header.info.height, decoded.picture.Height());
        EXPECT_EQ(header.info.frames, decoded.picture.frames);
        ++files;
    }
    EXPECT_GT(files, 15);
}

TEST(Headers, OfAPhotoHaveTheOrientation) {
    JpegFile photo = BlockPicture(5, 2, [](int, int) { return std::array{9, 9, 9}; });
    photo.exif = 6;
    EXPECT_EQ(HeaderOf(photo.Make()).info.width, 16);
    EXPECT_EQ(HeaderOf(photo.Make()).info.height, 40);
}

TEST(Headers, OfAFileInsideABitmapAreThoseOfThePicture) {
    const std::vector<std::byte> inside =
        PngFile{.width = 3, .height = 5, .colourType = 2, .rows = std::vector<std::uint8_t>(45)}.Make();
    BmpFile bitmap{.width = 8, .height = 8, .bits = 0, .compression = 5};
    bitmap.pixels.Append(inside);
    const PictureHeader header = HeaderOf(bitmap.Make());
    ASSERT_TRUE(header.known) << header.reason;
    EXPECT_EQ(header.info.width, 3);
    EXPECT_EQ(header.info.height, 5);
}

TEST(Headers, AreAllThatIsRead) {
    JpegFile photo;
    photo.width = photo.height = 2000;
    photo.parts.assign(std::size_t{3} * 2000 * 2000, 77);
    unsigned noise = 1;
    for (std::uint8_t& part : photo.parts)
        part = static_cast<std::uint8_t>((noise = noise * 1664525U + 1013904223U) >> 24U);
    BmpFile bitmap{.width = 2000, .height = 2000};
    bitmap.pixels.Zeros(std::size_t{6000} * 2000);
    for (const std::vector<std::byte>& file : {photo.Make(), bitmap.Make()}) {
        ASSERT_GT(file.size(), 4'000'000U);
        CountedSource source(file);
        const DecoderEntry* decoder = DecoderFor(source);
        EXPECT_TRUE(decoder->ReadHeader(source, NeverCancelled()).known);
        EXPECT_LT(source.read, 200'000U);
    }
}

TEST(Headers, CutAtEveryByteTheyAreKnownOrNot) {
    GifFile gif{.images = {{.pixels = {1, 1, 1, 1}}, {.pixels = {2, 2, 2, 2}}}};
    const std::vector<std::vector<std::byte>> files{
        PngFile{.rows = std::vector<std::uint8_t>(16)}.Make(), gif.Make(),
        BlockPicture(2, 2,
                     [](int, int) {
                         return std::array{9, 9, 9};
                     })
            .Make(),
        WmfFile(std::nullopt).Rectangle(0, 0, 9, 9).Make(), BmpFile{.pixels = Bytes().Zeros(16)}.Make()};
    for (const std::vector<std::byte>& file : files) {
        bool known = false;
        for (std::size_t length = 0; length <= file.size(); ++length) {
            const std::vector<std::byte> cut(file.begin(),
                                             file.begin() + static_cast<std::ptrdiff_t>(length));
            MemorySource source(cut);
            const DecoderEntry* decoder = DecoderFor(source);
            if (decoder == nullptr) continue;
            const PictureHeader header = decoder->ReadHeader(source, NeverCancelled());
            EXPECT_EQ(header.known, header.reason.empty()) << length;
            EXPECT_EQ(header.known, header.info.width > 0) << length;
            known = header.known;
        }
        EXPECT_TRUE(known);
    }
}

}  // namespace
}  // namespace tavrix::test
