#include "backends/qt/clipboard/QtClipboard.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QUrl>
#include <map>
#include <memory>
#include <utility>

#include "imaging/codecs/BmpWriter.h"
#include "support/ErrorOfCall.h"

namespace tavrix::qt {
namespace {

/// A picture no two pixels of which are alike.
Surface Different(int width, int height) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            surface.Row(y)[static_cast<std::size_t>(x)] =
                OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y), 77);
    }
    return surface;
}

QImage ImageOf(const Surface& surface) {
    QImage image(surface.Width(), surface.Height(), QImage::Format_ARGB32);
    for (int y = 0; y < surface.Height(); ++y) {
        for (int x = 0; x < surface.Width(); ++x)
            image.setPixel(x, y, surface.Row(y)[static_cast<std::size_t>(x)]);
    }
    return image;
}

QByteArray Encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

void ExpectPixels(const Picture& picture, const Surface& expected) {
    ASSERT_EQ(picture.Width(), expected.Width());
    ASSERT_EQ(picture.Height(), expected.Height());
    EXPECT_TRUE(std::ranges::equal(picture.pixels->Whole().Pixels(), expected.Pixels()));
    EXPECT_FALSE(picture.transparent);
}

/// Another program's offer, which notes what is asked of it.
class Offer final : public QMimeData {
  public:
    explicit Offer(std::map<QString, QByteArray> kinds) : kinds_(std::move(kinds)) {}

    [[nodiscard]] QStringList formats() const override {
        QStringList names;
        for (const auto& [name, bytes] : kinds_)
            names.append(name);
        return names;
    }
    mutable QStringList asked;

  protected:
    QVariant retrieveData(const QString& type, QMetaType) const override {
        asked.append(type);
        const auto found = kinds_.find(type);
        return found == kinds_.end() ? QVariant() : QVariant(found->second);
    }

  private:
    std::map<QString, QByteArray> kinds_;
};

class QtClipboardTest : public ::testing::Test {
  protected:
    ~QtClipboardTest() override { QGuiApplication::clipboard()->clear(); }

    /// Another program takes the clipboard; its offer, for as long as it has it.
    static const Offer& Put(std::map<QString, QByteArray> kinds) {
        auto offer = std::make_unique<Offer>(std::move(kinds));
        const Offer& kept = *offer;
        QGuiApplication::clipboard()->setMimeData(offer.release());
        return kept;
    }
    int ErrorOfGet() {
        return ErrorOfCall([this] { static_cast<void>(clipboard.Get()); });
    }

    QtClipboard clipboard;
    const Surface pixels = Different(31, 17);
};

TEST_F(QtClipboardTest, EmptyItHoldsNoPicture) {
    clipboard.Clear();
    EXPECT_FALSE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfGet(), 481);
}

TEST_F(QtClipboardTest, OurOwnPictureComesBackWithoutAnEncoding) {
    const Picture picture = PictureOf(pixels.Clone());
    clipboard.Set(picture);
    EXPECT_TRUE(clipboard.Has(ClipboardFormat::Bitmap));
    EXPECT_TRUE(clipboard.Has(ClipboardFormat::DeviceIndependentBitmap));
    EXPECT_FALSE(clipboard.Has(ClipboardFormat::Metafile));
    EXPECT_EQ(clipboard.Get(), picture) << "the same pixels in memory";
    clipboard.Clear();
    EXPECT_FALSE(HoldsPicture(clipboard));
}

TEST_F(QtClipboardTest, OthersGetItAsPngAndAsBitmap) {
    clipboard.Set(PictureOf(pixels.Clone()));
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->formats(), (QStringList{"image/png", "image/bmp"}));
    for (const QString& type : data->formats()) {
        const QImage image = QImage::fromData(data->data(type));
        ASSERT_FALSE(image.isNull()) << type.toStdString();
        EXPECT_EQ(image.convertToFormat(QImage::Format_ARGB32), ImageOf(pixels)) << type.toStdString();
    }
    EXPECT_TRUE(data->data("text/plain").isEmpty());
}

