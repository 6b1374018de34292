#pragma once

#include <string>

#include "backends/linux/HostPaths.h"
#include "platform/services/Registry.h"

namespace tavrix {

/// The desktop's settings, kept as text in registry.ini of the user's configuration folder: a section a key.
class HostRegistry final : public Registry {
  public:
    explicit HostRegistry(const HostPaths& paths) : file_(paths.config + "/registry.ini") {}

    std::optional<RegistryValue> Read(const std::string& key, const std::string& name) override;
    void Write(const std::string& key, const std::string& name, const std::string& text) override;

  private:
    std::string file_;
};

}  // namespace tavrix
