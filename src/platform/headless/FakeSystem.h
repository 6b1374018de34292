#pragma once

#include <set>
#include <string>

#include "platform/headless/FaultPlan.h"
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

    int platformId = 2;
    std::set<std::string> windows;  ///< titles of the windows of other processes

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
