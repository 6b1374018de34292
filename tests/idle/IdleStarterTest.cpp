#include "backends/qt/idle/IdleStarter.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tavrix::idle {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;

/// A session on a virtual clock, and the loop around the starter.
class IdleStarterTest : public testing::Test, protected Session {
  protected:
    std::optional<Milliseconds> IdleTime() override {
        ++asked;
        if (!known) return std::nullopt;
        return now - lastInput;
    }
    bool Held() override {
        ++heldAsked;
        return held;
    }
    bool SaverRuns() override { return running; }
    bool StartSaver() override {
        starts.push_back(now - lastInput);
        running = saver;
        return saver;
    }

    void Wake() {
        const auto again = starter.Ask(now);
        wakeUp = again ? std::optional(now + *again) : std::nullopt;
        if (again) {
            EXPECT_GE(*again, IdleStarter::Shortest);
        }
    }
    /// Time passes, in which nobody does anything.
    void Pass(Milliseconds time) {
        const Milliseconds end = now + time;
        while (wakeUp && *wakeUp <= end) {
            now = std::max(now, *wakeUp);
            Wake();
        }
        now = end;
    }
    void Touch() { lastInput = now; }
    /// Somebody is back: the saver ends.
    void ComeBack() {
        Touch();
        EndSaver();
    }
    void EndSaver() {
        running = false;
        Wake();
    }

    Milliseconds now{seconds(1000)};
    Milliseconds lastInput{now};
    std::optional<Milliseconds> wakeUp;
    bool known = true;
    bool held = false;
    bool running = false;
    bool saver = true;  ///< there is one to start
    int asked = 0;
    int heldAsked = 0;
    std::vector<Milliseconds> starts;  ///< each with the time since the last input
    IdleStarter starter{*this, minutes(10)};
};

using Starts = std::vector<Milliseconds>;

TEST_F(IdleStarterTest, StartsAfterItsTimeAndNotBefore) {
    Wake();
    Pass(minutes(10) - Milliseconds(1));
    EXPECT_EQ(starts, Starts{});
    Pass(Milliseconds(1));
    EXPECT_EQ(starts, (Starts{minutes(10)}));
    EXPECT_FALSE(wakeUp) << "while the saver runs, nobody asks";
}

TEST_F(IdleStarterTest, AskedShortlyBeforeItsTimeItIsASecondLate) {
    Wake();
    Pass(minutes(10) - Milliseconds(1));
    Wake();
    EXPECT_EQ(wakeUp, now + IdleStarter::Shortest);
    Pass(IdleStarter::Shortest);
    EXPECT_EQ(starts, (Starts{minutes(10) - Milliseconds(1) + IdleStarter::Shortest}));
}

TEST_F(IdleStarterTest, WhileItsSaverRunsNoSecondOneStartsAndItNeedNotBeAskedAgain) {
    Wake();
    Pass(minutes(10));
    Wake();
    EXPECT_FALSE(wakeUp);
    Touch();  // a passer-by who does not know the password
    Wake();
    EXPECT_FALSE(wakeUp);
    Pass(minutes(20));
    Wake();
    EXPECT_FALSE(wakeUp);
    EXPECT_EQ(starts.size(), 1U);
}

TEST_F(IdleStarterTest, InputPutsItOff) {
    Wake();
    for (int i = 0; i < 100; ++i) {
        Pass(minutes(9));
        Touch();
    }
    EXPECT_EQ(starts, Starts{});
    Pass(minutes(10));
    EXPECT_EQ(starts, (Starts{minutes(10)}));
}

TEST_F(IdleStarterTest, StartsAgainAfterTheUserWasThere) {
    Wake();
    Pass(minutes(60));
    ComeBack();
    Pass(minutes(10) - Milliseconds(1));
    EXPECT_EQ(starts.size(), 1U);
    Pass(Milliseconds(1));
    EXPECT_EQ(starts, (Starts{minutes(10), minutes(10)}));
}

TEST_F(IdleStarterTest, ASaverThatEndsByItselfIsNotStartedAgainForNobody) {
    Wake();
    Pass(minutes(10));
    Pass(seconds(5));
    EndSaver();
    Pass(minutes(600));
    EXPECT_EQ(starts.size(), 1U);
    Touch();
    Pass(minutes(10) + IdleStarter::Pause);
    EXPECT_EQ(starts, (Starts{minutes(10), minutes(10)}));
}

TEST_F(IdleStarterTest, ASaverThatEndsAtOnceIsNotStartedAgainEither) {
    Wake();
    Pass(minutes(10));
    EndSaver();
    Pass(minutes(60));
    EXPECT_EQ(starts.size(), 1U);
}

TEST_F(IdleStarterTest, WithoutAShowItIsTriedOncePerAbsence) {
    saver = false;
    Wake();
    Pass(minutes(10));
    EXPECT_EQ(wakeUp, now + IdleStarter::Pause);
    Pass(minutes(590));
    EXPECT_EQ(starts, (Starts{minutes(10)}));
    Touch();
    saver = true;
    Pass(minutes(11));
    EXPECT_EQ(starts.size(), 2U);
}

TEST_F(IdleStarterTest, NeverWhileTheScreenIsHeld) {
    held = true;
    Wake();
    Pass(minutes(600));
    EXPECT_EQ(starts, Starts{});
    EXPECT_GT(heldAsked, 0);
}

