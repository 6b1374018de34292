#pragma once

#include "base/RuntimeError.h"

namespace tavrix {

/// The number of the run-time error that a call ends with; 0 when it ends without one.
template <class Call>
int ErrorOfCall(Call&& call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

}  // namespace tavrix
