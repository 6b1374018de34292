#include "app/HostPlatform.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>

#include "imaging/graphics/Surface.h"
#include "linux/TestFolder.h"
#include "support/IoCount.h"

namespace tavrix {
namespace {

using Size = HostPlatform::Size;

class HostPlatformTest : public testing::Test {
  protected:
    HostPlatformTest() { folder.PutFolder("other"); }

    /// Pictures of some kilobytes and of nearly a megabyte.
    void PutPictures() {
        HostPlatform host({});
        for (const char* drive : {"C:\\", "D:\\"}) {
            host.pictures.SaveBitmap(Surface(40, 30), std::string(drive) + "small.bmp");
            host.pictures.SaveBitmap(Surface(600, 500), std::string(drive) + "large.bmp");
        }
    }
    /// Whether the start with these arguments has looked into a picture by now that is expected at this size.
    bool LooksInto(const std::string& argument, Size size) {
        HostPlatform host({argument});
        static_cast<void>(host.files.FileExists("C:\\small.bmp"));  // the drives are known
        const auto reads = [](const std::function<void()>& action) {
            const IoCount before = IoCount::Now();
            action();
            return (IoCount::Now() - before).read;
        };
        const auto counting = reads([] {});
        constexpr unsigned Digits = 8;  // of the numbers that are read to know
        return reads([&] { host.PrefetchPicture(size); }) > counting + Digits;
    }

    TestFolder folder;
    ScopedVariable home{"TAVRIX_HOME", folder.At("program")};
    ScopedVariable config{"TAVRIX_CONFIG", folder.At("config")};
    ScopedVariable temporary{"TAVRIX_TEMP", folder.At("temporary")};
    ScopedVariable data{"XDG_DATA_HOME", folder.At("data")};
    ScopedVariable drives{"TAVRIX_DRIVES", "C=" + folder.Path() + ";D=" + folder.At("other")};
};

TEST_F(HostPlatformTest, WhatTheDesktopHasYetToHearItHearsAtTheEnd) {
    const pid_t child = ::fork();
    if (child == 0) {
        HostPlatform host({});
        host.shell.Later = [](const std::function<void()>&) {};
        host.shell.AddRecent("C:\\a.jpg");
        host.process.End();
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_NE(folder.Content("data/recently-used.xbel").find("/a.jpg\""), std::string::npos);
}

TEST_F(HostPlatformTest, ALargePictureIsDecodedBeforeTheToolkitStartsAndASmallOneAfterIt) {
    if (!IoCount::Now().Known()) GTEST_SKIP() << "the system does not count what is read";
    PutPictures();
    EXPECT_TRUE(LooksInto("C:\\large.bmp", Size::Large));
    EXPECT_FALSE(LooksInto("C:\\large.bmp", Size::Small));
    EXPECT_FALSE(LooksInto("C:\\small.bmp", Size::Large));
    EXPECT_TRUE(LooksInto("C:\\small.bmp", Size::Small));
    EXPECT_TRUE(LooksInto("--open C:\\small.bmp", Size::Small));
}

TEST_F(HostPlatformTest, NothingElseIsLookedIntoBeforeItsTime) {
    if (!IoCount::Now().Known()) GTEST_SKIP() << "the system does not count what is read";
    PutPictures();
    for (const char* argument :
         {"D:\\small.bmp", "D:\\large.bmp", "SCRNSAVE C:\\small.bmp", "C:\\none.bmp", "ABOUT", ""}) {
        EXPECT_FALSE(LooksInto(argument, Size::Small)) << argument;
        EXPECT_FALSE(LooksInto(argument, Size::Large)) << argument;
    }
}

}  // namespace
}  // namespace tavrix
