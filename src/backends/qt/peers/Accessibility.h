#pragma once

namespace tavrix::qt {

/// Teaches the accessibility bridge the widgets that Qt has no role for, and those that it takes for something else.
/// Once per process.
void InstallAccessibility();

}  // namespace tavrix::qt
