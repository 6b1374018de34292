#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "codecs/Decoding.h"

namespace tavrix::test {
namespace {

namespace fs = std::filesystem;

/// A folder with broken files, where there is one: broken/bmp, broken/jpg below TAVRIX_CORPORA.
fs::path Corpora() {
    if (const char* told = std::getenv("TAVRIX_CORPORA")) return told;
    return fs::path(TAVRIX_SOURCE_DIR).parent_path() / "shared" / "corpora";
}

class BrokenFiles : public testing::TestWithParam<const char*> {};

TEST_P(BrokenFiles, NeitherCrashNorTakeLong) {
    const fs::path folder = Corpora() / "broken" / GetParam();
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no " << folder;
    for (const auto& entry : fs::directory_iterator(folder)) {
        SCOPED_TRACE(entry.path().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        const auto start = std::chrono::steady_clock::now();
        const DecodedPicture decoded = Decode(std::as_bytes(std::span(bytes)), entry.path().string());
        const auto took = std::chrono::steady_clock::now() - start;
        EXPECT_LT(took, std::chrono::seconds(5));
        EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, BrokenFiles,
                         testing::Values("bmp", "jpg", "gif", "ico", "cur", "tga", "pcx", "wmf", "emf"));

/// One small file of each kind, which the fuzzers start from too: whole, and cut at every byte.
TEST(Seeds, DecodeWholeAndEndWhereverTheyAreCut) {
    int files = 0;
    for (const auto& entry :
         fs::directory_iterator(fs::path(TAVRIX_SOURCE_DIR) / "fuzz" / "codecs" / "seeds")) {
        SCOPED_TRACE(entry.path().string());
        ++files;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> chars{std::istreambuf_iterator<char>(file), {}};
        const auto bytes = std::as_bytes(std::span(chars));
        const std::string name = entry.path().string();
        EXPECT_EQ(Decode(bytes, name).status.outcome, Outcome::Complete);
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            const DecodedPicture decoded = Decode(bytes.first(length), name);
            EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
            EXPECT_LE(decoded.status.offset, length);
        }
    }
    EXPECT_GE(files, 20);
}

}  // namespace
}  // namespace tavrix::test
