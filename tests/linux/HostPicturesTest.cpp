#include "backends/linux/HostPictures.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "TestFolder.h"
#include "backends/linux/DriveMap.h"
#include "codecs/GifFile.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

using test::GifFile;
using test::GifImage;

constexpr Pixel Red = OpaquePixel(255, 0, 0);
constexpr Pixel Green = OpaquePixel(0, 255, 0);

/// So many frames of a hundred by a hundred pixels, red and green in turns, for ever.
std::string Turns(int frames) {
    GifFile file{.width = 100, .height = 100, .table = {Red, Green}};
    for (unsigned i = 0; i < static_cast<unsigned>(frames); ++i) {
        file.images.push_back({.width = 100, .height = 100, .pixels = std::vector<unsigned>(10'000, i % 2)});
    }
    file.before = test::GifRepetitions(0);
    const std::vector<std::byte> bytes = file.Make();
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class HostPicturesTest : public testing::Test {
  protected:
    HostPicturesTest() {
        folder.PutFolder("c");
        folder.PutFolder("program");
        folder.Put("c/a.gif", Turns(4));
    }

    [[nodiscard]] DriveMap::Sources Sources() const {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.At("c") + ";P=" + folder.At("program");
        sources.program = folder.At("program");
        return sources;
    }
    [[nodiscard]] HostPaths Paths() const {
        HostPaths paths;
        paths.program = folder.At("program");
        paths.temporary = folder.At("c/temp");
        paths.data = folder.At("data");
        return paths;
    }
    int ErrorOf(const std::string& path) {
        return ErrorOfCall([&] { static_cast<void>(pictures.OpenAnimation(path)); });
    }

    TestFolder folder;
    DriveMap drives{Sources()};
    HostFiles files{drives, Paths()};
    HostPictures pictures{files};
};

TEST_F(HostPicturesTest, AnAnimationPlaysFromAFile) {
    const auto animation = pictures.OpenAnimation("c:\\A.GIF");
    EXPECT_EQ(animation->Canvas().Width(), 100);
    EXPECT_EQ(animation->Stay(), std::chrono::milliseconds(100));
    for (int frame = 0; frame < 100; ++frame) {
        EXPECT_EQ(animation->Canvas().Row(99)[99], frame % 2 == 0 ? Red : Green);
        EXPECT_TRUE(animation->Next());
    }
}

TEST_F(HostPicturesTest, WhatDoesNotOpen) {
    folder.Put("c/text.gif", "no picture");
    folder.PutFolder("c/folder.gif");
    EXPECT_EQ(ErrorOf("C:\\text.gif"), 481);
    EXPECT_EQ(ErrorOf("C:\\none.gif"), 53);
    EXPECT_EQ(ErrorOf("C:\\none\\a.gif"), 76);
    EXPECT_EQ(ErrorOf("C:\\folder.gif"), 75);
}

TEST_F(HostPicturesTest, APictureIsMadeToFitABox) {
    const FittedPicture fitted = pictures.LoadToFit("c:\\A.GIF", {30, 20})->Take();
    EXPECT_EQ(fitted.width, 100);
    EXPECT_EQ(fitted.height, 100);
    EXPECT_EQ(fitted.picture.Width(), 20);
    EXPECT_EQ(fitted.picture.Height(), 20);
    EXPECT_EQ(fitted.picture.frames, 4);
    EXPECT_EQ(fitted.picture.pixels->Whole().Row(19)[19], Red);
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(pictures.LoadToFit("C:\\none.gif", {30, 20})); }), 53);
}

TEST_F(HostPicturesTest, AnExpectedPictureIsLoadedByWhicheverSpelling) {
    pictures.Expect("C:\\a.gif");
    EXPECT_EQ(pictures.Load("c:\\A.GIF").pixels->Whole().Row(0)[0], Red);
    pictures.Expect("C:\\a.gif");
    folder.Put("c/a.gif", Turns(2));
    EXPECT_EQ(pictures.Load("C:\\a.gif").frames, 2) << "it has changed since";
    pictures.Expect("C:\\none.gif");
    pictures.Expect("");
    EXPECT_EQ(pictures.Load("C:\\a.gif").frames, 2);
}

TEST_F(HostPicturesTest, ADeletedFilePlaysOn) {
    const auto animation = pictures.OpenAnimation("C:\\a.gif");
    std::filesystem::remove(folder.At("c/a.gif"));
    for (int frame = 0; frame < 100; ++frame)
        EXPECT_TRUE(animation->Next());
}

TEST_F(HostPicturesTest, AFileThatShrinksEndsOrRepeatsWhatIsLeft) {
    folder.Put("c/long.gif", Turns(40));
    const auto whole = std::filesystem::file_size(folder.At("c/long.gif"));
    for (const std::uintmax_t size : {std::uintmax_t{0}, std::uintmax_t{30}, whole / 2}) {
        folder.Put("c/long.gif", Turns(40));
        const auto animation = pictures.OpenAnimation("C:\\long.gif");
        std::filesystem::resize_file(folder.At("c/long.gif"), size);
        int frames = 0;
        while (frames < 200 && animation->Next())
            ++frames;
        EXPECT_EQ(frames == 200, size > 30) << frames;
        EXPECT_EQ(animation->Canvas().Width(), 100);
    }
}

}  // namespace
}  // namespace tavrix
