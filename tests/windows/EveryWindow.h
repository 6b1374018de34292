#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "core/Main.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"

namespace tavrix {
class MainViewFrm;
}

namespace tavrix::windows {

/// A program with its main view, on services in memory and whatever toolkit.
struct Program {
    explicit Program(forms::Toolkit& toolkit);

    /// The main view, which is loaded and shown.
    [[nodiscard]] MainViewFrm& View();

    headless::HeadlessServices platform;
    forms::Application app;
    MainModule module;
    Lives lives;
};

/// A window of the program, and how it comes to be.
struct Window {
    std::string name;
    std::function<forms::Form&(Program&)> load;
    std::string repeated = {};  ///< accelerators that several captions share on purpose: they move among them
    bool layered = false;       ///< what is in it lies one upon the other
    bool placedInTwips = false;  ///< it has its own places for a font of the size that it was designed for
};

/// How a test calls it.
inline void PrintTo(const Window& window, std::ostream* out) {
    *out << window.name;
}

/// All of them. A new window joins by one line.
[[nodiscard]] std::vector<Window> EveryWindow();

/// The toolkit that this test program is about, in the state in which the windows are to be seen.
[[nodiscard]] std::unique_ptr<forms::Toolkit> MakeToolkit();
/// Whether the texts are larger than the windows were designed for.
[[nodiscard]] bool HasLargeFont();

}  // namespace tavrix::windows
