#include "imaging/codecs/GifAnimation.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>

#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "codecs/KeptBytes.h"

namespace tavrix::test {
namespace {

using Pixels = std::vector<Pixel>;
using std::chrono::milliseconds;
const Pixels Table{BlackPixel, Red, Green, Blue};

OpenedAnimation Open(std::vector<std::byte> bytes) {
    return OpenGifAnimation(std::make_unique<KeptBytes>(std::move(bytes)));
}
OpenedAnimation Open(const GifFile& file) {
    return Open(file.Make());
}

Pixels Shown(const Animation& animation) {
    const auto pixels = animation.Canvas().Pixels();
    return {pixels.begin(), pixels.end()};
}

/// The canvases one after the other, up to the end or so many.
std::vector<Pixels> Canvases(const GifFile& file, std::size_t most = 100) {
    const OpenedAnimation opened = Open(file);
    if (opened.error) return {};
    std::vector<Pixels> canvases{Shown(*opened.animation)};
    while (canvases.size() < most && opened.animation->Next())
        canvases.push_back(Shown(*opened.animation));
    return canvases;
}

GifImage Plain(unsigned index) {
    return {.pixels = {index, index, index, index}};
}
GifFile ThreePlain() {
    return {.table = Table, .images = {Plain(1), Plain(2), Plain(3)}};
}
const std::vector<Pixels> ThreeCanvases{Pixels(4, Red), Pixels(4, Green), Pixels(4, Blue)};

TEST(GifAnimation, FramesFollowEachOther) {
    EXPECT_EQ(Canvases(ThreePlain()), ThreeCanvases);
}

TEST(GifAnimation, EachFrameStaysAsLongAsItSays) {
    GifFile file{.table = Table};
    for (const unsigned delay : {5U, 2U, 1U, 0U, 200U, 65535U}) {
        file.images.push_back(Plain(1));
        file.images.back().delay = delay;
    }
    const OpenedAnimation opened = Open(file);
    for (const int stay : {50, 20, 100, 100, 2000, 655350}) {
        EXPECT_EQ(opened.animation->Stay(), milliseconds(stay));
        EXPECT_EQ(opened.animation->Next(), stay != 655350);
    }
}

TEST(GifAnimation, AFrameWithoutAControlStaysATenthOfASecond) {
    GifFile file = ThreePlain();
    for (GifImage& image : file.images)
        image.control = false;
    EXPECT_EQ(Canvases(file), ThreeCanvases);
    EXPECT_EQ(Open(file).animation->Stay(), milliseconds(100));
}

// Repetitions

TEST(GifAnimation, WithoutACountItPlaysOnceAndTheLastFrameStays) {
    const OpenedAnimation opened = Open(ThreePlain());
    EXPECT_TRUE(opened.animation->Next());
    EXPECT_TRUE(opened.animation->Next());
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(opened.animation->Next());
        EXPECT_EQ(Shown(*opened.animation), Pixels(4, Blue));
    }
}

TEST(GifAnimation, ACountRepeatsTheFrames) {
    for (const char* application : {"NETSCAPE2.0", "ANIMEXTS1.0"}) {
        for (const unsigned count : {1U, 2U, 300U}) {
            GifFile file = ThreePlain();
            file.before = GifRepetitions(count, application);
            const std::vector<Pixels> canvases = Canvases(file, 10'000);
            ASSERT_EQ(canvases.size(), 3 * (count + 1));
            for (std::size_t i = 0; i < canvases.size(); ++i)
                EXPECT_EQ(canvases[i], ThreeCanvases[i % 3]);
        }
    }
}

TEST(GifAnimation, ZeroRepeatsForEver) {
    GifFile file = ThreePlain();
    file.before = GifRepetitions(0);
    EXPECT_EQ(Canvases(file, 3001).back(), Pixels(4, Red));
}

TEST(GifAnimation, OtherExtensionsAreNoCount) {
    for (const Bytes& extension :
         {GifRepetitions(0, "XMP DataXMP"), Bytes().U8({0x21, 0xFF, 11}).Text("NETSCAPE2.0").U8({0}),
          Bytes().U8({0x21, 0xFF, 11}).Text("NETSCAPE2.0").U8({2, 1, 0, 0}),
          Bytes().U8({0x21, 0xFF, 11}).Text("NETSCAPE2.0").U8({5, 2, 0, 0, 1, 0, 0}),
          Bytes().U8({0x21, 0xFE, 11}).Text("NETSCAPE2.0").U8({3, 1, 0, 0, 0}),
          Bytes().U8({0x21, 0xFF, 0})}) {
        GifFile file = ThreePlain();
        file.before = extension;
        EXPECT_EQ(Canvases(file), ThreeCanvases);
    }
}

TEST(GifAnimation, OneFrameHasNothingToRepeat) {
    const OpenedAnimation opened =
        Open(GifFile{.table = Table, .images = {Plain(1)}, .before = GifRepetitions(0)});
    EXPECT_FALSE(opened.animation->Next());
    EXPECT_EQ(Shown(*opened.animation), Pixels(4, Red));
}

// Composition

/// Red all over; two by one pixels of green in the middle of three by three, which go in this way; one pixel of blue.
std::vector<Pixels> Disposed(unsigned disposal) {
    return Canvases(
        GifFile{.width = 3,
                .height = 3,
                .table = Table,
                .images = {{.width = 3, .height = 3, .pixels = std::vector<unsigned>(9, 1), .disposal = 1},
                           {.left = 1, .top = 1, .height = 1, .pixels = {2, 2}, .disposal = disposal},
                           {.width = 1, .height = 1, .pixels = {3}}}});
}

TEST(GifAnimation, FramesGoAsTheyAskFor) {
    const Pixels before{Red, Red, Red, Red, Green, Green, Red, Red, Red};
    for (const unsigned disposal : {0U, 1U, 5U, 6U, 7U}) {
        EXPECT_EQ(Disposed(disposal),
                  (std::vector<Pixels>{
                      Pixels(9, Red), before, {Blue, Red, Red, Red, Green, Green, Red, Red, Red}}));
    }
    EXPECT_EQ(Disposed(2),
              (std::vector<Pixels>{Pixels(9, Red), before, {Blue, Red, Red, Red, 0, 0, Red, Red, Red}}));
    for (const unsigned disposal : {3U, 4U}) {
        EXPECT_EQ(
            Disposed(disposal),
            (std::vector<Pixels>{Pixels(9, Red), before, {Blue, Red, Red, Red, Red, Red, Red, Red, Red}}));
    }
}

TEST(GifAnimation, BeforeTheFirstFrameThereIsNothing) {
    GifImage first = Plain(1);
    for (const unsigned disposal : {2U, 3U}) {
        first.disposal = disposal;
        EXPECT_EQ(
            Canvases(GifFile{.table = Table, .images = {first, {.width = 1, .height = 1, .pixels = {2}}}}),
            (std::vector<Pixels>{Pixels(4, Red), {Green, 0, 0, 0}}));
    }
}

TEST(GifAnimation, FramesThatRestoreFollowEachOther) {
    GifFile file{.width = 3, .height = 1, .table = Table};
    file.images.push_back({.width = 3, .height = 1, .pixels = {1, 1, 1}, .disposal = 1});
    for (int left = 0; left < 3; ++left)
        file.images.push_back({.left = left, .width = 1, .height = 1, .pixels = {2}, .disposal = 3});
    file.images.push_back({.left = 1, .height = 1, .pixels = {3, 0}, .disposal = 3});
    file.images.push_back({.width = 1, .height = 1, .pixels = {0}});
    EXPECT_EQ(Canvases(file), (std::vector<Pixels>{{Red, Red, Red},
                                                   {Green, Red, Red},
                                                   {Red, Green, Red},
                                                   {Red, Red, Green},
                                                   {Red, Blue, BlackPixel},
                                                   {BlackPixel, Red, Red}}));
}

TEST(GifAnimation, EachRoundBeginsWithAnEmptyCanvas) {
    GifFile file{.table = Table,
                 .images = {{.width = 1, .height = 1, .pixels = {1}},
                            {.left = 1, .width = 1, .height = 1, .pixels = {2}, .disposal = 3}}};
    file.before = GifRepetitions(1);
    EXPECT_EQ(Canvases(file),
              (std::vector<Pixels>{{Red, 0, 0, 0}, {Red, Green, 0, 0}, {Red, 0, 0, 0}, {Red, Green, 0, 0}}));
}

TEST(GifAnimation, TransparentPixelsLeaveWhatWasThere) {
    EXPECT_EQ(
        Canvases(GifFile{.table = Table, .images = {Plain(1), {.pixels = {2, 3, 3, 2}, .transparent = 2}}}),
        (std::vector<Pixels>{Pixels(4, Red), {Red, Blue, Blue, Red}}));
}

TEST(GifAnimation, TablesOfTheirOwnServeOneFrame) {
    GifFile file = ThreePlain();
    file.images[1].table = {Red, Red, WhitePixel, Red};
    EXPECT_EQ(Canvases(file), (std::vector<Pixels>{Pixels(4, Red), Pixels(4, WhitePixel), Pixels(4, Blue)}));
}

TEST(GifAnimation, InterlacedParts) {
    EXPECT_EQ(Canvases(GifFile{.width = 1,
                               .height = 6,
                               .table = Table,
                               .images = {{.width = 1, .height = 6, .pixels = {0, 0, 0, 0, 0, 0}},
                                          {.top = 1,
                                           .width = 1,
                                           .height = 5,
                                           .pixels = {1, 1, 2, 3, 3},  // rows 0; 4; 2; 1, 3
                                           .interlaced = true}}})
                  .back(),
              (Pixels{BlackPixel, Red, Blue, Green, Blue, Red}));
}

TEST(GifAnimation, FramesReachOverTheScreen) {
    GifFile file{
        .table = Table,
        .images = {Plain(1),
                   {.left = 1, .top = 1, .pixels = {2, 3, 3, 3}, .disposal = 2},
                   {.left = 1, .pixels = {3, 2, 3, 2}, .interlaced = true, .disposal = 3},
                   {.left = 60000, .top = 60000, .pixels = {3, 3, 3, 3}, .disposal = 3, .delay = 7}}};
    const std::vector<Pixels> canvases{
        Pixels(4, Red), {Red, Red, Red, Green}, {Red, Blue, Red, Blue}, {Red, Red, Red, 0}};
    EXPECT_EQ(Canvases(file), canvases);
    const OpenedAnimation opened = Open(file);
    while (opened.animation->Next()) {
    }
    EXPECT_EQ(opened.animation->Stay(), milliseconds(70));
}

TEST(GifAnimation, FramesWithoutAreaHaveTheirTime) {
    GifFile file = ThreePlain();
    file.images[1] = {.width = 0, .pixels = {}, .disposal = 3, .delay = 9};
    EXPECT_EQ(Canvases(file), (std::vector<Pixels>{Pixels(4, Red), Pixels(4, Red), Pixels(4, Blue)}));
    file.images[1].disposal = 2;
    EXPECT_EQ(Canvases(file).size(), 3U);
}

TEST(GifAnimation, AScreenWithoutAreaIsAsLargeAsTheFirstImage) {
    GifFile file = ThreePlain();
    file.width = 0;
    file.images[0].left = file.images[1].left = 1;
    file.images.insert(file.images.begin(), GifImage{.height = 0, .pixels = {}});
    EXPECT_EQ(Canvases(file), ThreeCanvases);
}

TEST(GifAnimation, ImagesAtTheStartThatShowNothingArePassedOverInEachRound) {
    GifFile file = ThreePlain();
    file.images.insert(file.images.begin(), {.left = 9, .pixels = {1, 1, 1, 1}});
    file.images.insert(file.images.begin(), {.data = Bytes().U8({0})});
    file.before = GifRepetitions(1);
    std::vector<Pixels> twice = ThreeCanvases;
    twice.insert(twice.end(), ThreeCanvases.begin(), ThreeCanvases.end());
    EXPECT_EQ(Canvases(file), twice);
}

TEST(GifAnimation, ItIsKnownWhereTheCanvasIsOpaque) {
    const OpenedAnimation opened =
        Open(GifFile{.table = Table,
                     .images = {{.pixels = {1, 1, 1, 1}, .transparent = 1},
                                Plain(1),
                                {.left = 1, .pixels = {2, 2, 2, 2}, .transparent = 3, .disposal = 3},
                                {.width = 1, .height = 1, .pixels = {2}, .disposal = 2},
                                {.left = 1, .width = 1, .height = 1, .pixels = {2}},
                                {.width = 1, .pixels = {2, 2}}}});
    std::vector<bool> transparent{opened.animation->Transparent()};
    while (opened.animation->Next())
        transparent.push_back(opened.animation->Transparent());
    EXPECT_EQ(transparent, (std::vector<bool>{true, false, false, false, true, true}));
}

// Failures and limits

TEST(GifAnimation, WhatIsNoAnimation) {
    EXPECT_EQ(Open(Bytes().Text("GIF90a and more").Get()).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(Open(std::vector<std::byte>()).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(Open(GifFile{.table = Table}).error, ErrorNumber::InvalidPicture);
    EXPECT_EQ(Open(GifFile{.table = Table, .images = {{.left = 2, .pixels = {1, 1, 1, 1}}}}).error,
              ErrorNumber::InvalidPicture);
    EXPECT_EQ(Open(GifFile{.table = Table, .images = {{.data = Bytes().U8({0})}}}).error,
              ErrorNumber::InvalidPicture);
    GifFile nothing{.table = Table,
                    .images = std::vector<GifImage>(2000, {.left = 2, .pixels = {1, 1, 1, 1}})};
    nothing.images.push_back(Plain(1));
    EXPECT_EQ(Open(nothing).error, ErrorNumber::InvalidPicture);
    const OpenedAnimation opened = Open(ThreePlain());
    EXPECT_FALSE(opened.error.has_value());
    EXPECT_NE(opened.animation, nullptr);
}

TEST(GifAnimation, CanvasesOverTheLimits) {
    GifFile file = ThreePlain();
    file.width = file.height = 65535;
    EXPECT_EQ(Open(file).error, ErrorNumber::OutOfMemory);
    file.width = file.height = 16384;  // just within
    const OpenedAnimation opened = Open(file);
    ASSERT_FALSE(opened.error.has_value());
    EXPECT_TRUE(opened.animation->Next());
}

TEST(GifAnimation, ACopyThatWouldBeOverTheLimitsIsNotMade) {
    // The frame that would be restored covers all of the largest canvas.
    GifFile file = ThreePlain();
    file.width = file.height = 16384;
    file.images[0] = {
        .width = 16384, .height = 16384, .data = GifCodes().Put(256, 9).Put(1, 9).Blocks(), .disposal = 3};
    const OpenedAnimation opened = Open(file);
    ASSERT_FALSE(opened.error.has_value());
    EXPECT_TRUE(opened.animation->Next());
    EXPECT_EQ(opened.animation->Canvas().Row(0)[0], Green);
}

TEST(GifAnimation, MemoryStaysFlatOverAThousandFrames) {
    GifFile file{.width = 40, .height = 40};
    for (unsigned i = 0; i < 1000; ++i) {
        file.images.push_back({.width = 40,
                               .height = 40,
                               .pixels = std::vector<unsigned>(1600, i & 0xFFU),
                               .table = Pixels(256, OpaquePixel(i & 0xFFU, 0, 0)),
                               .disposal = 3});
    }
    file.before = GifRepetitions(2);
    const OpenedAnimation opened = Open(file);
    ASSERT_TRUE(opened.animation->Next());
    const std::size_t before = mallinfo2().uordblks;
    int frames = 2;
    while (opened.animation->Next()) {
        ++frames;
        ASSERT_LE(mallinfo2().uordblks, before + 4096) << frames;
    }
    EXPECT_EQ(frames, 3000);
}

// Damage

TEST(GifAnimation, ADamagedFrameShowsWhatThereIsAndTheNextOneComes) {
    // A pixel of blue, then a code that cannot be; the rest of the block and another one are passed over.
    const Bytes wrong = GifCodes().Put(4, 3).Put(3, 3).Put(4, 3).Put(7, 3).Blocks();
    const Bytes damaged =
        Bytes().Append(std::span(wrong.Get()).first(wrong.Size() - 1)).U8({3, 0x2C, 0x21, 0x3B, 0});
    // Fewer pixels than the image has.
    const Bytes ended = GifCodes().Put(4, 3).Put(3, 3).Put(5, 3).Blocks();
    for (const Bytes& data : {damaged, ended}) {
        GifFile file = ThreePlain();
        file.images[1] = {.codeSize = 2, .data = data};
        file.before = GifRepetitions(1);
        const std::vector<Pixels> round{Pixels(4, Red), {Blue, Red, Red, Red}, Pixels(4, Blue)};
        std::vector<Pixels> twice = round;
        twice.insert(twice.end(), round.begin(), round.end());
        EXPECT_EQ(Canvases(file), twice);
    }
}

TEST(GifAnimation, JunkEndsTheRound) {
    GifFile file = ThreePlain();
    file.between = Bytes().Text("junk");
    file.images[0].pixels = {1, 2, 3, 1};
    EXPECT_EQ(Canvases(file), (std::vector<Pixels>{{Red, Green, Blue, Red}}));
}

TEST(GifAnimation, PaddingIsNoJunk) {
    GifFile file = ThreePlain();
    file.between = Bytes().Zeros(3);
    EXPECT_EQ(Canvases(file), ThreeCanvases);
}

TEST(GifAnimation, AFrameThatExpandsEnormouslyEndsAndTheNextOneComes) {
    // Each code stands for one pixel more than the one before: eight million pixels in six kilobytes.
    GifCodes codes;
    for (int round = 0; round < 40; ++round) {
        codes.Put(256, round == 0 ? 9 : 12).Put(1, 9);
        for (unsigned next = 258; next < 4096; ++next) {
            unsigned bits = 9;
            while ((1U << bits) <= next)
                ++bits;
            codes.Put(next, bits);
        }
    }
    GifFile file = ThreePlain();
    file.images[1] = {.width = 65535, .height = 65535, .interlaced = true, .data = codes.Blocks()};
    const std::vector<Pixels> canvases = Canvases(file);
    ASSERT_EQ(canvases.size(), 3U);
    EXPECT_EQ(canvases[1][0], Red);
    EXPECT_EQ(canvases[2], Pixels(4, Blue));
}

std::vector<GifFile> SmallFiles() {
    const std::vector<unsigned> nine{1, 2, 3, 3, 2, 1, 1, 3, 2};
    const GifImage image{.width = 3, .height = 3, .pixels = nine};
    GifImage interlaced = image;
    interlaced.interlaced = true;
    interlaced.disposal = 2;
    GifImage local = image;
    local.table = {Red, Green, Blue, WhitePixel};
    local.codeSize = 2;
    local.disposal = 3;
    const GifImage part{.left = 1, .top = 2, .pixels = {1, 2, 3, 3}, .control = false};
    return {
        {.width = 3, .height = 3, .table = Table, .images = {image, local, interlaced, part}},
        {.width = 3, .height = 3, .images = {local, part, interlaced}, .before = GifRepetitions(0)},
        {.width = 0, .height = 0, .table = Table, .images = {part, image}, .before = GifRepetitions(1)},
    };
}

TEST(GifAnimation, CutAtEveryByte) {
    for (GifFile file : SmallFiles()) {
        file.before = Bytes();
        const std::vector<std::byte> bytes = file.Make();
        const std::vector<Pixels> whole = Canvases(file);
        ASSERT_EQ(whole.size(), file.images.size());
        std::size_t framesBefore = 0;
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            SCOPED_TRACE(length);
            const OpenedAnimation opened =
                Open({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)});
            EXPECT_NE(opened.error.has_value(), opened.animation != nullptr);
            if (opened.error) {
                EXPECT_EQ(opened.error, ErrorNumber::InvalidPicture);
                EXPECT_EQ(framesBefore, 0U);
                continue;
            }
            std::vector<Pixels> canvases{Shown(*opened.animation)};
            while (canvases.size() <= whole.size() && opened.animation->Next())
                canvases.push_back(Shown(*opened.animation));
            ASSERT_LE(canvases.size(), whole.size());
            EXPECT_GE(canvases.size(), framesBefore);
            framesBefore = canvases.size();
            canvases.pop_back();  // the last one may be cut
            EXPECT_TRUE(std::ranges::equal(canvases, std::span(whole).first(canvases.size())));
        }
        EXPECT_EQ(framesBefore, whole.size());
    }
}

TEST(GifAnimation, WhatIsLeftOfACutFileRepeats) {
    GifFile file = ThreePlain();
    file.before = GifRepetitions(0);
    std::vector<std::byte> bytes = file.Make();
    bytes.resize(bytes.size() - 10);  // within the third image
    const OpenedAnimation opened = Open(std::move(bytes));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(Shown(*opened.animation), Pixels(4, Red));
        EXPECT_TRUE(opened.animation->Next());
        EXPECT_EQ(Shown(*opened.animation), Pixels(4, Green));
        EXPECT_TRUE(opened.animation->Next());
        EXPECT_EQ(Shown(*opened.animation)[3], Green);
        EXPECT_TRUE(opened.animation->Next());
    }
}

TEST(GifAnimation, FlippedBytes) {
    for (const GifFile& file : SmallFiles()) {
        const std::vector<std::byte> bytes = file.Make();
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            for (const unsigned flip : {0x01U, 0x10U, 0x80U, 0xFFU}) {
                std::vector<std::byte> flipped = bytes;
                flipped[i] ^= static_cast<std::byte>(flip);
                const OpenedAnimation opened = Open(std::move(flipped));
                EXPECT_NE(opened.error.has_value(), opened.animation != nullptr);
                for (int frame = 0; opened.animation && frame < 20 && opened.animation->Next(); ++frame)
                    EXPECT_GE(opened.animation->Stay(), milliseconds(20));
            }
        }
    }
}

TEST(GifAnimation, AFileThatIsEmptiedWhileItPlaysEndsIt) {
    GifFile file = ThreePlain();
    file.before = GifRepetitions(0);
    auto source = std::make_unique<KeptBytes>(file.Make());
    KeptBytes& bytes = *source;
    const OpenedAnimation opened = OpenGifAnimation(std::move(source));
    bytes.Drop();
    int frames = 0;
    while (opened.animation->Next())
        ASSERT_LT(++frames, 10);
    EXPECT_FALSE(opened.animation->Canvas().Empty());
}

}  // namespace
}  // namespace tavrix::test
