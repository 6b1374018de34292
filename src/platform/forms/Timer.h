#pragma once

#include <functional>
#include <optional>

#include "platform/forms/Property.h"
#include "platform/forms/Toolkit.h"

namespace tavrix::forms {

class Form;

/// Raises OnTimer again and again while it is enabled and its form is loaded, also during modal loops and boxes. A
/// tick never nests in itself.
class Timer final : public FormObject {
  public:
    explicit Timer(Form& form);
    ~Timer();

    /// Milliseconds; 0 never ticks. A new interval restarts the wait.
    Property<int> Interval{this, &Timer::AssignInterval};
    /// Switching it on, also when it is on already, restarts the wait.
    Property<bool> Enabled{this, &Timer::AssignEnabled, true};

    std::function<void()> OnTimer;

  private:
    friend class TimerQueue;

    void AssignInterval(const int& value);
    void AssignEnabled(const bool& value);
    void Restart();

    Form& form_;
    std::optional<Milliseconds> due_;
    bool ticking_ = false;
};

}  // namespace tavrix::forms
