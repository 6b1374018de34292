#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

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

TEST_P(BrokenFiles, GiveAnImageOrAnError) {
    const fs::path folder = Corpora() / "broken" / GetParam();
    if (!fs::is_directory(folder)) GTEST_SKIP() << "no " << folder;
    for (const auto& entry : fs::directory_iterator(folder)) {
        SCOPED_TRACE(entry.path().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        const DecodedPicture decoded = Decode(std::as_bytes(std::span(bytes)), entry.path().string());
        EXPECT_NE(decoded.error.has_value(), !decoded.picture.Empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, BrokenFiles,
                         testing::Values("bmp", "jpg", "gif", "ico", "cur", "tga", "pcx", "wmf", "emf"));

/// Pictures by others with a table of their sizes, where there are some: open/manifest.tsv below TAVRIX_CORPORA.
TEST(OpenMetafiles, HaveTheSizeThatTheirHeadersTell) {
    const fs::path folder = Corpora() / "open";
    std::ifstream manifest(folder / "manifest.tsv");
    if (!manifest) GTEST_SKIP() << "no " << folder;
    int files = 0;
    for (std::string line; std::getline(manifest, line);) {
        std::istringstream fields(line);
        std::array<std::string, 7> columns;
        for (std::string& column : columns)
            std::getline(fields, column, '\t');
        const auto& [path, format, width, height, outcome, decoders, tolerance] = columns;
        if ((format != "wmf" && format != "emf") || outcome != "decode" ||
            !tolerance.starts_with("size \u00B11px"))
            continue;
        SCOPED_TRACE(path);
        ++files;
        std::ifstream file(folder / path, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        const DecodedPicture decoded = Decode(std::as_bytes(std::span(bytes)));
        EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
        EXPECT_EQ(decoded.picture.format, format);
        EXPECT_NEAR(decoded.picture.Width(), std::stoi(width), 1);
        EXPECT_NEAR(decoded.picture.Height(), std::stoi(height), 1);
    }
    EXPECT_GT(files, 10);
}

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
