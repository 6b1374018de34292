#pragma once

#include <optional>
#include <string>

namespace tavrix {

struct RegistryValue {
    int type = 0;      ///< 1 is text
    std::string text;  ///< as stored, with whatever follows a NUL
};

/// The desktop's own settings of the current user, under keys like Control Panel\desktop.
class Registry {
  public:
    virtual ~Registry() = default;
    [[nodiscard]] virtual std::optional<RegistryValue> Read(const std::string& key,
                                                            const std::string& name) = 0;
    virtual void Write(const std::string& key, const std::string& name, const std::string& text) = 0;
};

}  // namespace tavrix
