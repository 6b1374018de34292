#include "backends/shared/MemoryInfo.h"

#include <gtest/gtest.h>

namespace tavrix {
namespace {

TEST(MemoryInfo, ReadsTheFiguresOfTheSystem) {
    const MemoryFigures figures = MemoryFiguresOf(
        "MemTotal:       16000 kB\nMemFree:         1000 kB\nMemAvailable:    9000 kB\n"
        "SwapCached:        7 kB\nSwapTotal:       2000 kB\nSwapFree:        1500 kB\n");
    EXPECT_EQ(figures.total, 16000 * 1024);
    EXPECT_EQ(figures.available, 9000 * 1024);
    EXPECT_EQ(figures.virtualTotal, 18000 * 1024);
    EXPECT_EQ(figures.virtualAvailable, 10500 * 1024);
}

TEST(MemoryInfo, UnknownFiguresAreZero) {
    const MemoryFigures figures = MemoryFiguresOf("MemTotalX: 5 kB\nMemAvailable: none");
    EXPECT_EQ(figures.total, 0);
    EXPECT_EQ(figures.available, 0);
    EXPECT_EQ(MemoryFiguresOf("").virtualTotal, 0);
}

}  // namespace
}  // namespace tavrix
