#pragma once

namespace tavrix {

/// The name that tavrix-idle has on the session bus besides the one of the service that it offers. Who has both locks
/// nothing.
inline constexpr const char* IdleBusName = "example.tavrix.Idle";

}  // namespace tavrix
