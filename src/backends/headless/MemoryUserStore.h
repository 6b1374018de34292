#pragma once

#include <map>
#include <string>

#include "backends/headless/FaultPlan.h"
#include "platform/services/UserStore.h"

namespace tavrix::headless {

class MemoryUserStore final : public UserStore {
  public:
    explicit MemoryUserStore(FaultPlan& faults) : faults_(faults) {}

    std::string Get(const std::string& name, const std::string& fallback) override {
        if (!faults_.EnterQuietly(Service::UserStore, "Get", name)) return fallback;
        const auto found = values.find(name);
        return found == values.end() ? fallback : found->second;
    }
    void Set(const std::string& name, const std::string& text) override {
        faults_.Enter(Service::UserStore, "Set", name);
        values[name] = text;
    }

    std::map<std::string, std::string> values;  ///< what is kept, for tests to set and look at

  private:
    FaultPlan& faults_;
};

}  // namespace tavrix::headless
