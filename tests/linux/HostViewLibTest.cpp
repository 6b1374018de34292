#include "backends/linux/HostViewLib.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <string>

#include "TestFolder.h"
#include "backends/linux/FileSource.h"
#include "imaging/loading/PictureLoader.h"

namespace tavrix {
namespace {

/// A Targa of 2 x 1 pixels, red and half-transparent black.
const std::string Tga{"\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\40\50\0\0\377\377\0\0\0\200", 26};

/// A PCX of 2 x 1 pixels without a palette, 0 and 255.
std::string Pcx() {
    std::string file(128, '\0');
    file.replace(0, 4, std::string{10, 5, 1, 8});
    file[8] = 1;   // the last column
    file[65] = 1;  // planes
    file[66] = 2;  // bytes a line
    return file + std::string("\0\301\377", 3);
}

class HostViewLibTest : public testing::Test {
  protected:
    HostViewLibTest() {
        folder.PutFolder("c");
        folder.PutFolder("program");
        folder.Put("c/a.tga", Tga);
        folder.Put("c/a.pcx", Pcx());
        folder.Put("c/old.jpg", "old");
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
    Picture Reloaded(const std::string& path) {
        return PictureLoader([this](const std::string& drivePath) {
                   return OpenFileSource(files.HostPathOf(drivePath));
               })
            .Load(path);
    }

    TestFolder folder;
    DriveMap drives{Sources()};
    HostFiles files{drives, Paths()};
    HostViewLib lib{files};
};

TEST_F(HostViewLibTest, LoadsTgaPcxAndWhatTheLoaderKnows) {
    EXPECT_NE(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_EQ(lib.GetWidth(), 2);
    EXPECT_EQ(lib.GetHeight(), 1);
    EXPECT_EQ(lib.Image().Row(0)[0], 0xFFFF0000U);
    EXPECT_EQ(lib.Image().Row(0)[1], 0xFF7F7F7FU);

    EXPECT_NE(lib.Load("c:\\A.PCX", 0), 0);
    EXPECT_EQ(lib.Image().Row(0)[0], 0xFF000000U);
    EXPECT_EQ(lib.Image().Row(0)[1], 0xFFFFFFFFU);

    ASSERT_NE(lib.SaveAsJPG(100, "C:\\b.jpg"), 0);
    EXPECT_NE(lib.Load("C:\\b.jpg", 0), 0);
    EXPECT_EQ(lib.GetWidth(), 2);
}

TEST_F(HostViewLibTest, AFailedLoadLeavesNoCurrentImage) {
    folder.Put("c/bad.tga", "no picture");
    folder.PutFolder("c/folder.tga");
    for (const char* path :
         {"C:\\bad.tga", "C:\\folder.tga", "C:\\none.tga", "C:\\none\\a.tga", "Q:\\a.tga", ""}) {
        ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
        EXPECT_EQ(lib.Load(path, 0), 0) << path;
        EXPECT_TRUE(lib.Image().Empty());
        EXPECT_EQ(lib.GetWidth(), 0);
        EXPECT_EQ(lib.GetHeight(), 0);
        EXPECT_EQ(lib.SaveAsJPG(80, "C:\\old.jpg"), 0);
        EXPECT_EQ(folder.Content("c/old.jpg"), "old");
    }
}

TEST_F(HostViewLibTest, SavesOverAFormerFileAsAWhole) {
    ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_NE(lib.SaveAsJPG(90, "C:\\old.jpg"), 0);
    const Picture picture = Reloaded("C:\\old.jpg");
    EXPECT_EQ(picture.format, "jpg");
    EXPECT_EQ(picture.Width(), 2);
    EXPECT_EQ(picture.Height(), 1);
}

TEST_F(HostViewLibTest, TheFileThatIsLoadedMayBeWritten) {
    ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_NE(lib.SaveAsJPG(100, "C:\\a.tga"), 0);
    EXPECT_EQ(Reloaded("C:\\a.tga").format, "jpg");
}

TEST_F(HostViewLibTest, AFailedSaveLeavesTheFormerFile) {
    ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\none\\a.jpg"), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\"), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "Q:\\a.jpg"), 0);

    // The disk is full after the first pieces.
    std::string large{"\0\0\2\0\0\0\0\0\0\0\0\0\220\1\220\1\30\40", 18};
    unsigned value = 1;
    for (int i = 0; i < 3 * 400 * 400; ++i)
        large.push_back(static_cast<char>((value = value * 1664525U + 1013904223U) >> 24U));
    folder.Put("c/large.tga", large);
    ASSERT_NE(lib.Load("C:\\large.tga", 0), 0);
    rlimit former{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit small{100'000, former.rlim_max};
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::int16_t saved = lib.SaveAsJPG(100, "C:\\old.jpg");
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &former), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(saved, 0);
    EXPECT_EQ(folder.Content("c/old.jpg"), "old");

    EXPECT_NE(lib.SaveAsJPG(100, "C:\\old.jpg"), 0);
    EXPECT_GT(folder.Content("c/old.jpg").size(), 100'000U);
}

}  // namespace
}  // namespace tavrix
