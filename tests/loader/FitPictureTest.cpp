#include "imaging/loading/FitPicture.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>

#include "codecs/BmpFile.h"
#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "codecs/JpegFile.h"
#include "codecs/PngFile.h"
#include "imaging/graphics/AreaMeans.h"
#include "imaging/graphics/StretchCopy.h"

namespace tavrix::test {
namespace {

TEST(SizeInBox, GoesByTheWidthAndThenByTheHeight) {
    const FitBox box{160, 120};
    EXPECT_EQ(SizeInBox(320, 100, box), (FittedSize{160, 50}));
    EXPECT_EQ(SizeInBox(100, 300, box), (FittedSize{40, 120}));
    EXPECT_EQ(SizeInBox(100, 100, box), (FittedSize{100, 100}));
    EXPECT_EQ(SizeInBox(400, 400, box), (FittedSize{120, 120}));
    EXPECT_EQ(SizeInBox(161, 121, box), (FittedSize{160, 120}));
    EXPECT_EQ(SizeInBox(160, 120, box), (FittedSize{160, 120}));
    EXPECT_EQ(SizeInBox(1'000'000, 3, box), (FittedSize{160, 1}));
    EXPECT_EQ(SizeInBox(3, 1'000'000, box), (FittedSize{1, 120}));
    // 160 / (200 / 31.25) is 25 and a half: to the even number.
    EXPECT_EQ(SizeInBox(640, 102, box), (FittedSize{160, 26}));
}

/// A picture with a bit of everything: slopes, edges and noise.
std::array<unsigned, 3> ColourAt(int x, int y) {
    unsigned noise = static_cast<unsigned>(x) * 2654435761U ^ static_cast<unsigned>(y) * 40503U;
    noise = (noise ^ (noise >> 13U)) * 1274126177U;
    const unsigned rough = (noise >> 24U) / 4;
    const auto slope = static_cast<unsigned>(x / 5 + y / 7) & 0x7FU;
    return {slope + rough, ((x / 37 + y / 23) % 2 == 0 ? 150U : 40U) + rough, 255U - slope - rough};
}

JpegFile Photo(int width, int height) {
    JpegFile file;
    file.width = width;
    file.height = height;
    file.quality = 90;
    file.subsampled = true;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (const unsigned part : ColourAt(x, y))
                file.parts.push_back(static_cast<std::uint8_t>(part));
    return file;
}

std::vector<std::byte> Bitmap(int width, int height) {
    BmpFile file{.width = width, .height = height};
    const int stride = (3 * width + 3) / 4 * 4;
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x) {
            const auto [red, green, blue] = ColourAt(x, y);
            file.pixels.U8({blue, green, red});
        }
        file.pixels.Zeros(static_cast<std::size_t>(stride - 3 * width));
    }
    return file.Make();
}

std::vector<std::byte> Png(int width, int height, bool interlaced) {
    PngFile file{.width = width, .height = height, .colourType = 2, .interlaced = interlaced};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (const unsigned part : ColourAt(x, y))
                file.rows.push_back(static_cast<std::uint8_t>(part));
    return file.Make();
}

std::vector<std::byte> Gif(int width, int height) {
    GifFile file{.width = width, .height = height};
    GifImage image{.width = width, .height = height};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.pixels.push_back(ColourAt(x, y)[1]);
    for (unsigned i = 0; i < 256; ++i)
        image.table.push_back(OpaquePixel(i, 255 - i, i / 2));
    file.images.push_back(std::move(image));
    return file.Make();
}

FittedPicture Fitted(const std::vector<std::byte>& file, const FitBox& box) {
    MemorySource source(file);
    const DecoderEntry* decoder = DecoderFor(source);
    DecodedFit result = DecodeToFit(source, *decoder, box);
    EXPECT_FALSE(result.error);
    return std::move(result.fitted);
}

struct Mean {
    std::array<double, 3> parts{};
};

/// Of a part of a surface; borders may lie within pixels.
Mean MeanOf(const Surface& surface, double left, double top, double right, double bottom) {
    Mean mean;
    double weight = 0;
    for (int y = static_cast<int>(top); y < std::min(surface.Height(), static_cast<int>(std::ceil(bottom)));
         ++y) {
        const double high = std::min(bottom, y + 1.0) - std::max(top, double(y));
        for (int x = static_cast<int>(left);
             x < std::min(surface.Width(), static_cast<int>(std::ceil(right))); ++x) {
            const double area = high * (std::min(right, x + 1.0) - std::max(left, double(x)));
            const Pixel pixel = surface.Row(y)[static_cast<std::size_t>(x)];
            for (unsigned part = 0; part < 3; ++part)
                mean.parts[part] += area * ((pixel >> (8 * part)) & 0xFFU);
            weight += area;
        }
    }
    for (double& part : mean.parts)
        part /= weight;
    return mean;
}

