#include "backends/headless/MemoryViewLib.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "backends/headless/HeadlessServices.h"

namespace tavrix::headless {
namespace {

void Put16(std::string& text, unsigned value) {
    text.push_back(static_cast<char>(value & 0xFFU));
    text.push_back(static_cast<char>(value >> 8U));
}

/// A Targa of grey pixels.
std::string Tga(unsigned width, unsigned height) {
    std::string file{'\0', '\0', '\3'};
    file.append(9, '\0');
    Put16(file, width);
    Put16(file, height);
    file += {'\10', '\40'};
    return file.append(std::size_t{width} * height, '\x40');
}

class MemoryViewLibTest : public testing::Test {
  protected:
    MemoryViewLibTest() {
        platform.disks.PutFile("C:\\a.tga", Tga(3, 2));
        platform.disks.PutFile("C:\\old.jpg", "old");
    }
    void ExpectNoImage() {
        EXPECT_TRUE(lib.Image().Empty());
        EXPECT_EQ(lib.GetWidth(), 0);
        EXPECT_EQ(lib.GetHeight(), 0);
        EXPECT_EQ(lib.SaveAsJPG(80, "C:\\old.jpg"), 0);
        EXPECT_EQ(platform.disks.Content("C:\\old.jpg"), "old");
    }

    HeadlessServices platform;
    NViewLib& lib = platform.services.viewLib;
};

TEST_F(MemoryViewLibTest, LoadsAndKeepsTheCurrentImage) {
    ExpectNoImage();
    const int first = lib.Load("C:\\a.tga", 0);
    EXPECT_NE(first, 0);
    EXPECT_EQ(lib.GetWidth(), 3);
    EXPECT_EQ(lib.GetHeight(), 2);
    EXPECT_EQ(lib.Image().Row(1)[2], 0xFF404040U);
    const int second = lib.Load("c:\\A.TGA", 1);
    EXPECT_NE(second, 0);
    EXPECT_NE(second, first);
}

TEST_F(MemoryViewLibTest, AFailedLoadLeavesNoCurrentImage) {
    platform.disks.PutFile("C:\\bad.tga", "no picture");
    platform.disks.PutFolder("C:\\folder.tga");
    for (const char* path : {"C:\\bad.tga", "C:\\folder.tga", "C:\\none.tga", "C:\\none\\a.tga", "A:\\a.tga",
                             "Z:\\a.tga", "C:\\?.tga", ""}) {
        ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
        EXPECT_EQ(lib.Load(path, 0), 0) << path;
        ExpectNoImage();
    }
}

TEST_F(MemoryViewLibTest, SavesTheCurrentImageAsOftenAsAsked) {
    ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_NE(lib.SaveAsJPG(80, "C:\\old.jpg"), 0);
    EXPECT_NE(lib.SaveAsJPG(0, "C:\\new.jpg"), 0);
    const Picture picture = platform.pictures.Load("C:\\old.jpg");
    EXPECT_EQ(picture.format, "jpg");
    EXPECT_EQ(picture.Width(), 3);
    EXPECT_EQ(picture.Height(), 2);
    EXPECT_EQ(platform.pictures.Load("C:\\new.jpg").Width(), 3);
}

TEST_F(MemoryViewLibTest, AFailedSaveLeavesTheFormerFileAndTheImage) {
    ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\none\\a.jpg"), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "A:\\a.jpg"), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\a*.jpg"), 0);
    platform.disks.SetReadOnly("C:\\old.jpg", true);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\old.jpg"), 0);
    platform.disks.SetReadOnly("C:\\old.jpg", false);
    platform.disks.SetCapacity('C', 100);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\old.jpg"), 0);
    EXPECT_EQ(platform.disks.Content("C:\\old.jpg"), "old");
    EXPECT_EQ(lib.GetWidth(), 3);
}

TEST_F(MemoryViewLibTest, FaultsOnDemand) {
    ASSERT_NE(lib.Load("C:\\a.tga", 0), 0);
    platform.faults.FailNth(Service::NViewLib, 2, ErrorNumber::DiskFull);
    EXPECT_NE(lib.SaveAsJPG(80, "C:\\one.jpg"), 0);
    EXPECT_EQ(lib.SaveAsJPG(80, "C:\\two.jpg"), 0);
    EXPECT_FALSE(platform.disks.Exists("C:\\two.jpg"));
    EXPECT_TRUE(platform.faults.Fired());
    platform.faults.FailAlways(Service::NViewLib, "Load", ErrorNumber::FileNotFound);
    EXPECT_EQ(lib.Load("C:\\a.tga", 0), 0);
    EXPECT_EQ(platform.faults.Log().back(), "NViewLib.Load C:\\a.tga");
    ExpectNoImage();
}

TEST_F(MemoryViewLibTest, SizesThat16BitsDoNotHold) {
    platform.disks.PutFile("C:\\most.tga", Tga(32767, 1));
    ASSERT_NE(lib.Load("C:\\most.tga", 0), 0);
    EXPECT_EQ(lib.GetWidth(), 32767);
    EXPECT_EQ(lib.GetHeight(), 1);
    for (const auto& [width, height] : {std::pair(32768U, 2U), {2U, 32768U}}) {
        platform.disks.PutFile("C:\\large.tga", Tga(width, height));
        ASSERT_NE(lib.Load("C:\\large.tga", 0), 0);
        EXPECT_EQ(lib.GetWidth(), 0);
        EXPECT_EQ(lib.GetHeight(), 0);
        EXPECT_NE(lib.SaveAsJPG(10, "C:\\large.jpg"), 0);
        EXPECT_EQ(platform.pictures.Load("C:\\large.jpg").Width(), static_cast<int>(width));
    }
}

}  // namespace
}  // namespace tavrix::headless
