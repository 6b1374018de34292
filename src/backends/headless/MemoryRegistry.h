#pragma once

#include <map>
#include <string>
#include <utility>

#include "backends/headless/FaultPlan.h"
#include "platform/services/Registry.h"

namespace tavrix::headless {

class MemoryRegistry final : public Registry {
  public:
    explicit MemoryRegistry(FaultPlan& faults) : faults_(faults) {}

    /// Puts a value of any type there, behind the program's back.
    void Put(const std::string& key, const std::string& name, const RegistryValue& value);

    std::optional<RegistryValue> Read(const std::string& key, const std::string& name) override;
    void Write(const std::string& key, const std::string& name, const std::string& text) override;

  private:
    FaultPlan& faults_;
    std::map<std::pair<std::string, std::string>, RegistryValue> values_;  ///< by upper-cased key and name
};

}  // namespace tavrix::headless
