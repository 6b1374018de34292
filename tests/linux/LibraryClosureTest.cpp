#include "backends/linux/LibraryClosure.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>

#include "linux/TestFolder.h"

namespace tavrix {
namespace {

bool Holds(const LibraryClosure& closure, const std::string& name) {
    return std::ranges::find(closure.libraries, name, &SharedLibrary::name) != closure.libraries.end();
}

TEST(LibraryClosure, TheLoadersListIsRead) {
    const auto libraries = ReadLoaderList(
        "\tlinux-vdso.so.1 (0x00007fff)\n\t/opt/plugins/libq.so (0x00007f00)\n\tlibz.so.1 => "
        "/usr/lib/libz.so.1 (0x7f)\n"
        "\tliba b.so => /opt/a b/liba b.so (0x7f)\n\t/lib64/ld-linux-x86-64.so.2 (0x00007f01)\n");
    const std::vector<SharedLibrary> wanted{{"liba b.so", "/opt/a b/liba b.so"},
                                            {"libz.so.1", "/usr/lib/libz.so.1"}};
    EXPECT_EQ(libraries, wanted);
    EXPECT_EQ(ErrorOfCall([] { static_cast<void>(ReadLoaderList("\tlibnone.so => not found\n")); }), 53);
}

TEST(LibraryClosure, AProgramNeedsItsLibrariesAndTheLoader) {
    const LibraryClosure closure = ClosureOf("/proc/self/exe", {}, {});
    EXPECT_TRUE(Holds(closure, "libc.so.6"));
    EXPECT_TRUE(Holds(closure, "libstdc++.so.6"));
    for (const SharedLibrary& library : closure.libraries) {
        EXPECT_EQ(std::filesystem::canonical(library.path).string(), library.path);
        EXPECT_EQ(library.name.find("ld-linux"), std::string::npos);
    }
    EXPECT_TRUE(std::filesystem::is_regular_file(closure.loader));
    EXPECT_FALSE(std::filesystem::is_symlink(closure.loader));
}

TEST(LibraryClosure, WhatIsLoadedLaterCounts) {
    const LibraryClosure plain = ClosureOf("/bin/true", {}, {});
    EXPECT_FALSE(Holds(plain, "libstdc++.so.6"));
    for (const std::array names :
         {std::array{"libnone.so.7", "libstdc++.so.6"}, {"libstdc++.so.6", "libnone.so.7"}})
        EXPECT_TRUE(Holds(ClosureOf("/bin/true", {}, names), "libstdc++.so.6"));
    const LibraryClosure own = ClosureOf("/proc/self/exe", {}, {});
    const auto cpp = std::ranges::find(own.libraries, "libstdc++.so.6", &SharedLibrary::name);
    ASSERT_NE(cpp, own.libraries.end());
    const std::array plugins{cpp->path, ClosureOf("/bin/true", {}, {}).libraries.front().path};
    EXPECT_TRUE(Holds(ClosureOf("/bin/true", plugins, {}), "libgcc_s.so.1"));
}

TEST(LibraryClosure, WhatTheEnvironmentLoadsBesidesDoesNotCount) {
    const ScopedVariable preload("LD_PRELOAD", "libstdc++.so.6");
    EXPECT_FALSE(Holds(ClosureOf("/bin/true", {}, {}), "libstdc++.so.6"));
}

TEST(LibraryClosure, AskingLeavesNothingBehindAndSaysNothing) {
    testing::internal::CaptureStderr();
    const std::array names{"libnone.so.7"};
    static_cast<void>(ClosureOf("/bin/true", {}, names));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    // Children of other tests are waited for by threads of theirs.
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    siginfo_t child{};
    while (::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0 && child.si_pid != 0 &&
           std::chrono::steady_clock::now() < limit)
        child = {};
    EXPECT_EQ(child.si_pid, 0) << "a child that nobody waited for";
}

TEST(LibraryClosure, WhatCannotBeLoadedIsAFailure) {
    EXPECT_EQ(ErrorOfCall([] { static_cast<void>(ClosureOf("/none", {}, {})); }), 53);
    EXPECT_EQ(ErrorOfCall([] { static_cast<void>(ClosureOf("/etc/hostname", {}, {})); }), 53);
}

}  // namespace
}  // namespace tavrix
