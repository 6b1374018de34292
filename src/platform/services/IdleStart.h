#pragma once

#include <optional>

namespace tavrix {

/// The start of our screen saver on a desktop that starts none by itself: after so many minutes without input. It begins
/// with each session of the user's.
class IdleStart {
  public:
    virtual ~IdleStart() = default;
    /// None while it is switched off.
    [[nodiscard]] virtual std::optional<int> Minutes() = 0;
    /// Switches it on, with at least one minute, or off, at once and for sessions to come. Throws RuntimeError where that
    /// cannot be noted; then all is as before.
    virtual void Set(std::optional<int> minutes) = 0;
};

}  // namespace tavrix
