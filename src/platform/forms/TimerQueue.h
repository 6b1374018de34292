#pragma once

#include <vector>

#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

class Timer;

/// All timers of the process in one order. The backend supplies only the next wake-up.
class TimerQueue {
  public:
    explicit TimerQueue(Toolkit& toolkit) : toolkit_(toolkit) {}

    void Add(Timer& timer);
    void Remove(Timer& timer);

    [[nodiscard]] Milliseconds Now() const { return toolkit_.Now(); }
    /// Asks the backend for the next wake-up.
    void Rearm();
    /// Raises the tick of every timer that is due, the earliest first.
    void RunDue();

  private:
    /// The earliest timer that is not in its own tick, or null.
    [[nodiscard]] Timer* Next() const;

    Toolkit& toolkit_;
    std::vector<Timer*> timers_;
};

}  // namespace tavrix::forms
