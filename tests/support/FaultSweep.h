#pragma once

#include <gtest/gtest.h>

#include <functional>

namespace tavrix::test {

/// Runs an operation with the first, the second, the third call of a service failing, and so on until none of its calls
/// is left to fail, or a run did not pass its checks. `runWithFault` makes one run and tells whether the fault came. How
/// many came.
inline int SweepFaults(const std::function<bool(int call)>& runWithFault) {
    constexpr int TooMany = 1000;
    int call = 1;
    while (call < TooMany && runWithFault(call)) {
        if (::testing::Test::HasFailure()) {
            ADD_FAILURE() << "with call " << call << " failing";
            break;
        }
        ++call;
    }
    EXPECT_LT(call, TooMany);
    ::testing::Test::RecordProperty("faults", call - 1);
    return call - 1;
}

}  // namespace tavrix::test