TEST_F(IdleStarterTest, AfterAFilmTheTimeBeginsAgain) {
    held = true;
    Wake();
    Pass(minutes(95));
    held = false;
    Pass(minutes(10) - IdleStarter::Pause - Milliseconds(1));
    EXPECT_EQ(starts, Starts{});
    Pass(IdleStarter::Pause + Milliseconds(1));
    EXPECT_EQ(starts.size(), 1U);
}

TEST_F(IdleStarterTest, AfterAFilmItStartsOnTime) {
    starter.SetWait(minutes(10) + seconds(10));
    held = true;
    Wake();
    Pass(minutes(30) + seconds(10));
    held = false;
    Pass(minutes(10) + seconds(10));
    EXPECT_EQ(starts, (Starts{minutes(40) + seconds(20)}));
}

TEST_F(IdleStarterTest, ALongerTimeBeginsAgainAfterAFilmToo) {
    held = true;
    Wake();
    Pass(minutes(12));
    held = false;
    starter.SetWait(minutes(20));
    Wake();
    Pass(minutes(20) - IdleStarter::Pause - Milliseconds(1));
    EXPECT_EQ(starts, Starts{});
    Pass(IdleStarter::Pause + Milliseconds(1));
    EXPECT_EQ(starts, (Starts{minutes(32)}));
}

TEST_F(IdleStarterTest, ASecondFilmInThatTimeHoldsItToo) {
    held = true;
    Wake();
    Pass(minutes(30));
    held = false;
    Pass(minutes(5));
    held = true;
    Pass(minutes(2));
    held = false;
    Pass(minutes(9));
    EXPECT_EQ(starts, Starts{});
    Pass(minutes(1) + IdleStarter::Pause);
    EXPECT_EQ(starts.size(), 1U);
}

TEST_F(IdleStarterTest, InputAfterAFilmCountsAsEver) {
    held = true;
    Wake();
    Pass(minutes(30));
    held = false;
    Pass(minutes(2));
    Touch();
    Pass(minutes(10) - Milliseconds(1));
    EXPECT_EQ(starts, Starts{});
    Pass(IdleStarter::Pause);
    EXPECT_EQ(starts.size(), 1U);
}

TEST_F(IdleStarterTest, TheDesktopIsNotAskedWhileSomebodyWorks) {
    Wake();
    for (int i = 0; i < 60; ++i) {
        Pass(minutes(1));
        Touch();
    }
    EXPECT_EQ(heldAsked, 0);
}

TEST_F(IdleStarterTest, ItSleepsWhileSomebodyWorks) {
    Wake();
    asked = 0;
    for (int i = 0; i < 3600; ++i) {
        Pass(seconds(1));
        Touch();
    }
    EXPECT_LE(asked, 7) << "in an hour";
}

TEST_F(IdleStarterTest, WhileItIsHeldItLooksTwiceAMinute) {
    held = true;
    Wake();
    Pass(minutes(10));
    asked = 0;
    Pass(minutes(60));
    EXPECT_LE(asked, 121);
}

TEST_F(IdleStarterTest, WhereNobodyKnowsNothingStartsUntilSomebodyDoes) {
    known = false;
    Wake();
    Pass(minutes(60));
    EXPECT_EQ(starts, Starts{});
    EXPECT_LE(asked, 8);
    known = true;
    Pass(minutes(10));
    EXPECT_EQ(starts.size(), 1U);
}

TEST_F(IdleStarterTest, AnotherTimeCountsAtOnce) {
    Wake();
    Pass(minutes(4));
    starter.SetWait(minutes(3));
    Wake();
    EXPECT_EQ(starts, (Starts{minutes(4)}));
    Pass(seconds(1));
    ComeBack();
    starter.SetWait(minutes(20));
    Pass(minutes(19));
    EXPECT_EQ(starts.size(), 1U);
    Pass(minutes(1));
    EXPECT_EQ(starts.size(), 2U);
}

TEST_F(IdleStarterTest, AskedInBetweenItKeepsItsTime) {
    Wake();
    for (int i = 0; i < 59; ++i) {
        Pass(seconds(10));
        Wake();
    }
    EXPECT_EQ(starts, Starts{});
    Pass(seconds(10));
    EXPECT_EQ(starts, (Starts{minutes(10)}));
    Wake();
    EXPECT_EQ(starts.size(), 1U) << "while it runs";
}

TEST_F(IdleStarterTest, WhateverHappensItNeverStartsTooEarlyTwiceOrHeld) {
    std::mt19937 chance(4711);
    const auto below = [&chance](int limit) { return std::uniform_int_distribution(0, limit - 1)(chance); };
    Wake();
    for (int step = 0; step < 100'000; ++step) {
        const std::size_t before = starts.size();
        switch (below(8)) {
            case 0:
                Touch();
                break;
            case 1:
                held = below(3) == 0;
                break;
            case 2:
                if (running) EndSaver();
                break;
            case 3:
                if (running) ComeBack();
                break;
            case 4:
                Wake();
                break;
            default:
                Pass(seconds(below(400)));
        }
        ASSERT_LE(starts.size(), before + 1) << step;
        if (starts.size() == before) continue;
        ASSERT_GE(starts.back(), minutes(10)) << step;
        ASSERT_FALSE(held) << step;
    }
    EXPECT_GT(starts.size(), 1000U);
}

}  // namespace
}  // namespace tavrix::idle
