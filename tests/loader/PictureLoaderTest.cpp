#include "imaging/loading/PictureLoader.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "backends/linux/FileSource.h"
#include "base/RuntimeError.h"
#include "codecs/BmpFile.h"
#include "codecs/JpegFile.h"
#include "imaging/codecs/BmpWriter.h"
#include "support/IoCount.h"

namespace tavrix::test {
namespace {

namespace fs = std::filesystem;

class PictureLoaderTest : public testing::Test {
  protected:
    PictureLoaderTest() {
        std::string name = (fs::temp_directory_path() / "loader.XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        folder_ = name;
    }
    ~PictureLoaderTest() override {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    /// P:\name is the file `name` of the temporary folder.
    [[nodiscard]] PictureLoader MakeLoader() const {
        return PictureLoader([this](const std::string& path) {
            if (!path.starts_with("P:\\")) throw RuntimeError(ErrorNumber::DeviceUnavailable);
            std::string name = path.substr(3);
            std::ranges::replace(name, '\\', '/');
            return OpenFileSource(Host(name));
        });
    }
    [[nodiscard]] std::string Host(const std::string& name) const { return (folder_ / name).string(); }

    void Write(const std::string& name, std::span<const std::byte> bytes) const {
        std::ofstream file(Host(name), std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    /// A picture far over a megapixel whose rows differ.
    void WriteLarge(const std::string& name, int seed = 0) const {
        constexpr int Width = 1600;
        constexpr int Height = 1200;
        Surface surface(Width, Height);
        for (int y = 0; y < Height; ++y) {
            std::ranges::fill(surface.Row(y), OpaquePixel(static_cast<unsigned>(y + seed) & 0xFFU, 0, 7));
        }
        std::ofstream file(Host(name), std::ios::binary | std::ios::trunc);
        WriteBmp(surface, [&](std::span<const std::byte> bytes) {
            file.write(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<std::streamsize>(bytes.size()));
        });
    }

    fs::path folder_;
};

ErrorNumber ErrorOf(PictureLoader& loader, const std::string& path) {
    try {
        static_cast<void>(loader.Load(path));
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{0};
}

std::vector<std::byte> SmallBitmap() {
    return BmpFile{.width = 1, .height = 1, .pixels = Bytes().U8({0, 0, 255, 0})}.Make();
}

TEST_F(PictureLoaderTest, SmallPicture) {
    Write("a.anything", SmallBitmap());
    PictureLoader loader = MakeLoader();
    const Picture picture = loader.Load("P:\\a.anything");
    EXPECT_EQ(picture.format, "bmp");
    EXPECT_EQ(picture.Width(), 1);
    EXPECT_EQ(picture.pixels->RowsReady(), 1);
    EXPECT_EQ(picture.pixels->Ending(), Outcome::Complete);
    EXPECT_EQ(picture.pixels->Whole().Row(0)[0], 0xFFFF0000U);
}

TEST_F(PictureLoaderTest, Errors) {
    fs::create_directory(folder_ / "folder");
    Write("empty.bmp", {});
    Write("text.bmp", Bytes().Text("no picture at all").Get());
    Write("cut.jpg", Bytes().U8({0xFF, 0xD8, 0xFF, 0xE0}).Get());
    Write("huge.bmp", BmpFile{.width = 100'000, .height = 100'000, .pixels = Bytes().Zeros(100)}.Make());
    Write("file", SmallBitmap());
    PictureLoader loader = MakeLoader();
    EXPECT_EQ(ErrorOf(loader, "Q:\\a.bmp"), ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(ErrorOf(loader, "P:\\none.bmp"), ErrorNumber::FileNotFound);
    EXPECT_EQ(ErrorOf(loader, "P:\\none\\a.bmp"), ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOf(loader, "P:\\file\\a.bmp"), ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOf(loader, "P:\\folder"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(ErrorOf(loader, "P:\\empty.bmp"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(ErrorOf(loader, "P:\\text.bmp"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(ErrorOf(loader, "P:\\cut.jpg"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(ErrorOf(loader, "P:\\huge.bmp"), ErrorNumber::OutOfMemory);
    EXPECT_EQ(ErrorOf(loader, "P:\\" + std::string(5000, 'a')), ErrorNumber::FileNotFound);
}

TEST_F(PictureLoaderTest, ProtectedFile) {
    if (geteuid() == 0) GTEST_SKIP() << "nothing is protected from root";
    Write("a.bmp", SmallBitmap());
    chmod(Host("a.bmp").c_str(), 0);
    PictureLoader loader = MakeLoader();
    EXPECT_EQ(ErrorOf(loader, "P:\\a.bmp"), ErrorNumber::PermissionDenied);
}

TEST_F(PictureLoaderTest, NothingButOrdinaryFilesIsOpened) {
    ASSERT_EQ(mkfifo(Host("pipe").c_str(), 0600), 0);
    fs::create_symlink("/dev/zero", folder_ / "zero");
    const int socketDescriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    Host("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(socketDescriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    PictureLoader loader = MakeLoader();
    for (const char* name : {"pipe", "zero", "socket"}) {
        EXPECT_EQ(ErrorOf(loader, std::string("P:\\") + name), ErrorNumber::PathFileAccessError) << name;
    }
    close(socketDescriptor);
}

TEST_F(PictureLoaderTest, LargePictureArrives) {
    WriteLarge("large.bmp");
    PictureLoader loader = MakeLoader();
    const Picture picture = loader.Load("P:\\large.bmp");
    EXPECT_GT(picture.pixels->RowsReady(), 0);
    EXPECT_EQ(picture.pixels->Rows(1).Row(0)[0], OpaquePixel(0, 0, 7));
    EXPECT_EQ(picture.pixels->Ending(), Outcome::Complete);
    const Surface& whole = picture.pixels->Whole();
    for (int y = 0; y < whole.Height(); ++y) {
        ASSERT_EQ(whole.Row(y)[1599], OpaquePixel(static_cast<unsigned>(y) & 0xFFU, 0, 7));
    }
}

TEST_F(PictureLoaderTest, LargePictureCutOff) {
    WriteLarge("large.bmp");
    fs::resize_file(folder_ / "large.bmp", 54 + 4800 * 100);
    PictureLoader loader = MakeLoader();
    const Picture picture = loader.Load("P:\\large.bmp");
    EXPECT_EQ(picture.pixels->Ending(), Outcome::Truncated);
    EXPECT_EQ(picture.pixels->Whole().Row(1199)[0], OpaquePixel(1199 & 0xFF, 0, 7));
    EXPECT_EQ(picture.pixels->Whole().Row(0)[0], 0U);
}

TEST_F(PictureLoaderTest, LargePictureWithoutARow) {
    JpegFile file;
    file.width = 1200;
    file.height = 1200;
    file.parts.assign(3 * 1200 * 1200, 99);
    std::vector<std::byte> bytes = file.Make();
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {  // a Huffman table that makes no sense
        if (bytes[i] == std::byte{0xFF} && bytes[i + 1] == std::byte{0xC4}) bytes[i + 5] = std::byte{0xFF};
    }
    Write("a.jpg", bytes);
    PictureLoader loader = MakeLoader();
    EXPECT_EQ(ErrorOf(loader, "P:\\a.jpg"), ErrorNumber::InvalidPicture);
}

std::ptrdiff_t ThreadCount() {
    return std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator());
}

/// Waits until no more threads run than `before`.
void WaitForWorkers(std::ptrdiff_t before) {
    while (ThreadCount() > before)
        std::this_thread::yield();
}

TEST_F(PictureLoaderTest, AnExpectedPictureIsTakenOnce) {
    WriteLarge("large.bmp");
    const auto written = fs::last_write_time(folder_ / "large.bmp");
    const std::ptrdiff_t threads = ThreadCount();
    PictureLoader loader = MakeLoader();
    loader.Expect("P:\\large.bmp");
    WaitForWorkers(threads);
    // Other bytes in a file that looks the same: the former ones show that it was not read again.
    WriteLarge("large.bmp", 50);
    fs::last_write_time(folder_ / "large.bmp", written);
    EXPECT_EQ(loader.Load("P:\\large.bmp").pixels->Whole().Row(0)[0], OpaquePixel(0, 0, 7));
    EXPECT_EQ(loader.Load("P:\\large.bmp").pixels->Whole().Row(0)[0], OpaquePixel(50, 0, 7));
}

TEST_F(PictureLoaderTest, OneWhoseFileHasChangedIsDropped) {
    WriteLarge("large.bmp");
    PictureLoader loader = MakeLoader();
    loader.Expect("P:\\large.bmp");
    fs::remove(folder_ / "large.bmp");
    WriteLarge("large.bmp", 50);
    const Picture picture = loader.Load("P:\\large.bmp");
    EXPECT_EQ(picture.pixels->Whole().Row(0)[0], OpaquePixel(50, 0, 7));
}

TEST_F(PictureLoaderTest, ExpectingFailsInSilence) {
    Write("text.bmp", Bytes().Text("no picture at all").Get());
    PictureLoader loader = MakeLoader();
    loader.Expect("P:\\none.bmp");
    loader.Expect("P:\\text.bmp");
    loader.Expect("P:\\");
    loader.Expect("Q:\\a.bmp");
    EXPECT_EQ(ErrorOf(loader, "P:\\none.bmp"), ErrorNumber::FileNotFound);
    EXPECT_EQ(ErrorOf(loader, "P:\\text.bmp"), ErrorNumber::InvalidPicture);
}

TEST_F(PictureLoaderTest, ExpectingOneOverTheLimits) {
    Write("huge.bmp", BmpFile{.width = 100'000, .height = 100'000, .pixels = Bytes().Zeros(100)}.Make());
    PictureLoader loader = MakeLoader();
    loader.Expect("P:\\huge.bmp");
    EXPECT_EQ(ErrorOf(loader, "P:\\huge.bmp"), ErrorNumber::OutOfMemory);
}

TEST_F(PictureLoaderTest, SmallPicturesCanBeExpectedToo) {
    Write("a.bmp", SmallBitmap());
    PictureLoader loader = MakeLoader();
    loader.Expect("P:\\a.bmp");
    EXPECT_EQ(loader.Load("P:\\a.bmp").pixels->Whole().Row(0)[0], 0xFFFF0000U);
}

/// 64 megapixels of black, without blocks on the disk.
std::vector<std::byte> VastHeader() {
    return BmpFile{.width = 8192, .height = 8192}.Make();
}
constexpr std::uintmax_t VastSize = 54 + std::uintmax_t{3} * 8192 * 8192;

TEST_F(PictureLoaderTest, WorkersStopWhenNobodyHoldsThePicture) {
    Write("vast.bmp", VastHeader());
    fs::resize_file(folder_ / "vast.bmp", VastSize);
    if (!IoCount::Now().Known()) GTEST_SKIP() << "the system does not count what is read";
    const std::ptrdiff_t threads = ThreadCount();
    PictureLoader loader = MakeLoader();
    const auto readFor = [&](bool hold) {
        const IoCount before = IoCount::Now();
        Picture picture = loader.Load("P:\\vast.bmp");
        if (!hold) picture = Picture();
        WaitForWorkers(threads);
        return (IoCount::Now() - before).read;
    };
    EXPECT_GE(readFor(true), VastSize);
    // On a busy machine the worker may be through before this thread gets to let go; not every time, though.
    bool stopped = false;
    for (int attempt = 0; attempt < 100 && !stopped; ++attempt)
        stopped = readFor(false) < VastSize / 2;
    EXPECT_TRUE(stopped);
}

TEST_F(PictureLoaderTest, EndOfTheLoaderStopsItsWorkers) {
    Write("vast.bmp", VastHeader());
    fs::resize_file(folder_ / "vast.bmp", VastSize);
    Picture picture;
    {
        PictureLoader loader = MakeLoader();
        picture = loader.Load("P:\\vast.bmp");
    }
    EXPECT_EQ(picture.pixels->Ending(), Outcome::Truncated);
    EXPECT_EQ(picture.pixels->Whole().Row(0)[0], OpaquePixel(0, 0, 0));
    EXPECT_EQ(picture.pixels->Whole().Row(8191)[0], 0U);
}

TEST_F(PictureLoaderTest, OneThatNobodyTakesIsStopped) {
    Write("vast.bmp", VastHeader());
    fs::resize_file(folder_ / "vast.bmp", VastSize);
    WriteLarge("large.bmp");
    PictureLoader loader = MakeLoader();
    for (int i = 0; i < 5; ++i)
        loader.Expect("P:\\vast.bmp");
    EXPECT_EQ(loader.Load("P:\\large.bmp").pixels->Ending(), Outcome::Complete);
}

TEST_F(PictureLoaderTest, PicturesOutliveTheLoader) {
    WriteLarge("large.bmp");
    Picture picture;
    {
        PictureLoader loader = MakeLoader();
        loader.Expect("P:\\large.bmp");
        picture = loader.Load("P:\\large.bmp");
    }
    // Whether the worker was through or was stopped, nobody waits for ever.
    EXPECT_NE(picture.pixels->Ending(), Outcome::Corrupt);
    EXPECT_EQ(picture.pixels->Whole().Height(), 1200);
}

TEST_F(PictureLoaderTest, ManyLoadsAndExpectations) {
    WriteLarge("a.bmp");
    WriteLarge("b.bmp", 1);
    PictureLoader loader = MakeLoader();
    for (int i = 0; i < 30; ++i) {
        loader.Expect(i % 2 == 0 ? "P:\\a.bmp" : "P:\\b.bmp");
        if (i % 3 == 0) {
            const Picture picture = loader.Load("P:\\a.bmp");
            EXPECT_EQ(picture.pixels->Rows(1).Row(0)[0], OpaquePixel(0, 0, 7));
        }
    }
}

/// Data that wait in the middle until they are let go on, and tell how often they are read.
class HeldSource final : public ByteSource {
  public:
    struct Gate {
        std::atomic<int> reads{0};
        std::atomic<bool> reached{false};
        std::atomic<bool> open{true};
        std::uint64_t at = 0;  ///< bytes; reading from there on waits while the gate is closed
    };

    HeldSource(std::vector<std::byte> bytes, Gate& gate) : bytes_(std::move(bytes)), gate_(gate) {}

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> into) override {
        ++gate_.reads;
        if (offset >= gate_.at && !gate_.open) {
            gate_.reached = true;
            gate_.reached.notify_all();
            gate_.open.wait(false);
        }
        return MemorySource(bytes_).ReadAt(offset, into);
    }

  private:
    std::vector<std::byte> bytes_;
    Gate& gate_;
};

std::vector<std::byte> LargeBitmap(unsigned colour) {
    std::vector<std::byte> bytes;
    Surface surface(1600, 1200);
    surface.Fill(OpaquePixel(colour, 0, 0));
    WriteBmp(surface,
             [&](std::span<const std::byte> part) { bytes.insert(bytes.end(), part.begin(), part.end()); });
    return bytes;
}

/// Two pictures of a show never have the company of a third.
TEST(ExpectedPictures, TheNextIsBegunWhenTheFormerHasStopped) {
    HeldSource::Gate first;
    first.at = 1U << 20U;
    first.open = false;
    HeldSource::Gate second;
    PictureLoader loader([&](const std::string& path) {
        const bool isFirst = path == "1";
        return IdentifiedSource{
            std::make_unique<HeldSource>(LargeBitmap(isFirst ? 1 : 2), isFirst ? first : second), path};
    });
    loader.Expect("1");
    first.reached.wait(false);
    loader.Expect("2");
    const int looks = second.reads;  // at the first bytes, for the decoder
    loader.Expect("2");
    EXPECT_EQ(second.reads, looks)
        << "it is known already, and not begun as long as the first one is at work";
    first.open = true;
    first.open.notify_all();
    EXPECT_EQ(loader.Load("2").pixels->Whole().Row(0)[0], OpaquePixel(2, 0, 0));
    EXPECT_GT(second.reads, looks);
}

TEST(ExpectedPictures, NoneIsExpectedAnyMoreAfterAnEmptyPath) {
    HeldSource::Gate gate;
    int opened = 0;
    PictureLoader loader([&](const std::string& path) {
        ++opened;
        return IdentifiedSource{
            std::make_unique<HeldSource>(LargeBitmap(static_cast<unsigned>(opened)), gate), path};
    });
    loader.Expect("1");
    loader.Expect("");
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(loader.Load("1").pixels->Whole().Row(0)[0], OpaquePixel(2, 0, 0)) << "read anew";
}

TEST(PicturesToFit, DroppingOneEndsItsWorkSoon) {
    JpegFile file;
    file.width = file.height = 2000;
    file.components = 3;
    unsigned noise = 1;
    for (int i = 0; i < 3 * 2000 * 2000; ++i) {
        noise = noise * 1664525U + 1013904223U;
        file.parts.push_back(static_cast<std::uint8_t>(noise >> 24U));
    }
    const std::vector<std::byte> bytes = file.Make();
    HeldSource::Gate gate;
    gate.at = bytes.size() / 2;
    gate.open = false;
    PictureLoader loader([&](const std::string& path) {
        return IdentifiedSource{std::make_unique<HeldSource>(bytes, gate), path};
    });
    const std::ptrdiff_t threads = ThreadCount();
    std::unique_ptr<PictureToFit> picture = loader.LoadToFit("1", {160, 120});
    gate.reached.wait(false);
    EXPECT_FALSE(picture->Ended());
    picture = nullptr;
    const int reads = gate.reads;
    gate.open = true;
    gate.open.notify_all();
    WaitForWorkers(threads);
    EXPECT_LE(gate.reads, reads + 1) << "of some hundred";
}

TEST_F(PictureLoaderTest, APictureToFitComesWithItsNaturalSize) {
    WriteLarge("large.bmp");
    Write("small.bmp", SmallBitmap());
    PictureLoader loader = MakeLoader();
    const FittedPicture large = loader.LoadToFit("P:\\large.bmp", {160, 120})->Take();
    EXPECT_EQ(large.width, 1600);
    EXPECT_EQ(large.height, 1200);
    EXPECT_EQ(large.picture.Width(), 160);
    EXPECT_EQ(large.picture.Height(), 120);
    EXPECT_EQ(large.picture.format, "bmp");
    const FittedPicture small = loader.LoadToFit("P:\\small.bmp", {160, 120})->Take();
    EXPECT_EQ(small.width, 1);
    EXPECT_EQ(small.picture.Width(), 1);
    EXPECT_EQ(small.picture.pixels->Whole().Row(0)[0], 0xFFFF0000U);
}

TEST_F(PictureLoaderTest, ErrorsOfPicturesToFit) {
    Write("text.bmp", Bytes().Text("no picture at all").Get());
    Write("cut.jpg", Bytes().U8({0xFF, 0xD8, 0xFF, 0xE0}).Get());
    Write("huge.bmp", BmpFile{.width = 100'000, .height = 100'000, .pixels = Bytes().Zeros(100)}.Make());
    PictureLoader loader = MakeLoader();
    const auto errorOf = [&](const std::string& path) {
        try {
            static_cast<void>(loader.LoadToFit(path, {160, 120})->Take());
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return ErrorNumber{0};
    };
    EXPECT_EQ(errorOf("P:\\none.bmp"), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOf("P:\\text.bmp"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf("P:\\cut.jpg"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf("P:\\huge.bmp"), ErrorNumber::OutOfMemory);
}

}  // namespace
}  // namespace tavrix::test