/// Each block of eight by eight pixels has the mean of what it shows of the whole.
void ExpectMeansOfWhole(const FittedPicture& fitted, const std::vector<std::byte>& file) {
    const DecodedPicture decoded = Decode(file);
    const Surface& whole = decoded.picture.pixels->Whole();
    const Surface& small = fitted.picture.pixels->Whole();
    EXPECT_EQ(fitted.width, whole.Width());
    EXPECT_EQ(fitted.height, whole.Height());
    const double x = double(whole.Width()) / small.Width();
    const double y = double(whole.Height()) / small.Height();
    double worst = 0;
    for (int top = 0; top < small.Height(); top += 8) {
        for (int left = 0; left < small.Width(); left += 8) {
            const int right = std::min(left + 8, small.Width());
            const int bottom = std::min(top + 8, small.Height());
            const Mean is = MeanOf(small, left, top, right, bottom);
            const Mean was = MeanOf(whole, left * x, top * y, right * x, bottom * y);
            for (unsigned part = 0; part < 3; ++part)
                worst = std::max(worst, std::abs(is.parts[part] - was.parts[part]));
        }
    }
    EXPECT_LE(worst, 8);
}

TEST(AreaMeans, PixelsOnABorderCountByTheirShare) {
    Surface three(3, 1);
    three.Row(0)[0] = OpaquePixel(30, 0, 0);
    three.Row(0)[1] = OpaquePixel(90, 0, 0);
    three.Row(0)[2] = OpaquePixel(0, 60, 0);
    AreaMeans means(3, 1, 2, 1);
    means.Take(three, 1);
    EXPECT_EQ(means.Copy().Row(0)[0], OpaquePixel(50, 0, 0));
    EXPECT_EQ(means.Copy().Row(0)[1], OpaquePixel(30, 40, 0));

    // Half of what falls on the second is seen through: its colour counts half.
    Surface upright(1, 3);
    upright.Row(0)[0] = OpaquePixel(9, 9, 9);
    upright.Row(1)[0] = 0x80FF0000U;
    upright.Row(2)[0] = 0;
    AreaMeans low(1, 3, 1, 2);
    low.Take(upright, 2);
    EXPECT_EQ(low.Copy().Row(1)[0], 0U) << "still to come";
    low.Take(upright, 3);
    EXPECT_EQ(low.Copy().Row(0)[0] >> 24U, 213U);
    EXPECT_EQ(low.Copy().Row(1)[0], 0x2BFF0000U);
}

TEST(AreaMeans, OfTheSameSizeIsTheSame) {
    Surface picture(7, 5);
    for (int i = 0; i < 35; ++i)
        picture.Row(i / 7)[static_cast<std::size_t>(i % 7)] =
            static_cast<Pixel>(i) * 0x01030507U | 0xFF000000U;
    AreaMeans means(7, 5, 7, 5);
    means.Take(picture, 5);
    EXPECT_TRUE(std::ranges::equal(means.Copy().Pixels(), picture.Pixels()));
}

TEST(FitPicture, UpToTwiceTheSizeIsTheExactStretchCopy) {
    const FitBox box{160, 120};
    for (const std::vector<std::byte>& file :
         {Bitmap(161, 121), Bitmap(300, 200), Bitmap(320, 240), Photo(320, 240).Make(), Gif(200, 240),
          Png(311, 97, true), Bitmap(160, 120), Bitmap(40, 30)}) {
        const DecodedPicture decoded = Decode(file);
        const Surface& whole = decoded.picture.pixels->Whole();
        SCOPED_TRACE(decoded.picture.format + " " + std::to_string(whole.Width()));
        for (const int trimmed : {0, 1}) {
            const FittedPicture fitted = Fitted(file, {box.width, box.height, trimmed});
            EXPECT_EQ(fitted.width, whole.Width());
            EXPECT_EQ(fitted.height, whole.Height());
            const Surface& small = fitted.picture.pixels->Whole();
            const FittedSize size = SizeInBox(whole.Width(), whole.Height(), box);
            ASSERT_EQ(small.Width(), size.width);
            ASSERT_EQ(small.Height(), size.height);
            Surface expected(size.width, size.height);
            StretchCopy(expected, {0, 0, size.width, size.height}, whole,
                        {0, 0, whole.Width() - trimmed, whole.Height() - trimmed});
            EXPECT_TRUE(std::ranges::equal(small.Pixels(), expected.Pixels()));
        }
    }
}

TEST(FitPicture, AboveThatItIsTheMeansOfTheWhole) {
    const FitBox box{160, 120};
    for (const auto& [width, height] : {std::pair{321, 241},
                                        {640, 480},
                                        {641, 483},
                                        {900, 700},
                                        {1300, 990},
                                        {2600, 1000},
                                        {333, 2500},
                                        {2801, 2100}}) {
        SCOPED_TRACE(width);
        const std::vector<std::byte> bitmap = Bitmap(width, height);
        ExpectMeansOfWhole(Fitted(bitmap, box), bitmap);
        JpegFile photo = Photo(width, height);
        const std::vector<std::byte> baseline = photo.Make();
        ExpectMeansOfWhole(Fitted(baseline, box), baseline);
        if (width > 1000) continue;
        photo.progressive = true;
        for (const std::vector<std::byte>& file :
             {photo.Make(), Gif(width, height), Png(width, height, true)})
            ExpectMeansOfWhole(Fitted(file, box), file);
    }
}

