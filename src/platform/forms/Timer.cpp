#include "platform/forms/Timer.h"

#include "platform/forms/Application.h"
#include "platform/forms/Form.h"

namespace tavrix::forms {

Timer::Timer(Form& form) : form_(form) {
    form_.App().Timers().Add(*this);
}

Timer::~Timer() {
    form_.App().Timers().Remove(*this);
}

void Timer::AssignInterval(const int& value) {
    if (Interval.Store(value)) Restart();
}

void Timer::AssignEnabled(const bool& value) {
    Enabled.Store(value);
    Restart();
}

void Timer::Restart() {
    TimerQueue& queue = form_.App().Timers();
    due_.reset();
    if (Enabled && Interval > 0) due_ = queue.Now() + Milliseconds(Interval.Get());
    queue.Rearm();
}

}  // namespace tavrix::forms
