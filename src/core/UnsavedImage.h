#pragma once

#include "core/MainModule.h"

namespace tavrix {

/// Whether the image on show is the working file of an edit. Compared exactly, with case.
[[nodiscard]] bool IsUnsavedImage(const MainModule& module);

/// Asks whether an unsaved image may go. False when the caller must stop; the pointer is then the default one.
[[nodiscard]] bool ConfirmDiscard(const MainModule& module);

}  // namespace tavrix
