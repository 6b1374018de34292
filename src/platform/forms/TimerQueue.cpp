#include "platform/forms/TimerQueue.h"

#include <algorithm>

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"
#include "platform/forms/Timer.h"

namespace tavrix::forms {

void TimerQueue::Add(Timer& timer) {
    timers_.push_back(&timer);
}

void TimerQueue::Remove(Timer& timer) {
    std::erase(timers_, &timer);
    Rearm();
}

Timer* TimerQueue::Next() const {
    Timer* next = nullptr;
    for (Timer* timer : timers_) {
        if (!timer->due_ || timer->ticking_) continue;
        if (next == nullptr || *timer->due_ < *next->due_) next = timer;
    }
    return next;
}

void TimerQueue::Rearm() {
    const Timer* next = Next();
    if (next == nullptr) {
        toolkit_.SetWakeUp(std::nullopt);
    } else {
        toolkit_.SetWakeUp(std::max(*next->due_ - Now(), Milliseconds(0)));
    }
}

void TimerQueue::RunDue() {
    const Milliseconds until = Now();
    for (Timer* timer = Next(); timer != nullptr && *timer->due_ <= until; timer = Next()) {
        // The next tick counts from this one's due time on, but a late process does not make up for lost ticks.
        timer->due_ = std::max(*timer->due_ + Milliseconds(timer->Interval.Get()), until + Milliseconds(1));
        const Form::HandlerScope scope(timer->form_);
        timer->ticking_ = true;
        Rearm();
        if (timer->OnTimer) timer->form_.App().LastResort([timer] { timer->OnTimer(); });
        timer->ticking_ = false;
    }
    Rearm();
}

}  // namespace tavrix::forms
