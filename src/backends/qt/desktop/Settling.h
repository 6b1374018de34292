#pragma once

#include <chrono>

namespace tavrix::qt {

/// Lets messages run for a time, but for what the user does in the program's windows.
void LetMessagesRun(std::chrono::milliseconds time);

}  // namespace tavrix::qt
