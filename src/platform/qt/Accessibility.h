#pragma once

namespace tavrix::qt {

/// Teaches the accessibility bridge the widgets that Qt has no role for. Once per process.
void InstallAccessibility();

}  // namespace tavrix::qt
