#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "codecs/Decoding.h"
#include "imaging/loading/Decoders.h"

namespace tavrix::test {
namespace {

TEST(Samples, HaveOneOfEachKindAndAllAreWhole) {
    const std::set<std::string> madeBy{"", ".py"};
    std::set<std::string> formats;
    for (const auto& entry : std::filesystem::directory_iterator(TAVRIX_SOURCE_DIR "/samples")) {
        if (!entry.is_regular_file() || madeBy.contains(entry.path().extension().string())) continue;
        SCOPED_TRACE(entry.path().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        const DecodedPicture decoded = Decode(std::as_bytes(std::span(bytes)), entry.path().string());
        ASSERT_FALSE(decoded.error);
        EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
        formats.insert(decoded.picture.format);
    }
    std::set<std::string> known;
    for (const auto decoders : {Decoders(), ImportDecoders()})
        for (const DecoderEntry& decoder : decoders)
            known.insert(std::string(decoder.format));
    EXPECT_EQ(formats, known);
}

}  // namespace
}  // namespace tavrix::test
