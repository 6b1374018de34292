#include "backends/headless/MemoryRegistry.h"

#include "base/Text.h"

namespace tavrix::headless {

void MemoryRegistry::Put(const std::string& key, const std::string& name, const RegistryValue& value) {
    values_[{UpperCase(key), UpperCase(name)}] = value;
}

std::optional<RegistryValue> MemoryRegistry::Read(const std::string& key, const std::string& name) {
    if (!faults_.EnterQuietly(Service::Registry, "Read", key + " " + name)) return std::nullopt;
    const auto found = values_.find({UpperCase(key), UpperCase(name)});
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

void MemoryRegistry::Write(const std::string& key, const std::string& name, const std::string& text) {
    faults_.Enter(Service::Registry, "Write", key + " " + name);
    constexpr int TextType = 1;
    Put(key, name, {TextType, text});
}

}  // namespace tavrix::headless
