#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <random>

namespace tavrix {

/// Runs `work` in a child process.
template <class Work>
pid_t InChild(Work&& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    return child;
}

/// Kills a process that writes, at moments spread over the time that a few writes take on this machine.
/// `write(number)` writes once, with a number that no other write has, from 1; `check()` looks at what is left after
/// each kill.
template <class Write, class Check>
void KillWhileWriting(int rounds, Write&& write, Check&& check) {
    constexpr int WritesOfARound = 100'000;
    const auto start = std::chrono::steady_clock::now();
    for (int number = 1; number <= 3; ++number)
        write(number);
    const std::chrono::nanoseconds few = std::chrono::steady_clock::now() - start;
    const long spread = std::clamp(static_cast<long>(few.count()), 1'000'000L, 300'000'000L);
    std::mt19937 random(1);
    for (int round = 1; round <= rounds; ++round) {
        std::array<int, 2> ready{};
        ASSERT_EQ(::pipe(ready.data()), 0);
        const pid_t child = InChild([&] {
            for (int number = round * WritesOfARound;; ++number) {
                write(number);
                if (number == round * WritesOfARound && ::write(ready[1], "x", 1) != 1) ::_exit(1);
            }
        });
        ASSERT_GT(child, 0);
        ::close(ready[1]);
        char told = 0;
        ASSERT_EQ(::read(ready[0], &told, 1), 1);
        ::close(ready[0]);
        const timespec moment{0, static_cast<long>(random()) % spread};
        ::nanosleep(&moment, nullptr);
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        check();
        if (testing::Test::HasFatalFailure()) return;
    }
}

}  // namespace tavrix
