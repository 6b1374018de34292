// A kill while a picture is saved, exported or copied over another file.

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>

#include "KilledChild.h"
#include "TestFolder.h"
#include "backends/linux/HostPictures.h"
#include "backends/linux/HostViewLib.h"

namespace tavrix {
namespace {

constexpr int Rounds = 25;
constexpr int Side = 400;  // pixels; the files are larger than what one write takes

class SavingKillTest : public testing::Test {
  protected:
    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.Path();
        return sources;
    }
    [[nodiscard]] HostPaths Paths() const {
        HostPaths host;
        host.temporary = folder.At("temp");
        return host;
    }
    /// A picture of one grey.
    static Surface Plain(int number) {
        Surface surface(Side, Side);
        const auto grey = static_cast<unsigned>(number % 200);
        surface.Fill(OpaquePixel(grey, grey, grey));
        return surface;
    }
    /// The target is a whole picture of one grey, whichever.
    void ExpectWholePicture(const std::string& path) {
        Surface seen;
        try {
            const Picture picture = pictures.Load(path);
            seen = picture.pixels->Whole().Clone();
            EXPECT_EQ(picture.pixels->Ending(), Outcome::Complete);
        } catch (const RuntimeError& error) {
            FAIL() << error.Description();
        }
        ASSERT_EQ(seen.Width(), Side);
        ASSERT_EQ(seen.Height(), Side);
        const auto pixels = seen.Pixels();
        ASSERT_TRUE(std::ranges::all_of(pixels, [&](Pixel pixel) { return pixel == pixels.front(); }));
        greys.insert(pixels.front());
    }

    TestFolder folder;
    DriveMap drives{Sources()};
    HostPaths paths = Paths();
    HostFiles files{drives, paths};
    HostPictures pictures{files};
    HostViewLib viewLib{files};
    std::set<Pixel> greys;  ///< that were seen
};

TEST_F(SavingKillTest, Bitmap) {
    KillWhileWriting(
        Rounds, [&](int number) { pictures.SaveBitmap(Plain(number), "C:\\target.bmp"); },
        [&] { ExpectWholePicture("C:\\target.bmp"); });
    EXPECT_GT(greys.size(), 2U);
}

TEST_F(SavingKillTest, Jpeg) {
    KillWhileWriting(
        Rounds,
        [&](int number) {
            pictures.SaveBitmap(Plain(number), "C:\\source.bmp");
            if (viewLib.Load("C:\\source.bmp", 0) == 0 || viewLib.SaveAsJPG(90, "C:\\target.jpg") == 0)
                ::abort();
        },
        [&] { ExpectWholePicture("C:\\target.jpg"); });
    EXPECT_GT(greys.size(), 2U);
}

TEST_F(SavingKillTest, Copy) {
    for (int number = 0; number < 8; ++number)
        pictures.SaveBitmap(Plain(number), "C:\\source" + std::to_string(number) + ".bmp");
    KillWhileWriting(
        Rounds,
        [&](int number) { files.Copy("C:\\source" + std::to_string(number % 8) + ".bmp", "C:\\target.bmp"); },
        [&] { ExpectWholePicture("C:\\target.bmp"); });
    EXPECT_GT(greys.size(), 2U);
}

}  // namespace
}  // namespace tavrix
