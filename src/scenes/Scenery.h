#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "core/Main.h"
#include "core/MainModule.h"
#include "platform/forms/Application.h"

namespace tavrix {

class MainViewFrm;

namespace scenes {

/// A program on services in memory and whatever toolkit, of which windows are to be seen. It has run before, and shows no
/// tip and no dialog when it starts.
class Scenery {
    std::vector<std::shared_ptr<void>> kept_;  // before the application, whose windows refer to it

  public:
    explicit Scenery(forms::Toolkit& toolkit);

    /// Starts the program, with a picture on show unless the path is empty.
    MainViewFrm& Start(const std::string& path = "");
    /// The main view of a program that was started.
    [[nodiscard]] MainViewFrm& View();

    /// Makes something that a window refers to. It stays until it is forgotten.
    template <class Thing, class... Parts>
    Thing& Keep(Parts&&... parts) {
        auto thing = std::make_shared<Thing>(std::forward<Parts>(parts)...);
        kept_.push_back(thing);
        return *thing;
    }
    /// No window but the main view is loaded.
    void ForgetKept() { kept_.clear(); }

    headless::HeadlessServices platform;
    forms::Application app;
    MainModule module;
    Lives lives;
};

}  // namespace scenes
}  // namespace tavrix
