#pragma once

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "platform/forms/Application.h"
#include "scenes/WindowScenes.h"

namespace tavrix::scenes {

/// How a test calls it.
inline void PrintTo(const WindowScene& window, std::ostream* out) {
    *out << window.name;
}

}  // namespace tavrix::scenes

namespace tavrix::windows {

using scenes::EveryWindow;
using Window = scenes::WindowScene;

/// A furnished program.
struct Program : scenes::Scenery {
    explicit Program(forms::Toolkit& toolkit) : Scenery(toolkit) { scenes::Furnish(*this); }
};

/// The name of a window as a part of a test's.
template <class Instance>
std::string NameOf(const Instance& instance) {
    std::string name = instance.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

/// The toolkit that this test program is about, in the state in which the windows are to be seen.
[[nodiscard]] std::unique_ptr<forms::Toolkit> MakeToolkit();
/// Whether the texts are larger than the windows were designed for.
[[nodiscard]] bool HasLargeFont();

}  // namespace tavrix::windows
