#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "codecs/KeptBytes.h"
#include "imaging/codecs/GifAnimation.h"

namespace tavrix::test {
namespace {

namespace fs = std::filesystem;
using Pixels = std::vector<Pixel>;

/// What a command writes; nothing when it fails.
std::optional<std::string> OutputOf(const std::string& command) {
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return std::nullopt;
    std::string output;
    std::array<char, 65536> piece{};
    for (std::size_t got = 1; got != 0;) {
        got = std::fread(piece.data(), 1, piece.size(), pipe);
        output.append(piece.data(), got);
    }
    if (pclose(pipe) != 0) return std::nullopt;
    return output;
}

/// The pixels of one frame after the other, as another decoder sees them. Nothing where it refuses the file.
std::optional<std::vector<Pixels>> FramesElsewhere(const fs::path& file, std::size_t pixels) {
    const auto output = OutputOf("/usr/bin/python3 " TAVRIX_SOURCE_DIR "/tests/codecs/gif_frames.py '" +
                                 file.string() + "' 2>/dev/null");
    if (!output || pixels == 0 || output->size() % (4 * pixels) != 0) return std::nullopt;
    std::vector<Pixels> frames;
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>((*output)[at]); };
    for (std::size_t at = 0; at + 4 * pixels <= output->size(); at += 4 * pixels) {
        Pixels& frame = frames.emplace_back(pixels);
        for (std::size_t i = 0; i < pixels; ++i) {
            const std::size_t first = at + 4 * i;
            // The colour of a pixel that does not show is nobody's business.
            if (byte(first + 3) != 0) {
                frame[i] = OpaquePixel(byte(first), byte(first + 1), byte(first + 2)) & 0xFFFFFFU;
                frame[i] |= Pixel{byte(first + 3)} << 24U;
            }
        }
    }
    return frames;
}

std::vector<std::byte> BytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string chars{std::istreambuf_iterator<char>(file), {}};
    const auto bytes = std::as_bytes(std::span(chars));
    return {bytes.begin(), bytes.end()};
}

/// Compares all frames; where the other decoder refuses the file, or makes another size of it, there is nothing to
/// compare. It fills with the background colour of the file what is left transparent here, unless the file knows
/// transparent pixels; with `alsoEmpty` off those places are not looked at. The frames that were compared.
std::size_t CompareFrames(const fs::path& path, bool alsoEmpty) {
    SCOPED_TRACE(path.string());
    const OpenedAnimation opened = OpenGifAnimation(std::make_unique<KeptBytes>(BytesOf(path)));
    if (opened.error) return 0;
    const auto canvas = opened.animation->Canvas().Pixels();
    const auto expected = FramesElsewhere(path, canvas.size());
    if (!expected) return 0;
    for (std::size_t i = 0; i < expected->size(); ++i) {
        if (i != 0 && !opened.animation->Next()) {
            ADD_FAILURE() << "no frame " << i;
            break;
        }
        const bool same = std::ranges::equal(canvas, (*expected)[i], [alsoEmpty](Pixel ours, Pixel theirs) {
            return ours == theirs || (ours == 0 && !alsoEmpty);
        });
        EXPECT_TRUE(same) << "frame " << i;
    }
    return expected->size();
}

bool HasPillow() {
    return OutputOf("/usr/bin/python3 -c 'from PIL import Image' 2>/dev/null").has_value();
}

class GifFramesTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!HasPillow()) GTEST_SKIP() << "no other decoder";
    }
};

TEST_F(GifFramesTest, SeedsPlayAsElsewhere) {
    std::size_t frames = 0;
    for (const auto& entry : fs::directory_iterator(TAVRIX_SOURCE_DIR "/fuzz/codecs/seeds")) {
        if (entry.path().extension() == ".gif") frames += CompareFrames(entry.path(), true);
    }
    EXPECT_GE(frames, 5U);
}

TEST_F(GifFramesTest, PartsThatGoInEachWayPlayAsElsewhere) {
    std::string name = (fs::temp_directory_path() / "frames.XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    const fs::path path = fs::path(name) / "a.gif";
    unsigned random = 1;
    const auto next = [&random](unsigned below) {
        random = random * 1103515245U + 12345U;
        return (random >> 16U) % below;
    };
    for (int round = 0; round < 8; ++round) {
        // Pillow knows what lies behind the first frame only where that is all transparent or covers all.
        GifFile file{.width = 20, .height = 15, .table = {BlackPixel, Red, Green, Blue}};
        file.images.push_back(
            {.width = 20, .height = 15, .pixels = std::vector<unsigned>(300, 1), .transparent = 0});
        file.images[0].disposal = 1;
        for (int frame = 0; frame < 12; ++frame) {
            const int width = 1 + static_cast<int>(next(10));
            const int height = 1 + static_cast<int>(next(10));
            GifImage image{.left = static_cast<int>(next(static_cast<unsigned>(21 - width))),
                           .top = static_cast<int>(next(static_cast<unsigned>(16 - height))),
                           .width = width,
                           .height = height,
                           .interlaced = next(2) == 0,
                           .transparent = 0,
                           .disposal = 1 + next(3)};
            if (next(3) == 0) image.table = {WhitePixel, BlackPixel, OpaquePixel(9, 8, 7), Red};
            for (int i = 0; i < width * height; ++i)
                image.pixels.push_back(next(4));
            file.images.push_back(image);
        }
        const std::vector<std::byte> bytes = file.Make();
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        EXPECT_EQ(CompareFrames(path, true), 13U);
    }
    fs::remove_all(name);
}

/// Where there is a folder of other people's files: open/gif below TAVRIX_CORPORA.
TEST_F(GifFramesTest, OtherFilesPlayAsElsewhere) {
    const char* told = std::getenv("TAVRIX_CORPORA");
    const fs::path folder = fs::path(told != nullptr ? told : "") / "open" / "gif";
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no such folder";
    std::size_t frames = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".gif") frames += CompareFrames(entry.path(), false);
    }
    EXPECT_GE(frames, 50U);
}

}  // namespace
}  // namespace tavrix::test
