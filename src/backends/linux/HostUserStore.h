#pragma once

#include <string>

#include "backends/linux/HostPaths.h"
#include "platform/services/UserStore.h"

namespace tavrix {

/// The application's own values, in the file `settings` of the user's configuration folder.
class HostUserStore final : public UserStore {
  public:
    explicit HostUserStore(const HostPaths& paths) : file_(paths.config + "/settings") {}

    std::string Get(const std::string& name, const std::string& fallback) override;
    void Set(const std::string& name, const std::string& text) override;

  private:
    std::string file_;
};

}  // namespace tavrix
