#include <gtest/gtest.h>

#include "codecs/Decoding.h"
#include "codecs/PngFile.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;

const PngFile Four{.width = 2,
                   .height = 2,
                   .colourType = 6,
                   .rows = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 255, 255, 0}};

TEST(Png, AFileOfItsOwnIsTakenByItsContent) {
    const DecodedPicture decoded = Decode(Four.Make());
    ASSERT_FALSE(decoded.error);
    EXPECT_EQ(decoded.status.outcome, Outcome::Complete);
    EXPECT_EQ(decoded.picture.format, "png");
    EXPECT_EQ(decoded.picture.frames, 1);
    EXPECT_TRUE(decoded.picture.transparent);
    EXPECT_EQ(PixelsOf(decoded), (Pixels{Red, Green, Blue, 0x00FFFFFFU}));
    EXPECT_EQ(PixelsOf(Decode(Four.Make(), "holiday.tga")), PixelsOf(decoded)) << "whatever its name";
}

TEST(Png, CutAtEveryByte) {
    const std::vector<std::byte> file = Four.Make();
    for (std::size_t length = 0; length + 12 < file.size(); ++length) {
        SCOPED_TRACE(length);
        const DecodedPicture decoded = Decode(std::span(file).first(length));
        EXPECT_NE(decoded.status.outcome, Outcome::Complete);
        EXPECT_EQ(decoded.error.has_value(), decoded.picture.Empty());
    }
}

}  // namespace
}  // namespace tavrix::test