TEST_F(QtClipboardTest, ALargePictureIsNotPacked) {
    Surface large(2100, 2000);
    large.Fill(OpaquePixel(1, 2, 3));
    clipboard.Set(PictureOf(std::move(large)));
    const QByteArray bytes = QGuiApplication::clipboard()->mimeData()->data("image/png");
    EXPECT_GT(bytes.size(), 2100 * 2000 * 3);
    EXPECT_EQ(QImage::fromData(bytes).pixel(2099, 1999), OpaquePixel(1, 2, 3));
}

TEST_F(QtClipboardTest, WhatIsSetIsOpaqueForAll) {
    Surface clear(1, 2);
    clear.Row(0)[0] = 0x80000000U;
    Picture picture = PictureOf(std::move(clear));
    picture.transparent = true;
    clipboard.Set(picture);
    Surface expected(1, 2);
    expected.Row(0)[0] = OpaquePixel(127, 127, 127);
    expected.Row(1)[0] = OpaquePixel(255, 255, 255);
    ExpectPixels(clipboard.Get(), expected);
    const QImage image = QImage::fromData(QGuiApplication::clipboard()->mimeData()->data("image/png"));
    EXPECT_EQ(image.pixel(0, 0), OpaquePixel(127, 127, 127));
}

TEST_F(QtClipboardTest, NoPictureIsNotSet) {
    clipboard.Set(PictureOf(pixels.Clone()));
    EXPECT_EQ(ErrorOfCall([this] { clipboard.Set({}); }), 481);
    EXPECT_TRUE(HoldsPicture(clipboard));
}

class EachKind : public QtClipboardTest,
                 public ::testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(EachKind, IsDecoded) {
    const auto& [type, format] = GetParam();
    Put({{type, Encoded(ImageOf(pixels).convertToFormat(QImage::Format_RGB32), format)}});
    EXPECT_TRUE(clipboard.Has(ClipboardFormat::Bitmap));
    EXPECT_TRUE(HoldsPicture(clipboard));
    ExpectPixels(clipboard.Get(), pixels);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EachKind,
                         ::testing::Values(std::pair{"image/png", "PNG"}, std::pair{"image/bmp", "BMP"},
                                           std::pair{"image/x-bmp", "BMP"},
                                           std::pair{"image/x-MS-bmp", "BMP"},
                                           std::pair{"image/x-windows-bmp", "BMP"},
                                           // The content counts, not the name.
                                           std::pair{"image/bmp", "PNG"}, std::pair{"image/png", "BMP"}));

TEST_F(QtClipboardTest, APhotoIsDecoded) {
    Put({{"image/jpeg", Encoded(ImageOf(pixels).convertToFormat(QImage::Format_RGB32), "JPG")}});
    const Picture picture = clipboard.Get();
    EXPECT_EQ(picture.format, "jpg");
    EXPECT_EQ(picture.Width(), 31);
}

TEST_F(QtClipboardTest, WhatIsTransparentLiesOverWhite) {
    QImage image = ImageOf(pixels);
    image.setPixel(3, 4, 0x00123456U);
    image.setPixel(5, 6, 0x80000000U);
    Surface expected = pixels.Clone();
    expected.Row(4)[3] = OpaquePixel(255, 255, 255);
    expected.Row(6)[5] = OpaquePixel(127, 127, 127);
    Put({{"image/png", Encoded(image, "PNG")}});
    ExpectPixels(clipboard.Get(), expected);
}

TEST_F(QtClipboardTest, TheKindThatKeepsMostIsTaken) {
    const Surface other = Different(3, 3);
    const Offer& offer = Put({{"image/bmp", Encoded(ImageOf(other), "BMP")},
                              {"image/jpeg", Encoded(ImageOf(other), "JPG")},
                              {"image/png", Encoded(ImageOf(pixels), "PNG")},
                              {"text/html", "<img>"}});
    ExpectPixels(clipboard.Get(), pixels);
    EXPECT_EQ(offer.asked, QStringList{"image/png"});
}

