#include "backends/linux/SizeLimit.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "linux/TestFolder.h"

namespace tavrix {
namespace {

/// What a process is told that writes beyond its limit again and again: 0 if each write fails as on a full disk.
[[noreturn]] void WriteBeyond(const std::string& path) {
    SurviveSizeLimit();
    const rlimit limit{16, 16};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const int file = ::open(path.c_str(), O_CREAT | O_WRONLY | O_APPEND, 0600);
    bool asOnAFullDisk = file >= 0 && ::write(file, "0123456789abcdef", 16) == 16;
    for (int i = 0; i < 3; ++i)
        asOnAFullDisk = asOnAFullDisk && ::write(file, "x", 1) == -1 && errno == EFBIG;
    struct sigaction now {};
    ::sigaction(SIGXFSZ, nullptr, &now);
    const bool inherited = now.sa_handler == SIG_IGN;
    std::_Exit(asOnAFullDisk && !inherited ? 0 : 1);
}

TEST(SizeLimitDeathTest, WritesBeyondItFailAndEndNobody) {
    const TestFolder folder;
    EXPECT_EXIT(WriteBeyond(folder.At("file")), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tavrix
