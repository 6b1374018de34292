#include "forms_conformance/ConformanceTest.h"

namespace tavrix::conformance {
namespace {

using namespace forms;

class CanvasTest : public ConformanceTest {
  protected:
    /// Every pixel of another colour.
    static Surface Gradient(int width, int height) {
        Surface surface(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                surface.Row(y)[static_cast<std::size_t>(x)] = ColourAt(x, y);
        }
        return surface;
    }
    static Pixel ColourAt(int x, int y) {
        return OpaquePixel(static_cast<unsigned>(x) & 0xFFU, static_cast<unsigned>(y) & 0xFFU,
                           static_cast<unsigned>(x / 256 * 16 + y / 256) & 0xFFU);
    }
    static Pixel Bare(Pixel pixel) { return pixel & 0xFFFFFFU; }

    TestForm& form = app.Load<TestForm>(log);
};

TEST_F(CanvasTest, PixelsAreShownOneToOne) {
    form.picture.AutoSize = true;
    form.picture.Picture = PictureOf(Gradient(150, 90));
    form.Show();
    driver->Settle();
    for (const auto& [x, y] : {std::pair(0, 0), {1, 0}, {77, 31}, {149, 89}}) {
        EXPECT_EQ(Bare(driver->ShownPixel(form.picture, x, y)), Bare(ColourAt(x, y))) << x << "," << y;
    }
}

TEST_F(CanvasTest, APictureScrolledToOddPlacesStaysOnItsPixels) {
    form.picture.AutoSize = true;
    form.picture.Picture = PictureOf(Gradient(600, 500));
    form.Show();
    driver->Settle();
    const float twips = app.Screen().TwipsPerPixelX();
    form.picture.Move(-33 * twips, -101 * twips, form.picture.Width, form.picture.Height);
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 33, 101)), Bare(ColourAt(33, 101)));
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 60, 150)), Bare(ColourAt(60, 150)));
}

TEST_F(CanvasTest, WhatADamagedPictureLacksShowsTheBackground) {
    auto pixels = std::make_shared<ArrivingSurface>(40, 30);
    for (Pixel& pixel : pixels->Canvas().Row(0))
        pixel = ColourAt(5, 6);
    pixels->TellReady(1);
    pixels->Finish(Outcome::Truncated);
    tavrix::Picture picture;
    picture.pixels = pixels;
    form.picture.AutoSize = true;
    form.picture.BackColor = Colour{0x112233};
    form.picture.Picture = picture;
    form.Show();
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 3, 0)), Bare(ColourAt(5, 6)));
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 3, 20)), 0x332211U);
    EXPECT_EQ(form.picture.Image().pixels->Whole().Row(20)[3], OpaquePixel(0x33, 0x22, 0x11));
}

TEST_F(CanvasTest, ManyThousandsOfPixelsHigh) {
    form.picture.AutoSize = true;
    form.picture.Picture = PictureOf(Gradient(40, 60000));
    form.Show();
    driver->Settle();
    const float twips = app.Screen().TwipsPerPixelX();
    form.picture.Move(0, -59950 * twips, form.picture.Width, form.picture.Height);
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 7, 59980)), Bare(ColourAt(7, 59980)));
}

TEST_F(CanvasTest, TheBackgroundShowsThroughAndAround) {
    Surface surface(20, 20);
    surface.Row(5)[5] = OpaquePixel(200, 0, 0);
    Picture picture = PictureOf(std::move(surface));
    picture.transparent = true;
    form.picture.Picture = picture;
    form.picture.BackColor = Colour{0x400000};
    form.Show();
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 5, 5)), 0xC80000U);
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 6, 5)), 0x000040U);
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 30, 30)), 0x000040U);
}

TEST_F(CanvasTest, WhatIsDrawnShowsAfterRefresh) {
    form.Show();
    driver->Settle();
    form.picture.Bitmap().Row(3)[4] = OpaquePixel(1, 2, 3);
    form.picture.Refresh();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 4, 3)), 0x010203U);
    form.picture.Cls();
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 4, 3)), 0xFFFFFFU);
}

TEST_F(CanvasTest, ASnapshotStaysWhatItWas) {
    form.Show();
    form.picture.Bitmap().Row(3)[4] = OpaquePixel(1, 2, 3);
    const Picture before = form.picture.Image();
    EXPECT_EQ(form.picture.Image(), before) << "the same pixels, not a copy";
    form.picture.Bitmap().Row(3)[4] = OpaquePixel(9, 9, 9);
    EXPECT_EQ(before.pixels->Whole().Row(3)[4], OpaquePixel(1, 2, 3));
    EXPECT_EQ(form.picture.Image().pixels->Whole().Row(3)[4], OpaquePixel(9, 9, 9));
    form.picture.Picture = before;
    form.picture.Bitmap().Row(3)[4] = OpaquePixel(7, 7, 7);
    EXPECT_EQ(before.pixels->Whole().Row(3)[4], OpaquePixel(1, 2, 3));
    form.picture.Refresh();
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 4, 3)), 0x070707U);
}

TEST_F(CanvasTest, ANewPictureReplacesTheOld) {
    form.picture.Picture = PictureOf(Gradient(50, 50));
    form.Show();
    driver->Settle();
    Surface grey(50, 50);
    grey.Fill(OpaquePixel(9, 9, 9));
    form.picture.Picture = PictureOf(std::move(grey));
    driver->Settle();
    EXPECT_EQ(Bare(driver->ShownPixel(form.picture, 10, 10)), 0x090909U);
}

}  // namespace
}  // namespace tavrix::conformance