TEST(FitPicture, AnOrientationIsApplied) {
    for (unsigned orientation = 1; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        JpegFile photo = Photo(1001, 803);
        photo.exif = orientation;
        const FittedPicture fitted = Fitted(photo.Make(), {160, 120});
        EXPECT_EQ(fitted.width, orientation >= 5 ? 803 : 1001);
        ExpectMeansOfWhole(fitted, photo.Make());
    }
}

TEST(FitPicture, OfAPictureThatIsThereIsTheSame) {
    for (const auto& [width, height] : {std::pair{300, 200}, {700, 500}}) {
        const std::vector<std::byte> file = Bitmap(width, height);
        const FittedPicture decoded = Fitted(file, {160, 120, 1});
        const FittedPicture made = FitPicture(Decode(file).picture, {160, 120, 1});
        EXPECT_EQ(made.width, decoded.width);
        EXPECT_TRUE(std::ranges::equal(made.picture.pixels->Whole().Pixels(),
                                       decoded.picture.pixels->Whole().Pixels()));
    }
}

TEST(FitPicture, ACutFileSaysSo) {
    std::vector<std::byte> file = Photo(1000, 800).Make();
    file.resize(file.size() / 2);
    const FittedPicture fitted = Fitted(file, {160, 120});
    EXPECT_EQ(fitted.picture.pixels->Ending(), Outcome::Truncated);
    EXPECT_EQ(fitted.picture.pixels->Whole().Row(119)[80], 0U) << "nothing below";
    EXPECT_NE(fitted.picture.pixels->Whole().Row(5)[80], 0U);
}

/// All memory for data.
std::size_t Mapped() {
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0, resident = 0, shared = 0, text = 0, libraries = 0, data = 0;
    file >> all >> resident >> shared >> text >> libraries >> data;
    return data * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

class WatchedSource final : public ByteSource {
  public:
    explicit WatchedSource(std::span<const std::byte> bytes) : bytes_(bytes) {}
    [[nodiscard]] std::uint64_t Size() const override { return bytes_.Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        most = std::max(most, Mapped());
        return bytes_.ReadAt(offset, into);
    }
    std::size_t most = 0;

  private:
    MemorySource bytes_;
};

TEST(FitPicture, HoldsOnePictureAtMostAndAPhotoMuchLess) {
    const std::size_t whole = std::size_t{4} * 3000 * 2000;
    const auto heldOf = [](const std::vector<std::byte>& file) {
        WatchedSource source(file);
        const std::size_t before = Mapped();
        EXPECT_FALSE(DecodeToFit(source, *DecoderFor(source), {160, 120}).error);
        return source.most - before;
    };
    if (Mapped() == 0) GTEST_SKIP() << "the system does not tell";
    constexpr std::size_t Beside = 2U << 20U;
    EXPECT_LE(heldOf(Bitmap(3000, 2000)), whole + Beside);
    EXPECT_LE(heldOf(Photo(3000, 2000).Make()), whole / 4 + Beside);
}

/// Wants no more after some questions.
class ImpatientSink final : public PictureSink {
  public:
    [[nodiscard]] int Reduction(const PictureInfo&) override { return 8; }
    Surface* Begin(const PictureInfo& info) override {
        surface_ = Surface(info.width, info.height);
        return &surface_;
    }
    void RowsReady(int count) override { rows = count; }
    [[nodiscard]] bool Cancelled() const override {
        ++questions;
        return questions > 600;
    }
    mutable int questions = 0;
    int rows = 0;

  private:
    Surface surface_;
};

/// A hundred megapixels have 1250 rows of blocks, between which is asked whether to go on.
TEST(FitPicture, AHundredMegapixelsStopWithinARowOfBlocks) {
    JpegFile file;
    file.width = file.height = 10'000;
    file.components = 1;
    file.quality = 50;
    file.parts.resize(std::size_t{10'000} * 10'000);
    for (std::size_t i = 0; i < file.parts.size(); i += 64)
        file.parts[i] = static_cast<std::uint8_t>(i >> 10U);
    for (const bool progressive : {false, true}) {
        SCOPED_TRACE(progressive);
        file.progressive = progressive;
        const std::vector<std::byte> bytes = file.Make();
        MemorySource source(bytes);
        ImpatientSink sink;
        const DecodeStatus status = DecoderFor(source)->Decode(source, sink);
        EXPECT_EQ(status.reason, "cancelled");
        EXPECT_LE(sink.questions, 603);
        EXPECT_LT(sink.rows, 700);
    }
}

}  // namespace
}  // namespace tavrix::test
