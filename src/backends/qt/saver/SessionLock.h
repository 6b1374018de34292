#pragma once

namespace tavrix::qt {

/// Asks the system's session service (logind) to have this session locked by whoever locks it. Does not wait; where there is
/// no such service nothing happens.
void AskForSessionLock();

}  // namespace tavrix::qt
