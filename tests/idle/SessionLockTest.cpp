#include "backends/qt/idle/SessionLock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "linux/TestFolder.h"

namespace tavrix::idle {
namespace {

class SessionLockTest : public testing::Test {
  protected:
    SessionLockTest() { paths_.data = folder_.At("data"); }

    void Use(const std::string& display, const std::string& compositor = "") {
        ::setenv("DISPLAY", display.c_str(), 1);
        ::setenv("WAYLAND_DISPLAY", compositor.c_str(), 1);
    }
    /// Whether one more would be the one of the session.
    [[nodiscard]] bool Free() const { return SessionLock(paths_).Held(); }

    TestFolder folder_;
    HostPaths paths_;
    ScopedVariable display_{"DISPLAY", ":1"};
    ScopedVariable compositor_{"WAYLAND_DISPLAY", ""};
    ScopedVariable runtime_{"XDG_RUNTIME_DIR", folder_.Path()};
};

TEST_F(SessionLockTest, OneHasItUntilItEnds) {
    {
        const SessionLock lock(paths_);
        EXPECT_TRUE(lock.Held());
        EXPECT_FALSE(Free());
    }
    EXPECT_TRUE(Free());
}

TEST_F(SessionLockTest, ASessionHasAllScreensOfADisplay) {
    Use("my.host.net:1.0");
    const SessionLock lock(paths_);
    for (const char* same : {"my.host.net:1", "my.host.net:1.1"}) {
        Use(same);
        EXPECT_FALSE(Free()) << same;
    }
    for (const char* another : {":1", "my.host.net:2", "my.host.org:1", "my.other.net:1", ":10"}) {
        Use(another);
        EXPECT_TRUE(Free()) << another;
    }
}

TEST_F(SessionLockTest, UnderWaylandTheCompositorIsTheDisplay) {
    Use(":1", "wayland-0");
    const SessionLock lock(paths_);
    Use(":2", "wayland-0");
    EXPECT_FALSE(Free());
    Use(":1", "wayland-1");
    EXPECT_TRUE(Free());
    Use(":1", folder_.At("a/wayland-0"));
    EXPECT_TRUE(Free());
    std::string name = folder_.At("a/wayland-0");
    std::ranges::replace(name, '/', '-');
    EXPECT_TRUE(folder_.Has("tavrix-idle" + name + ".lock"));
}

TEST_F(SessionLockTest, WithoutARuntimeFolderItIsTheUsers) {
    for (const char* folder : {"", "relative"}) {
        const ScopedVariable runtime("XDG_RUNTIME_DIR", folder);
        const SessionLock lock(paths_);
        EXPECT_FALSE(Free()) << folder;
    }
    EXPECT_TRUE(folder_.Has("data/tavrix/tavrix-idle:1.lock"));
    EXPECT_EQ(std::filesystem::remove_all("relative"), 0U) << "a folder of whoever starts it";
}

TEST_F(SessionLockTest, WhereNoLockCanBeHadTheProcessIsTheOne) {
    const ScopedVariable runtime("XDG_RUNTIME_DIR", "/dev/null/none");
    const SessionLock lock(paths_);
    EXPECT_TRUE(lock.Held());
}

TEST_F(SessionLockTest, ALinkOfSomebodyElsesIsNotFollowed) {
    std::filesystem::create_symlink(folder_.At("theirs"), folder_.At("tavrix-idle:1.lock"));
    EXPECT_TRUE(Free());
    EXPECT_FALSE(folder_.Has("theirs"));
}

TEST_F(SessionLockTest, ProgramsThatAreStartedDoNotHoldIt) {
    const SessionLock lock(paths_);
    const std::string list = folder_.At("list");
    ASSERT_EQ(std::system(("ls -l /proc/self/fd > '" + list + "'").c_str()), 0);
    EXPECT_EQ(folder_.Content("list").find("tavrix-idle"), std::string::npos);
}

}  // namespace
}  // namespace tavrix::idle
