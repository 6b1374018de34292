#pragma once

#include <string>

namespace tavrix {

class System {
  public:
    virtual ~System() = default;
    /// The platform id of the operating system; 2 knows no screen saver passwords.
    [[nodiscard]] virtual int PlatformId() = 0;
    /// Whether any process of this desktop has a window with exactly this title.
    [[nodiscard]] virtual bool WindowExists(const std::string& title) = 0;
};

}  // namespace tavrix
