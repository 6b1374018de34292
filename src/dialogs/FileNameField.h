#pragma once

#include "core/MainModule.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

/// Whether a field holds no character that leads out of a folder. Otherwise the user is told which, and the caret stands
/// before it.
[[nodiscard]] bool HoldsBareFileName(const MainModule& module, forms::TextBox& field);

}  // namespace tavrix
