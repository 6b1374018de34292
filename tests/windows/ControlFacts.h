#pragma once

#include <string>
#include <vector>

#include "platform/forms/Form.h"

namespace tavrix::windows {

/// The controls of a window in the order in which Tab goes through them; what lies in frames and boxes comes behind
/// these.
[[nodiscard]] std::vector<forms::Control*> ControlsOf(const forms::Container& container);

/// What stands on a control or beside it, marks for mnemonics and all; empty where it shows none.
[[nodiscard]] std::string CaptionOf(const forms::Control& control);
/// The accelerator of a caption in lower case; 0: none.
[[nodiscard]] char AcceleratorOf(const std::string& caption);
/// What a screen reader calls a control: the name that it was given, its caption or that of its label.
[[nodiscard]] std::string SpokenNameOf(const forms::Control& control,
                                       const std::vector<forms::Control*>& all);
/// Whether Tab can stop at it.
[[nodiscard]] bool TakesFocus(const forms::Control& control);
/// Whether it is on the screen, or would be if it was shown.
[[nodiscard]] bool HasItsPlace(const forms::Control& control);
/// What of its content does not fit; empty: nothing.
[[nodiscard]] std::string ClippedPartOf(const forms::Control& control);

}  // namespace tavrix::windows
