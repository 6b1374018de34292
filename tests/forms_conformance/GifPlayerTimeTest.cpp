#include "backends/headless/HeadlessPeers.h"
#include "forms_conformance/PlayerForm.h"

namespace tavrix::conformance {
namespace {

using namespace forms;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""h;

/// To the millisecond, on the virtual clock.
using GifPlayerTimeTest = PlayerTest;

TEST_F(GifPlayerTimeTest, EachFrameStaysForItsTimeFromTheFirstShowOn) {
    Put(FileOf({Plain(1, 50), Plain(2, 0), Plain(3, 7), Plain(1, 7)}));
    player.FileName = Path;
    driver->Pass(5000ms);
    Show();
    for (const auto& [time, colour] : {std::pair(499ms, RedShown),
                                       {1ms, GreenShown},
                                       {99ms, GreenShown},
                                       {1ms, BlueShown},
                                       {69ms, BlueShown},
                                       {1ms, RedShown}}) {
        driver->Pass(time);
        EXPECT_EQ(Shown(), colour);
    }
    driver->Pass(69ms);
    EXPECT_TRUE(player.Playing());
    driver->Pass(1ms);
    EXPECT_FALSE(player.Playing());
}

TEST_F(GifPlayerTimeTest, AnHourDoesNotDrift) {
    // A round takes 70 + 30 ms.
    test::GifFile file = FileOf({Plain(1, 7), Plain(2, 3)});
    file.before = test::GifRepetitions(0);
    Put(file);
    player.FileName = Path;
    Show();
    driver->Pass(1h);
    EXPECT_EQ(Shown(), RedShown);
    driver->Pass(69ms);
    EXPECT_EQ(Shown(), RedShown);
    driver->Pass(1ms);
    EXPECT_EQ(Shown(), GreenShown);
}

TEST_F(GifPlayerTimeTest, TheSameFileAgainStartsFromItsFirstFrame) {
    Put(FileOf({Plain(1, 10), Plain(2, 10), Plain(3, 10)}));
    player.FileName = Path;
    Show();
    driver->Pass(150ms);
    EXPECT_EQ(Shown(), GreenShown);
    player.FileName = Path;
    EXPECT_EQ(Shown(), RedShown);
    driver->Pass(99ms);
    EXPECT_EQ(Shown(), RedShown);
    driver->Pass(1ms);
    EXPECT_EQ(Shown(), GreenShown);
}

TEST_F(GifPlayerTimeTest, OnlyWhatHasChangedIsPaintedAgain) {
    Put(FileOf({Plain(1, 10), Plain(2, 10)}));
    player.FileName = Path;
    Show();
    auto& peer = dynamic_cast<headless::HeadlessCanvasPeer&>(*player.Peer());
    peer.invalid.clear();
    driver->Pass(50ms);
    EXPECT_TRUE(peer.invalid.empty());
    driver->Pass(50ms);
    EXPECT_EQ(peer.invalid, (std::vector<PixelRect>{{0, 0, 4, 4}}));
}

}  // namespace
}  // namespace tavrix::conformance
