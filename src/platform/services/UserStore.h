#pragma once

#include <string>

namespace tavrix {

/// Named text values of this application, kept per user apart from the program's folder.
class UserStore {
  public:
    virtual ~UserStore() = default;
    [[nodiscard]] virtual std::string Get(const std::string& name, const std::string& fallback) = 0;
    virtual void Set(const std::string& name, const std::string& text) = 0;
};

}  // namespace tavrix