TEST_F(QtClipboardTest, ABrokenKindIsPassedOverForAnother) {
    const QByteArray png = Encoded(ImageOf(pixels), "PNG");
    for (const QByteArray& broken : {QByteArray("no picture"), QByteArray(), png.left(png.size() / 2)}) {
        Put({{"image/png", broken},
             {"image/bmp", Encoded(ImageOf(pixels).convertToFormat(QImage::Format_RGB32), "BMP")}});
        ExpectPixels(clipboard.Get(), pixels);
    }
}

TEST_F(QtClipboardTest, APartOfAPictureIsBetterThanNothing) {
    const QByteArray bmp = Encoded(ImageOf(pixels).convertToFormat(QImage::Format_RGB32), "BMP");
    Put({{"image/bmp", bmp.left(bmp.size() - 96 * 5)}});
    const Picture picture = clipboard.Get();
    ASSERT_EQ(picture.Height(), 17);
    const Surface& whole = picture.pixels->Whole();
    EXPECT_EQ(whole.Row(4)[0], OpaquePixel(255, 255, 255)) << "missing, bitmaps begin at the bottom";
    EXPECT_TRUE(std::ranges::equal(whole.Row(5), pixels.Row(5)));
}

TEST_F(QtClipboardTest, DataThatAreNoPictureAreToldApartFromNoAnswer) {
    Put({{"image/png", "no picture"}});
    EXPECT_TRUE(HoldsPicture(clipboard)) << "as the other program says";
    EXPECT_EQ(ErrorOfGet(), 481);
    Put({{"image/png", ""}, {"image/bmp", ""}});
    EXPECT_EQ(ErrorOfGet(), 521);
}

TEST_F(QtClipboardTest, KindsThatOnlyTheToolkitKnowsAreTakenToo) {
    auto offer = std::make_unique<QMimeData>();
    offer->setImageData(ImageOf(pixels));
    QGuiApplication::clipboard()->setMimeData(offer.release());
    EXPECT_TRUE(HoldsPicture(clipboard));
    ExpectPixels(clipboard.Get(), pixels);

    Put({{"application/x-qt-image", "no picture"}});
    EXPECT_TRUE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfGet(), 481);
}

TEST_F(QtClipboardTest, APictureAboveTheLimitsIsRefused) {
    // The header of a bitmap of 2^24 by 2^24 pixels.
    Surface dot(1, 1);
    QByteArray bytes;
    WriteBmp(dot, [&bytes](std::span<const std::byte> part) {
        bytes.append(reinterpret_cast<const char*>(part.data()), static_cast<qsizetype>(part.size()));
    });
    bytes[21] = bytes[25] = 1;
    bytes[18] = bytes[22] = 0;
    Put({{"image/bmp", bytes}});
    EXPECT_EQ(ErrorOfGet(), 7);
}

TEST_F(QtClipboardTest, TextsAndFilesAreNoPictures) {
    Put({{"text/plain", "a.bmp"}});
    EXPECT_FALSE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfGet(), 481);
    Put({{"text/uri-list", "file:///tmp/a.bmp\r\n"},
         {"x-special/gnome-copied-files", "copy\nfile:///tmp/a.bmp"}});
    EXPECT_FALSE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfGet(), 481);
}

TEST_F(QtClipboardTest, AMetafileCountsOnlyIfItIsRecognised) {
    Put({{"image/x-emf", "neither this"}, {"image/x-wmf", "nor that"}});
    EXPECT_FALSE(clipboard.Has(ClipboardFormat::Metafile));
    EXPECT_FALSE(HoldsPicture(clipboard));
    EXPECT_EQ(ErrorOfGet(), 481);
    // Whatever a decoder takes is good, as it goes by the content.
    Put({{"image/x-wmf", Encoded(ImageOf(pixels).convertToFormat(QImage::Format_RGB32), "BMP")}});
    EXPECT_TRUE(clipboard.Has(ClipboardFormat::Metafile));
    EXPECT_FALSE(clipboard.Has(ClipboardFormat::Bitmap));
    EXPECT_FALSE(clipboard.Has(ClipboardFormat::DeviceIndependentBitmap));
    ExpectPixels(clipboard.Get(), pixels);
}

}  // namespace
}  // namespace tavrix::qt

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
