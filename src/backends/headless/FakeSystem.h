#pragma once

#include <functional>
#include <set>
#include <string>

#include "backends/headless/FaultPlan.h"
#include "platform/services/System.h"

namespace tavrix::headless {

class FakeSystem final : public System {
  public:
    explicit FakeSystem(FaultPlan& faults) : faults_(faults) {}

    int PlatformId() override {
        faults_.Enter(Service::System, "PlatformId");
        return platformId;
    }
    bool WindowExists(const std::string& title) override {
        return faults_.EnterQuietly(Service::System, "WindowExists", title) && windows.contains(title);
    }

    NumberFormat Numbers() override {
        return faults_.EnterQuietly(Service::System, "Numbers") ? numbers : NumberFormat();
    }
    /// M/D/YYYY H:MM:SS AM/PM, unless a test sets another form.
    std::string ShortDateTime(const DateTime& moment) override {
        faults_.Enter(Service::System, "ShortDateTime");
        if (shortDateTime) return shortDateTime(moment);
        const auto twoDigits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
        const int hour = (moment.hour + 11) % 12 + 1;
        return std::to_string(moment.month) + "/" + std::to_string(moment.day) + "/" +
               std::to_string(moment.year) + " " + std::to_string(hour) + ":" + twoDigits(moment.minute) +
               ":" + twoDigits(moment.second) + (moment.hour < 12 ? " AM" : " PM");
    }
    MemoryFigures Memory() override {
        return faults_.EnterQuietly(Service::System, "Memory") ? memory : MemoryFigures();
    }

    int platformId = 2;
    MemoryFigures memory;
    std::set<std::string> windows;  ///< titles of the windows of other processes
    NumberFormat numbers;
    std::function<std::string(const DateTime&)> shortDateTime;

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
